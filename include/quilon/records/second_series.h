/**
 * Records of the commands of codes 100 to 113, 500 to 503 and 700. They bear
 * the names of the commands' mnemonics: "#" is Hash, "$" is Dollar. Those of
 * the two longest, "#f" and "#m", stand in long_frames.h.
 *
 * Units: an amount counts hundredths (1250 is 12,50 zł). Texts are CP1250 (or
 * UTF-8 after QUIL_TEXT_UTF8) and end at their NUL or, when they have none,
 * with their array. The last text of a record has 64 bytes.
 */
#ifndef QUILON_RECORDS_SECOND_SERIES_H_
#define QUILON_RECORDS_SECOND_SERIES_H_

#include "quilon/records/layout.h"

/** "#r": QUIL_HASH_R. */
typedef struct HashR {
  /** Second parameter, behind "1"; when empty, "0" is the only one.
   *  Virtual printer: day. */
  char parameter1[3];
  /** Third parameter.
   *  Virtual printer: month. */
  char parameter2[3];
  /** Fourth parameter.
   *  Virtual printer: year. */
  char parameter3[3];
  /** First text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text1[9];
  /** Second text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text2[64];
} HashR;
QUILON_SIZE(HashR, 82);
QUILON_OFFSET(HashR, parameter2, 3);
QUILON_OFFSET(HashR, parameter3, 6);
QUILON_OFFSET(HashR, text1, 9);
QUILON_OFFSET(HashR, text2, 18);

/** "#k": QUIL_HASH_K. */
typedef struct HashK {
  /** The only parameter.
   *  Virtual printer: printed on the report. */
  int32_t parameter;
  /** First text, sent also when empty.
   *  Virtual printer: name of the shift. */
  char text1[9];
  /** Second text, sent also when empty.
   *  Virtual printer: printed on the report. */
  char text2[33];
  /** Third text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text3[64];
  char reserved1[2];
} HashK;
QUILON_SIZE(HashK, 112);
QUILON_OFFSET(HashK, text1, 4);
QUILON_OFFSET(HashK, text2, 13);
QUILON_OFFSET(HashK, text3, 46);

/** "#o": QUIL_HASH_O_TEXTS sends the six parameters and `number`,
 *  QUIL_HASH_O_FIELDS `number` and the two fields. */
typedef struct HashO {
  /** The six parameters before `number`.
   *  Virtual printer: first day, month, year, last day, month, year. */
  char parameters[6][3];
  char reserved1[2];
  /** Last parameter.
   *  Virtual printer: printed on the report. */
  int32_t number;
  /** First text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text1[33];
  /** Second text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text2[9];
  /** First field, sent also when empty.
   *  Virtual printer: number of the first daily report. */
  char field1[11];
  /** Second field, sent also when empty.
   *  Virtual printer: number of the last daily report. */
  char field2[64];
  char reserved2[3];
} HashO;
QUILON_SIZE(HashO, 144);
QUILON_OFFSET(HashO, parameters, 0);
QUILON_OFFSET(HashO, number, 20);
QUILON_OFFSET(HashO, text1, 24);
QUILON_OFFSET(HashO, text2, 57);
QUILON_OFFSET(HashO, field1, 66);
QUILON_OFFSET(HashO, field2, 77);

/** "$o" with texts: QUIL_DOLLAR_O_TEXTS. */
typedef struct DollarOTexts {
  /** The only parameter.
   *  Virtual printer: kind of report. */
  int32_t parameter;
  char reserved1[20];
  /** Last field.
   *  Virtual printer: printed on the report. */
  char field[3];
  /** First field.
   *  Virtual printer: first day, as 2024-01-31. */
  char text1[11];
  /** Second field.
   *  Virtual printer: last day, as 2024-01-31. */
  char text2[64];
  char reserved2[2];
} DollarOTexts;
QUILON_SIZE(DollarOTexts, 104);
QUILON_OFFSET(DollarOTexts, field, 24);
QUILON_OFFSET(DollarOTexts, text1, 27);
QUILON_OFFSET(DollarOTexts, text2, 38);

/** "$o" with numbers: QUIL_DOLLAR_O_NUMBERS. */
typedef struct DollarONumbers {
  /** The only parameter.
   *  Virtual printer: kind of report. */
  int32_t parameter;
  int32_t reserved1;
  /** First field, as plain decimal.
   *  Virtual printer: number of the first daily report. */
  int64_t number1;
  /** Second field, as plain decimal.
   *  Virtual printer: number of the last daily report. */
  int64_t number2;
  /** Last field.
   *  Virtual printer: printed on the report. */
  char field[64];
} DollarONumbers;
QUILON_SIZE(DollarONumbers, 88);
QUILON_OFFSET(DollarONumbers, number1, 8);
QUILON_OFFSET(DollarONumbers, number2, 16);
QUILON_OFFSET(DollarONumbers, field, 24);

/** "#t": QUIL_HASH_T. */
typedef struct HashT {
  /** First text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text1[9];
  /** Second text, sent when not empty.
   *  Virtual printer: printed on the report. */
  char text2[64];
} HashT;
QUILON_SIZE(HashT, 73);
QUILON_OFFSET(HashT, text2, 9);

/** "@PR": QUIL_AT_PR. */
typedef struct PrCommand {
  /** First field.
   *  Virtual printer: number of the first document. */
  int32_t number1;
  /** Second field.
   *  Virtual printer: number of the last document. */
  int32_t number2;
  /** Third field, sent also when empty.
   *  Virtual printer: printed on the report. */
  char text1[20];
  /** Last field, sent also when empty.
   *  Virtual printer: printed on the report. */
  char text2[64];
} PrCommand;
QUILON_SIZE(PrCommand, 92);
QUILON_OFFSET(PrCommand, number2, 4);
QUILON_OFFSET(PrCommand, text1, 8);
QUILON_OFFSET(PrCommand, text2, 28);

/** "@PMR": QUIL_AT_PMR. */
typedef struct PmrCommand {
  int32_t reserved1;
  /** First field.
   *  Virtual printer: number of the first document. */
  int32_t number1;
  /** Second field.
   *  Virtual printer: number of the last document. */
  int32_t number2;
  /** Third field, sent also when empty.
   *  Virtual printer: printed on the report. */
  char text1[20];
  /** Last field, sent also when empty.
   *  Virtual printer: printed on the report. */
  char text2[64];
} PmrCommand;
QUILON_SIZE(PmrCommand, 96);
QUILON_OFFSET(PmrCommand, number1, 4);
QUILON_OFFSET(PmrCommand, number2, 8);
QUILON_OFFSET(PmrCommand, text1, 12);
QUILON_OFFSET(PmrCommand, text2, 32);

/** "#i" and "#d": QUIL_HASH_I and QUIL_HASH_D. */
typedef struct HashAmount {
  /** The only parameter.
   *  Virtual printer: printed on the slip. */
  int32_t parameter;
  int32_t reserved1;
  /** The amount, in hundredths.
   *  Virtual printer: cash paid in or out. */
  int64_t amount;
  /** First text, sent when not empty.
   *  Virtual printer: printed on the slip. */
  char text1[10];
  /** Second text; sent, also when empty, if `text1` is not empty, and otherwise
   *  not, whatever it holds.
   *  Virtual printer: printed on the slip. */
  char text2[64];
  char reserved2[6];
} HashAmount;
QUILON_SIZE(HashAmount, 96);
QUILON_OFFSET(HashAmount, amount, 8);
QUILON_OFFSET(HashAmount, text1, 16);
QUILON_OFFSET(HashAmount, text2, 26);

/** "#p" and "#q": QUIL_HASH_P and QUIL_HASH_Q. */
typedef struct HashP {
  /** The only parameter of "#p"; not sent by "#q".
   *  Virtual printer: number of the cashier. */
  int32_t parameter;
  /** First text, sent also when empty.
   *  Virtual printer: name of the cashier. */
  char text1[33];
  /** Second text, sent also when empty.
   *  Virtual printer: code of the cashier. */
  char text2[64];
  char reserved1[3];
} HashP;
QUILON_SIZE(HashP, 104);
QUILON_OFFSET(HashP, text1, 4);
QUILON_OFFSET(HashP, text2, 37);

/** The printer's "#P" answer, filled by QUIL_READ_HASH_P. */
typedef struct HashPAnswer {
  /** First field, cut to 32 characters.
   *  Virtual printer: name of the cashier. */
  char text1[33];
  /** Second field, cut to 10 characters.
   *  Virtual printer: code of the cashier. */
  char text2[11];
  /** Third field; -1 when it is empty.
   *  Virtual printer: number of the cashier. */
  int32_t number;
} HashPAnswer;
QUILON_SIZE(HashPAnswer, 48);
QUILON_OFFSET(HashPAnswer, text1, 0);
QUILON_OFFSET(HashPAnswer, text2, 33);
QUILON_OFFSET(HashPAnswer, number, 44);

#endif /* QUILON_RECORDS_SECOND_SERIES_H_ */
