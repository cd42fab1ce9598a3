/**
 * Records of the commands that settle and close a document with all its
 * payments, "$x" and "$y". Units and texts are those of documents.h.
 */
#ifndef QUILON_RECORDS_SETTLEMENTS_H_
#define QUILON_RECORDS_SETTLEMENTS_H_

#include "quilon/records/layout.h"

/** Closes a document with "$x": QUIL_DOCUMENT_END_X, QUIL_BUYER_END_X. */
typedef struct DollarX {
  /** What `adjustment` does to the total in the totals comparison: 0 nothing, 1
   *  takes a percentage off and 2 puts one on, 3 takes an amount off and 4 puts
   *  one on. With another value the comparison does not know what to expect.
   *  Also sent as the fourth parameter. */
  int32_t comparison_mode;
  /** Parameters five to eight. */
  int32_t integers[4];
  /** 1: there are payments "6$d"; see `payments6_sum`. */
  int32_t has_payments6;
  /** 1: there are payments "10$d"; see `payments10_sum`. */
  int32_t has_payments10;
  /** Eleventh and last parameter. */
  int32_t last_integer;
  /** Total of the document, in hundredths: what the totals comparison expects
   *  to be booked, before the adjustment. */
  int64_t total;
  /** The adjustment that `comparison_mode` names: a rate in hundredths of a
   *  percent, or an amount in hundredths. */
  int64_t adjustment;
  /** Four amounts behind these two, in hundredths. */
  int64_t amounts[4];
  /** Texts two to six, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char texts[5][41];
  /** Texts seven to nine, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char short_texts[3][17];
  /** Sum of the payments "6$d", in hundredths. */
  int64_t payments6_sum;
  /** Sum of the payments "10$d", in hundredths. */
  int64_t payments10_sum;
  /** Last amount, in hundredths. */
  int64_t last_amount;
  /** First text; an empty one is sent, too.
   *  Virtual printer: printed at the end of the document. */
  char leading_text[64];
} DollarX;
QUILON_SIZE(DollarX, 424);
QUILON_OFFSET(DollarX, has_payments6, 20);
QUILON_OFFSET(DollarX, total, 32);
QUILON_OFFSET(DollarX, adjustment, 40);
QUILON_OFFSET(DollarX, amounts, 48);
QUILON_OFFSET(DollarX, texts, 80);
QUILON_OFFSET(DollarX, short_texts, 285);
QUILON_OFFSET(DollarX, payments6_sum, 336);
QUILON_OFFSET(DollarX, payments10_sum, 344);
QUILON_OFFSET(DollarX, leading_text, 360);

/** Closes a document with "$y": QUIL_DOCUMENT_END_Y. A count above its list's
 *  capacity sends the whole list, one of 0 or less nothing. With a `kind` of 3
 *  the lists of z are not sent, and each list of payments shrinks to one entry:
 *  an empty text, or the sum of its amounts if that is above 0. */
typedef struct DollarY {
  /** How many of `texts` are sent; also the first parameter. */
  int32_t text_count;
  /** 3: the short form; also the second parameter. */
  int32_t kind;
  /** Parameters three and four. */
  int32_t integers1[2];
  /** What `adjustment` does to the total in the totals comparison, as in
   *  DollarX; also the fifth parameter. */
  int32_t comparison_mode;
  /** How many payments "6$d" the lists name, 0 to 32. */
  int32_t payment6_count;
  /** How many payments "10$d" the lists name, 0 to 32. */
  int32_t payment10_count;
  /** Eighth parameter. */
  int32_t integer2;
  /** How many entries the lists of z have, 0 to 16. */
  int32_t count_z;
  /** Parameters ten and eleven. */
  int32_t integers3[2];
  /** Parameters behind these, as many as `count_z` says. */
  int32_t integers_z[16];
  /** First text, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char text1[9];
  /** Second text, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char text2[33];
  /** Third text; when empty, `alternative_text3` is sent in its place.
   *  Virtual printer: printed at the end of the document. */
  char text3[513];
  /** Texts behind it, as many as `text_count` says.
   *  Virtual printer: printed at the end of the document. */
  char texts[3][41];
  /** Texts behind these, as many as `count_z` says. */
  char texts_z[16][25];
  /** Numbers of the payments "6$d", as texts. */
  char payment6_numbers[32][4];
  /** Quantities of the payments "6$d", as texts. */
  char payment6_quantities[32][16];
  /** Numbers of the payments "10$d", as texts. */
  char payment10_numbers[32][4];
  /** Quantities of the payments "10$d", as texts. */
  char payment10_quantities[32][16];
  char reserved1[6];
  /** Total of the document, in hundredths: what the totals comparison expects
   *  to be booked, before the adjustment. */
  int64_t total;
  /** The adjustment that `comparison_mode` names: a rate in hundredths of a
   *  percent, or an amount in hundredths. */
  int64_t adjustment;
  /** Two amounts behind these, in hundredths. */
  int64_t amounts1[2];
  /** Amounts behind these, in hundredths, as many as `count_z` says. */
  int64_t amounts_z[16];
  /** Amount before those of the payments, in hundredths. */
  int64_t amount2;
  /** Amounts of the payments "6$d", in hundredths. */
  int64_t payment6_amounts[32];
  /** Amounts of the payments "10$d", in hundredths. */
  int64_t payment10_amounts[32];
  /** Sent in place of an empty `text3`.
   *  Virtual printer: printed at the end of the document. */
  char alternative_text3[64];
} DollarY;
QUILON_SIZE(DollarY, 3216);
QUILON_OFFSET(DollarY, text_count, 0);
QUILON_OFFSET(DollarY, kind, 4);
QUILON_OFFSET(DollarY, integers1, 8);
QUILON_OFFSET(DollarY, comparison_mode, 16);
QUILON_OFFSET(DollarY, payment6_count, 20);
QUILON_OFFSET(DollarY, payment10_count, 24);
QUILON_OFFSET(DollarY, integer2, 28);
QUILON_OFFSET(DollarY, count_z, 32);
QUILON_OFFSET(DollarY, integers3, 36);
QUILON_OFFSET(DollarY, integers_z, 44);
QUILON_OFFSET(DollarY, text1, 108);
QUILON_OFFSET(DollarY, text2, 117);
QUILON_OFFSET(DollarY, text3, 150);
QUILON_OFFSET(DollarY, texts, 663);
QUILON_OFFSET(DollarY, texts_z, 786);
QUILON_OFFSET(DollarY, payment6_numbers, 1186);
QUILON_OFFSET(DollarY, payment6_quantities, 1314);
QUILON_OFFSET(DollarY, payment10_numbers, 1826);
QUILON_OFFSET(DollarY, payment10_quantities, 1954);
QUILON_OFFSET(DollarY, total, 2472);
QUILON_OFFSET(DollarY, adjustment, 2480);
QUILON_OFFSET(DollarY, amounts1, 2488);
QUILON_OFFSET(DollarY, amounts_z, 2504);
QUILON_OFFSET(DollarY, amount2, 2632);
QUILON_OFFSET(DollarY, payment6_amounts, 2640);
QUILON_OFFSET(DollarY, payment10_amounts, 2896);
QUILON_OFFSET(DollarY, alternative_text3, 3152);

#endif /* QUILON_RECORDS_SETTLEMENTS_H_ */
