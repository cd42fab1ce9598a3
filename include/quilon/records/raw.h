/**
 * Records of a command that the application writes itself, and of any answer.
 */
#ifndef QUILON_RECORDS_RAW_H_
#define QUILON_RECORDS_RAW_H_

#include "quilon/records/layout.h"

/** A command of the application's own: QUIL_SEND_RAW. */
typedef struct RawCommand {
  /** What follows ESC "P"; converted to the printer's code page. */
  char text[5120];
  /** 0: closed by ESC "\"; 1: closed by the checksum and ESC "\"; any other
   *  value: not closed. */
  int32_t mode;
} RawCommand;
QUILON_SIZE(RawCommand, 5124);
QUILON_OFFSET(RawCommand, mode, 5120);

/** Any answer of the printer: QUIL_READ_RAW. */
typedef struct RawAnswer {
  /** The answer from its first byte up to the "\" that ends it, cut to 65535
   *  bytes; empty when the printer fell silent before the "\". */
  char text[65536];
} RawAnswer;
QUILON_SIZE(RawAnswer, 65536);

#endif /* QUILON_RECORDS_RAW_H_ */
