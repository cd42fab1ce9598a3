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
  /** First number of the answer.
   *  Virtual printer: documents so far. */
  int64_t number;
  /** The two numbers behind it.
   *  Virtual printer: daily reports and cancelled documents so far. */
  int32_t numbers[2];
  /** The text at the end.
   *  Virtual printer: date and time. */
  char text[256];
} HashX;
QUILON_SIZE(HashX, 272);
QUILON_OFFSET(HashX, text, 16);

/** QUIL_AT_PMI. */
typedef struct PmiCommand {
  /** The only parameter. */
  int32_t parameter;
  char reserved1[4];
  /** First field.
   *  Virtual printer: a number that the answer repeats. */
  int64_t number;
  /** The three fields behind it.
   *  Virtual printer: numbers that the answer repeats. */
  int32_t numbers[3];
  char reserved2[4];
} PmiCommand;
QUILON_SIZE(PmiCommand, 32);
QUILON_OFFSET(PmiCommand, number, 8);

/** QUIL_READ_PMD. */
typedef struct PmdAnswer {
  /** The first four numbers of the answer.
   *  Virtual printer: the three numbers of the question, number of the
   *  error. */
  int32_t numbers[4];
  /** The number behind them.
   *  Virtual printer: the first number of the question. */
  int64_t number;
  /** First text of the answer.
   *  Virtual printer: printouts kept. */
  char data[1024];
  /** Second text of the answer.
   *  Virtual printer: label of the memory. */
  char text[256];
} PmdAnswer;
QUILON_SIZE(PmdAnswer, 1304);
QUILON_OFFSET(PmdAnswer, data, 24);
QUILON_OFFSET(PmdAnswer, text, 1048);

/** QUIL_SEND_EXCLAMATION_E and QUIL_READ_EXCLAMATION_E. */
typedef struct ExclamationE {
  /** Numbers 1 to 4 are sent. The first number of the answer becomes number 5;
   *  when it is below 2, the next five become 3, 4, 6, 7 and 8.
   *  Virtual printer: of the answer: the third and the fourth as sent, the
   *  fifth 0 for found, the sixth the number of lines, 1 and 1. */
  int32_t numbers[8];
  /** The text behind them, when the first number of the answer is below 2.
   *  Virtual printer: newest lines of the paper. */
  char text[262144];
} ExclamationE;
QUILON_SIZE(ExclamationE, 262176);
QUILON_OFFSET(ExclamationE, text, 32);

#endif /* QUILON_RECORDS_REPORTS_H_ */
