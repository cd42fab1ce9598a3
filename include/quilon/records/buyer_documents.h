/**
 * Records of the second family of fiscal documents, whose header carries the
 * buyer's data. Units and texts are those of documents.h; the lines are, too.
 */
#ifndef QUILON_RECORDS_BUYER_DOCUMENTS_H_
#define QUILON_RECORDS_BUYER_DOCUMENTS_H_

#include "quilon/records/layout.h"

/** Opens a document: QUIL_BUYER_HEADER, QUIL_BUYER_HEADER_308. */
typedef struct BuyerHeader {
  /** How many of `lines` are sent, 0 to 8. */
  int32_t line_count;
  /** Fourth parameter. */
  int32_t integer2;
  /** Seventh parameter. */
  int32_t integer3;
  /** Number of the document; 0: `number_text` is sent in its place. */
  int32_t document_number;
  /** Fifth parameter. */
  int32_t integer5;
  /** Tenth parameter. */
  int32_t integer6;
  /** Eleventh parameter.
   *  Virtual printer: number of the logo at the head of the document, 0 for
   *  none. */
  int32_t integer7;
  /** The header lines.
   *  Virtual printer: printed at the head of the document. */
  char lines[8][61];
  /** First text of the buyer, sent also when empty, as the four below.
   *  Virtual printer: NIP of the buyer. */
  char buyer_text1[15];
  /** Second text of the buyer.
   *  Virtual printer: printed as the buyer's. */
  char buyer_text2[18];
  /** Third text of the buyer.
   *  Virtual printer: printed as the buyer's. */
  char buyer_text3[21];
  /** Fourth text of the buyer.
   *  Virtual printer: printed as the buyer's. */
  char buyer_text4[28];
  /** Fifth text of the buyer.
   *  Virtual printer: printed as the buyer's. */
  char buyer_text5[28];
  /** First text behind the buyer's, sent also when empty.
   *  Virtual printer: printed at the head of the document. */
  char closing_text1[31];
  /** Last text, sent also when empty.
   *  Virtual printer: printed at the head of the document. */
  char closing_text2[28];
  /** Number of the document as text; sent when `document_number` is 0. */
  char number_text[59];
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
  /** First parameter. */
  int32_t integer1;
  /** Second parameter. */
  int32_t integer2;
  /** How many of `extra_lines` are sent, 0 to 3. */
  int32_t extra_line_count;
  /** Seventh parameter. */
  int32_t integer4;
  /** Eighth parameter. */
  int32_t integer5;
  /** What `adjustment` does to the total in the totals comparison, as in
   *  DollarX; also sent as the fifth parameter. */
  int32_t comparison_mode;
  /** Ninth parameter. */
  int32_t integer7;
  /** Code text, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char code_text[33];
  /** The extra lines.
   *  Virtual printer: printed at the end of the document. */
  char extra_lines[3][41];
  /** Three texts behind the extra lines, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char closing_texts[3][64];
  /** Total of the document, in hundredths: what the totals comparison expects
   *  to be booked, before the adjustment. */
  int64_t total;
  /** The adjustment that `comparison_mode` names: a rate in hundredths of a
   *  percent, or an amount in hundredths. Only its low 32 bits are sent, and
   *  count in the comparison except in mode 2. */
  int64_t adjustment;
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
  /** Parameters one to four. */
  int32_t integers1[4];
  /** Parameters five to seven, sent also when empty. */
  char texts[3][12];
  /** Parameters eight to twelve. */
  int32_t integers2[5];
  /** Seven texts, each sent when not empty.
   *  Virtual printer: printed. */
  char optional_texts[7][64];
  /** Last text, sent also when empty.
   *  Virtual printer: printed. */
  char closing_text[64];
} AtC;
QUILON_SIZE(AtC, 584);
QUILON_OFFSET(AtC, texts, 16);
QUILON_OFFSET(AtC, integers2, 52);
QUILON_OFFSET(AtC, optional_texts, 72);
QUILON_OFFSET(AtC, closing_text, 520);

#endif /* QUILON_RECORDS_BUYER_DOCUMENTS_H_ */
