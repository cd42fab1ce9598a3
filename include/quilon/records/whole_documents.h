/**
 * Records of whole documents: the driver sends their commands one after another
 * and proves by the printer's totals that the document was booked.
 *
 * When the count of a list that is to be sent is below 0 or above its capacity,
 * the command fails before anything is sent.
 */
#ifndef QUILON_RECORDS_WHOLE_DOCUMENTS_H_
#define QUILON_RECORDS_WHOLE_DOCUMENTS_H_

#include "quilon/records/buyer_documents.h"
#include "quilon/records/documents.h"
#include "quilon/records/layout.h"
#include "quilon/records/nonfiscal.h"
#include "quilon/records/plain.h"
#include "quilon/records/settlements.h"

/** A whole document: QUIL_WHOLE_DOCUMENT. */
typedef struct WholeDocument {
  /** The closing: 0 by `end`, 1 by `x`, 2 by `y`; any other value fails behind
   *  the payments. */
  int32_t mode;
  /** How many of `lines` are sent, 0 to 200. */
  int32_t line_count;
  /** `capital_y` is sent behind the line of this number, counted from 1; 0: not
   *  at all. */
  int32_t y_position;
  /** 0: the mode of the totals comparison in `x` or `y` is sent as 0; otherwise
   *  as it is. */
  int32_t adjustment_switch;
  /** How many of `slips` are sent, 0 to 100. */
  int32_t slip_count;
  /** How many of `payments6` are sent, 0 to 32. */
  int32_t payment6_count;
  /** How many of `payments10` are sent, 0 to 32. */
  int32_t payment10_count;
  /** Not 0: the entry of `n` with the same position is sent. */
  int32_t n_flags[2];
  /** Not 0: the entry of `capital_l` with the same position is sent. */
  int32_t l_flags[7];
  /** Opens the document. */
  DocumentHeader header;
  /** Sent when its text is not empty. */
  AtE at_e;
  /** The lines. */
  DocumentLine lines[200];
  /** Sent within the lines; see `y_position`. */
  DollarCapitalY capital_y;
  /** Sent behind the lines; see `n_flags`. */
  DollarN n[2];
  /** Sent behind these; see `l_flags`. */
  DollarCapitalL capital_l[7];
  /** Payments "6$d". */
  Payment payments6[32];
  /** Payments "10$d". In mode 2 the number of a payment has at most three
   *  characters (-99 to 999) and its quantity at most 15. */
  Payment payments10[32];
  /** The closing of mode 0. */
  DocumentEnd end;
  /** The closing of mode 1. Where there are payments, their sum takes the place
   *  of the one here, and 1 that of the mark. */
  DollarX x;
  /** The closing of mode 2. The payments take the place of those here. */
  DollarY y;
  /** Printed in mode 2 when the kind of `y` is 3. */
  NonFiscalLine slips[100];
  /** Sent behind the slips with QUIL_DOLLAR_Z_28. */
  SingleNumber slip_end;
  char reserved1[5308];
} WholeDocument;
QUILON_SIZE(WholeDocument, 189224);
QUILON_OFFSET(WholeDocument, slip_count, 16);
QUILON_OFFSET(WholeDocument, header, 64);
QUILON_OFFSET(WholeDocument, at_e, 872);
QUILON_OFFSET(WholeDocument, lines, 992);
QUILON_OFFSET(WholeDocument, capital_y, 87392);
QUILON_OFFSET(WholeDocument, n, 87480);
QUILON_OFFSET(WholeDocument, capital_l, 87640);
QUILON_OFFSET(WholeDocument, payments6, 88312);
QUILON_OFFSET(WholeDocument, payments10, 89592);
QUILON_OFFSET(WholeDocument, end, 90872);
QUILON_OFFSET(WholeDocument, x, 91072);
QUILON_OFFSET(WholeDocument, y, 91496);
QUILON_OFFSET(WholeDocument, slips, 94712);
QUILON_OFFSET(WholeDocument, slip_end, 183912);

/** A whole document with a buyer: QUIL_WHOLE_BUYER_DOCUMENT. */
typedef struct WholeBuyerDocument {
  /** The closing: 0 by `end`, 1 by `at_c` and `plain_end`; any other value
   *  fails behind the lines. */
  int32_t mode;
  /** How many of `lines` are sent, 0 to 200. */
  int32_t line_count;
  /** Opens the document. */
  BuyerHeader header;
  /** The lines. */
  DocumentLine lines[200];
  /** The closing of mode 0; its total is what is expected in mode 1, too. */
  BuyerEnd end;
  /** First command of the closing of mode 1. */
  AtC at_c;
  /** Second command of the closing of mode 1. */
  DocumentEnd plain_end;
  char reserved1[360];
} WholeBuyerDocument;
QUILON_SIZE(WholeBuyerDocument, 88688);
QUILON_OFFSET(WholeBuyerDocument, header, 8);
QUILON_OFFSET(WholeBuyerDocument, lines, 752);
QUILON_OFFSET(WholeBuyerDocument, end, 87152);
QUILON_OFFSET(WholeBuyerDocument, at_c, 87544);
QUILON_OFFSET(WholeBuyerDocument, plain_end, 88128);

#endif /* QUILON_RECORDS_WHOLE_DOCUMENTS_H_ */
