/**
 * Records of the commands that settle and close a document with all its
 * payments, "$x" and "$y". Units and texts are those of documents.h.
 */
#ifndef QUILON_RECORDS_SETTLEMENTS_H_
#define QUILON_RECORDS_SETTLEMENTS_H_

#include "quilon/records/layout.h"

/** Closes a document with "$x": QUIL_DOCUMENT_END_X, QUIL_BUYER_END_X. */
typedef struct DollarX {
  int32_t comparison_mode; /**< Mode of the totals comparison: 0 for the total
                            as it is, 1 less and 2 plus a percentage of it, 3
                            less and 4 plus an amount. */
  int32_t integers[4];     /**< Sent behind the mode. */
  int32_t has_payments6;   /**< 1: `payments6_sum` counts. */
  int32_t has_payments10;  /**< 1: `payments10_sum` counts. */
  int32_t last_integer;    /**< Sent behind them. */
  int64_t total;           /**< The document's total, in hundredths. */
  int64_t adjustment;      /**< The adjustment that the mode names: a
                            rate in hundredths of a percent, or an amount. */
  int64_t amounts[4];      /**< Sent behind them, in hundredths. */
  char texts[5][41];       /**< Sent also when empty. */
  char short_texts[3][17]; /**< Sent also when empty. */
  int64_t payments6_sum;   /**< Sum of the payments "6$d", in hundredths. */
  int64_t payments10_sum;  /**< Sum of the payments "10$d", in hundredths. */
  int64_t last_amount;     /**< Sent last, in hundredths. */
  char leading_text[64];   /**< Sent first. */
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
 *  the lists of z are not sent, and each list of payments shrinks to one: an
 *  empty text, or the sum of its amounts if that is above 0. */
typedef struct DollarY {
  int32_t text_count;      /**< Parameter: how many of `texts`. */
  int32_t kind;            /**< Parameter; 3: the short form. */
  int32_t integers1[2];    /**< Parameters. */
  int32_t comparison_mode; /**< Parameter: mode of the totals comparison, as in
                                DollarX. */
  int32_t payment6_count;  /**< Parameter: how many entries the lists of
                                payments "6$d" have, 0 to 32. */
  int32_t payment10_count; /**< The same of payments "10$d". */
  int32_t integer2;        /**< Parameter. */
  int32_t count_z;         /**< The same of the lists of z, 0 to 16. */
  int32_t integers3[2];    /**< Parameters. */
  int32_t integers_z[16];  /**< Parameters, as many as `count_z` says. */
  char text1[9];           /**< Sent first, also when empty. */
  char text2[33];          /**< Sent second, also when empty. */
  char text3[513];      /**< Sent third; when empty, `alternative_text3` in its
                           place. */
  char texts[3][41];    /**< As many as `text_count` says. */
  char texts_z[16][25]; /**< As many as `count_z` says. */
  char payment6_numbers[32][4];      /**< As many as `payment6_count` says. */
  char payment6_quantities[32][16];  /**< As many as `payment6_count` says. */
  char payment10_numbers[32][4];     /**< As many as `payment10_count` says. */
  char payment10_quantities[32][16]; /**< As many as `payment10_count` says. */
  char reserved1[6];                 /**< Padding. */
  int64_t total;         /**< The document's total, in hundredths. */
  int64_t adjustment;    /**< The adjustment of the totals comparison: a rate
                              in hundredths of a percent, or an amount. */
  int64_t amounts1[2];   /**< In hundredths. */
  int64_t amounts_z[16]; /**< In hundredths, as many as `count_z` says. */
  int64_t amount2;       /**< In hundredths. */
  int64_t payment6_amounts[32];  /**< In hundredths, as many as `payment6_count`
                                    says. */
  int64_t payment10_amounts[32]; /**< In hundredths, as many as
                                    `payment10_count` says. */
  char alternative_text3[64];    /**< Sent in place of an empty `text3`. */
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
