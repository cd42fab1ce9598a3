/**
 * Records of the customer display and of the printer's error mode.
 */
#ifndef QUILON_RECORDS_DISPLAY_H_
#define QUILON_RECORDS_DISPLAY_H_

#include "quilon/records/layout.h"

/** QUIL_DISPLAY and QUIL_EXCLAMATION_D. */
typedef struct DisplayText {
  /** The only parameter. */
  int32_t mode;
  /** The text, converted to the printer's code page. */
  char text[1024];
} DisplayText;
QUILON_SIZE(DisplayText, 1028);
QUILON_OFFSET(DisplayText, text, 4);

/** QUIL_HASH_E and QUIL_READ_HASH_Z. */
typedef struct HashE {
  /** The only parameter of the command; not read.
   *  Virtual printer: 0 keeps refusals to ENQ, 1 to 3 report each at once. */
  int32_t number;
  /** What stands before "#Z", at most 4 characters; empty in an answer without
   *  "#Z".
   *  Virtual printer: number of the error, four digits. */
  char number_z[5];
  /** What stands behind "#Z".
   *  Virtual printer: mnemonic of the refused command. */
  char text[256];
  char reserved1[3];
} HashE;
QUILON_SIZE(HashE, 268);
QUILON_OFFSET(HashE, number_z, 4);
QUILON_OFFSET(HashE, text, 9);

#endif /* QUILON_RECORDS_DISPLAY_H_ */
