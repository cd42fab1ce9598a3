/**
 * Records of the second family of fiscal documents, whose header carries the
 * buyer's data. Units and texts are those of documents.h; the lines are, too.
 */
#ifndef QUILON_RECORDS_BUYER_DOCUMENTS_H_
#define QUILON_RECORDS_BUYER_DOCUMENTS_H_

#include "quilon/records/layout.h"

/** Opens a document: QUIL_BUYER_HEADER, QUIL_BUYER_HEADER_308. */
typedef struct BuyerHeader {
  int32_t line_count;      /**< Parameter: header lines, 0 to 8. */
  int32_t integer2;        /**< Parameter. */
  int32_t integer3;        /**< Parameter. */
  int32_t document_number; /**< Number of the document; 0: `number_text` is sent
                                in its place. */
  int32_t integer5;        /**< Parameter. */
  int32_t integer6;        /**< Parameter. */
  int32_t integer7;        /**< Parameter. */
  char lines[8][61];       /**< The header lines. */
  char buyer_text1[15];    /**< Sent also when empty, as the four below. */
  char buyer_text2[18];    /**< Second text of the buyer. */
  char buyer_text3[21];    /**< Third text of the buyer. */
  char buyer_text4[28];    /**< Fourth text of the buyer. */
  char buyer_text5[28];    /**< Fifth text of the buyer. */
  char closing_text1[31];  /**< Sent also when empty. */
  char closing_text2[28];  /**< Sent also when empty. */
  char number_text[59];    /**< Text in place of the document number. */
} BuyerHeader;
QUILON_SIZE(BuyerHeader, 744);
QUILON_OFFSET(BuyerHeader, document_number, 12);
QUILON_OFFSET(BuyerHeader, lines, 28);
QUILON_OFFSET(BuyerHeader, buyer_text1, 516);
QUILON_OFFSET(BuyerHeader, buyer_text2, 531);
QUILON_OFFSET(BuyerHeader, buyer_text3, 549);
QUILON_OFFSET(BuyerHeader, buyer_text4, 570);
QUILON_OFFSET(BuyerHeader, buyer_text5, 598);
QUILON_OFFSET(BuyerHeader, closing_text1, 626);
QUILON_OFFSET(BuyerHeader, closing_text2, 657);
QUILON_OFFSET(BuyerHeader, number_text, 685);

/** Closes a document: QUIL_BUYER_END. */
typedef struct BuyerEnd {
  int32_t integer1;          /**< Parameter. */
  int32_t integer2;          /**< Parameter. */
  int32_t extra_line_count;  /**< Parameter: extra lines, 0 to 3. */
  int32_t integer4;          /**< Parameter. */
  int32_t integer5;          /**< Parameter. */
  int32_t comparison_mode;   /**< Parameter: mode of the totals comparison, as
                                  in DollarX. */
  int32_t integer7;          /**< Parameter. */
  char code_text[33];        /**< Code text, sent also when empty. */
  char extra_lines[3][41];   /**< The extra lines. */
  char closing_texts[3][64]; /**< Sent also when empty. */
  int64_t total;             /**< The document's total, in hundredths. */
  int64_t adjustment;        /**< Adjustment of the totals comparison; the low
                                  32 bits are sent as a rate in hundredths of a
                                  percent. */
} BuyerEnd;
QUILON_SIZE(BuyerEnd, 392);
QUILON_OFFSET(BuyerEnd, comparison_mode, 20);
QUILON_OFFSET(BuyerEnd, code_text, 28);
QUILON_OFFSET(BuyerEnd, extra_lines, 61);
QUILON_OFFSET(BuyerEnd, closing_texts, 184);
QUILON_OFFSET(BuyerEnd, total, 376);
QUILON_OFFSET(BuyerEnd, adjustment, 384);

/** The command "@c": QUIL_AT_C. */
typedef struct AtC {
  int32_t integers1[4];       /**< Parameters. */
  char texts[3][12];          /**< Parameters behind them, also when empty. */
  int32_t integers2[5];       /**< Parameters behind these. */
  char optional_texts[7][64]; /**< Each sent when not empty. */
  char closing_text[64];      /**< Sent also when empty. */
} AtC;
QUILON_SIZE(AtC, 584);
QUILON_OFFSET(AtC, texts, 16);
QUILON_OFFSET(AtC, integers2, 52);
QUILON_OFFSET(AtC, optional_texts, 72);
QUILON_OFFSET(AtC, closing_text, 520);

#endif /* QUILON_RECORDS_BUYER_DOCUMENTS_H_ */
