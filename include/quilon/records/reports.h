/**
 * Records of reports and of other data that the printer keeps.
 *
 * A text whose length the printer does not fix has 256 bytes.
 */
#ifndef QUILON_RECORDS_REPORTS_H_
#define QUILON_RECORDS_REPORTS_H_

#include "quilon/records/layout.h"

/** QUIL_READ_HASH_X. */
typedef struct HashX {
  int64_t number;     /**< The answer's first number. */
  int32_t numbers[2]; /**< The numbers behind it. */
  char text[256];     /**< The text at the end. */
} HashX;
QUILON_SIZE(HashX, 272);
QUILON_OFFSET(HashX, text, 16);

/** QUIL_AT_PMI. */
typedef struct PmiCommand {
  int32_t parameter;  /**< Sent before the mnemonic. */
  char reserved1[4];  /**< Padding. */
  int64_t number;     /**< First field. */
  int32_t numbers[3]; /**< The fields behind it. */
  char reserved2[4];  /**< Padding. */
} PmiCommand;
QUILON_SIZE(PmiCommand, 32);
QUILON_OFFSET(PmiCommand, number, 8);

/** QUIL_READ_PMD. */
typedef struct PmdAnswer {
  int32_t numbers[4]; /**< The answer's first numbers. */
  int64_t number;     /**< The number behind them. */
  char data[1024];    /**< The first text. */
  char text[256];     /**< The second text. */
} PmdAnswer;
QUILON_SIZE(PmdAnswer, 1304);
QUILON_OFFSET(PmdAnswer, data, 24);
QUILON_OFFSET(PmdAnswer, text, 1048);

/** QUIL_SEND_EXCLAMATION_E and QUIL_READ_EXCLAMATION_E. */
typedef struct ExclamationE {
  int32_t numbers[8]; /**< Numbers 1 to 4 are sent. The answer's first number
                           becomes number 5; when it is below 2, the next five
                           become 3, 4, 6, 7 and 8. */
  char text[262144];  /**< The text behind them, when the answer's first number
                           is below 2. */
} ExclamationE;
QUILON_SIZE(ExclamationE, 262176);
QUILON_OFFSET(ExclamationE, text, 32);

#endif /* QUILON_RECORDS_REPORTS_H_ */
