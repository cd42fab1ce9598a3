/**
 * Records of what is sent from files: the logo and any file.
 *
 * Paths are in the process's own encoding, that of fopen.
 */
#ifndef QUILON_RECORDS_FILES_H_
#define QUILON_RECORDS_FILES_H_

#include "quilon/records/layout.h"

/** The logo: QUIL_SEND_LOGO, QUIL_LOGO_CHECKSUM, QUIL_READ_LOGO and
 *  QUIL_LOGO_FRAME_1 and _10. */
typedef struct Logo {
  /** Sent at the end of every frame.
   *  Virtual printer: number of the logo. */
  int32_t number;
  /** Path of the bitmap: a BMP file with 1 bit a pixel, not compressed, at most
   *  32768 bytes. */
  char path[256];
  /** Second field of the answer to QUIL_LOGO_FRAME_10.
   *  Virtual printer: bytes of the logo. */
  int32_t value;
  /** Checksum, four hexadecimal digits. */
  char checksum[5];
  char reserved1[3];
} Logo;
QUILON_SIZE(Logo, 272);
QUILON_OFFSET(Logo, path, 4);
QUILON_OFFSET(Logo, value, 260);
QUILON_OFFSET(Logo, checksum, 264);

/** A file: QUIL_SEND_FILE and QUIL_SEND_EMPTY_FILE. */
typedef struct FileTransfer {
  /** Parameter of QUIL_SEND_EMPTY_FILE: 0 for a new file, 1 for the
   *  continuation of one. QUIL_SEND_FILE does not read it. */
  int32_t continued;
  /** Name under which the printer stores the file, sent as it is. */
  char name[13];
  /** Path of the file on this machine. */
  char path[260];
  char reserved1[3];
} FileTransfer;
QUILON_SIZE(FileTransfer, 280);
QUILON_OFFSET(FileTransfer, name, 4);
QUILON_OFFSET(FileTransfer, path, 17);

#endif /* QUILON_RECORDS_FILES_H_ */
