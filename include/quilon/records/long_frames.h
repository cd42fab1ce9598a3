/**
 * Records of the two commands that carry whole lists of texts and amounts, "#f"
 * and "#m".
 *
 * Units: an amount counts hundredths (1250 is 12,50 zł). Texts are CP1250 (or
 * UTF-8 after QUIL_TEXT_UTF8) and end at their NUL or, when they have none,
 * with their array. The last text of a record has 64 bytes.
 */
#ifndef QUILON_RECORDS_LONG_FRAMES_H_
#define QUILON_RECORDS_LONG_FRAMES_H_

#include "quilon/records/layout.h"

/** "#f": QUIL_HASH_F. Its texts and amounts are sent in the order of the
 *  record, empty texts too; only `text3` is sent last, and when not empty. */
typedef struct HashF {
  int32_t reserved1;
  /** First text.
   *  Virtual printer: printed on the form. */
  char text1[9];
  /** Second text.
   *  Virtual printer: printed on the form. */
  char text2[33];
  /** Sent behind all other fields, when not empty.
   *  Virtual printer: printed on the form. */
  char text3[9];
  /** Texts three to eighteen of the frame.
   *  Virtual printer: printed on the form. */
  char texts4[16][17];
  /** Text nineteen of the frame.
   *  Virtual printer: printed on the form. */
  char text20[16];
  /** Text twenty of the frame, the last one before the amounts.
   *  Virtual printer: printed on the form. */
  char text21[17];
  /** The 23 amounts, in hundredths.
   *  Virtual printer: printed on the form. */
  int64_t amounts[23];
  /** First text behind the amounts.
   *  Virtual printer: printed on the form. */
  char text22[6];
  /** Second text behind the amounts.
   *  Virtual printer: printed on the form. */
  char text23[6];
  /** Third text behind the amounts.
   *  Virtual printer: printed on the form. */
  char text24[64];
  char reserved2[4];
} HashF;
QUILON_SIZE(HashF, 624);
QUILON_OFFSET(HashF, text1, 4);
QUILON_OFFSET(HashF, text2, 13);
QUILON_OFFSET(HashF, text3, 46);
QUILON_OFFSET(HashF, texts4, 55);
QUILON_OFFSET(HashF, text20, 327);
QUILON_OFFSET(HashF, text21, 343);
QUILON_OFFSET(HashF, amounts, 360);
QUILON_OFFSET(HashF, text22, 544);
QUILON_OFFSET(HashF, text23, 550);
QUILON_OFFSET(HashF, text24, 556);

/** "#m": QUIL_HASH_M. Of a list as many entries are sent as the count of its
 *  letter says, at most all of them; a count of 0 or less sends none. */
typedef struct HashM {
  /** How many entries of texts_a, amounts_a1 and amounts_a2 are sent. */
  int32_t count_a;
  /** How many entries of texts_b are sent. */
  int32_t count_b;
  /** How many entries of integers_c, texts_c and amounts_c are sent. Beyond 16,
   *  each counted integer still sends its ";", and the command fails when these
   *  make the frame longer than 1 MiB. */
  int32_t count_c;
  int32_t reserved1;
  /** Parameters behind the counts and "212".
   *  Virtual printer: printed on the settlement. */
  int32_t integers_c[16];
  /** First text; it and the four below are sent also when empty.
   *  Virtual printer: printed on the settlement. */
  char text1[9];
  /** Second text.
   *  Virtual printer: printed on the settlement. */
  char text2[9];
  /** Third text.
   *  Virtual printer: printed on the settlement. */
  char text3[33];
  /** Fourth text.
   *  Virtual printer: printed on the settlement. */
  char text4[16];
  /** Fifth text.
   *  Virtual printer: printed on the settlement. */
  char text5[16];
  /** Sent behind the five texts.
   *  Virtual printer: printed on the settlement. */
  char texts_c[16][17];
  /** Sent behind texts_c.
   *  Virtual printer: printed on the settlement. */
  char texts_a[32][25];
  /** Sent behind texts_a.
   *  Virtual printer: printed on the settlement. */
  char texts_b[32][25];
  char reserved2[5];
  /** The first five amounts, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amounts[5];
  /** Amounts behind these, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amounts_c[16];
  /** Amount between amounts_c and amounts_a1, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amount6;
  /** Amounts behind it, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amounts_a1[32];
  /** Amount between amounts_a1 and amounts_a2, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amount7;
  /** Amounts behind it, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amounts_a2[32];
  /** Last amount, in hundredths.
   *  Virtual printer: printed on the settlement. */
  int64_t amount8;
  /** First text behind the amounts; it and the two below are sent also when
   *  empty.
   *  Virtual printer: printed on the settlement. */
  char text6[10];
  /** Second text behind the amounts.
   *  Virtual printer: printed on the settlement. */
  char text7[10];
  /** Third text behind the amounts.
   *  Virtual printer: printed on the settlement. */
  char text8[64];
  char reserved3[4];
} HashM;
QUILON_SIZE(HashM, 2832);
QUILON_OFFSET(HashM, count_b, 4);
QUILON_OFFSET(HashM, count_c, 8);
QUILON_OFFSET(HashM, integers_c, 16);
QUILON_OFFSET(HashM, text1, 80);
QUILON_OFFSET(HashM, text2, 89);
QUILON_OFFSET(HashM, text3, 98);
QUILON_OFFSET(HashM, text4, 131);
QUILON_OFFSET(HashM, text5, 147);
QUILON_OFFSET(HashM, texts_c, 163);
QUILON_OFFSET(HashM, texts_a, 435);
QUILON_OFFSET(HashM, texts_b, 1235);
QUILON_OFFSET(HashM, amounts, 2040);
QUILON_OFFSET(HashM, amounts_c, 2080);
QUILON_OFFSET(HashM, amount6, 2208);
QUILON_OFFSET(HashM, amounts_a1, 2216);
QUILON_OFFSET(HashM, amount7, 2472);
QUILON_OFFSET(HashM, amounts_a2, 2480);
QUILON_OFFSET(HashM, amount8, 2736);
QUILON_OFFSET(HashM, text6, 2744);
QUILON_OFFSET(HashM, text7, 2754);
QUILON_OFFSET(HashM, text8, 2764);

#endif /* QUILON_RECORDS_LONG_FRAMES_H_ */
