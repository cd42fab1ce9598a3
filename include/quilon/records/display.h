/**
 * Records of the customer display and of the printer's error mode.
 */
#ifndef QUILON_RECORDS_DISPLAY_H_
#define QUILON_RECORDS_DISPLAY_H_

#include "quilon/records/layout.h"

/** QUIL_DISPLAY and QUIL_EXCLAMATION_D. */
typedef struct DisplayText {
  int32_t mode;    /**< The command's parameter. */
  char text[1024]; /**< The text, converted to the printer's code page. */
} DisplayText;
QUILON_SIZE(DisplayText, 1028);
QUILON_OFFSET(DisplayText, text, 4);

/** QUIL_HASH_E and QUIL_READ_HASH_Z. */
typedef struct HashE {
  int32_t number;    /**< Parameter of the command; not read. */
  char number_z[5];  /**< What stands before "#Z", at most 4 characters; empty
                          in an answer without "#Z". */
  char text[256];    /**< What stands behind "#Z". */
  char reserved1[3]; /**< Padding. */
} HashE;
QUILON_SIZE(HashE, 268);
QUILON_OFFSET(HashE, number_z, 4);
QUILON_OFFSET(HashE, text, 9);

#endif /* QUILON_RECORDS_DISPLAY_H_ */
