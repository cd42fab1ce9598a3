/**
 * Records of whole documents: the driver sends their commands one after another
 * and proves by the printer's totals that the document was booked.
 *
 * A count below 0 or above the capacity of its list fails before anything is
 * sent.
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
  int32_t mode;                /**< The closing: 0 by `end`, 1 by `x`, 2 by `y`;
                                    any other fails behind the payments. */
  int32_t line_count;          /**< Lines, 0 to 200. */
  int32_t y_position;          /**< `capital_y` is sent behind the line of this
                                    number, counted from 1; 0: not at all. */
  int32_t adjustment_switch;   /**< 0: the closing record's mode of the totals
                                    comparison is sent as 0; otherwise as it
                                    is. */
  int32_t slip_count;          /**< Slips, 0 to 100; see `slips`. */
  int32_t payment6_count;      /**< Entries of `payments6`, 0 to 32. */
  int32_t payment10_count;     /**< Entries of `payments10`, 0 to 32. */
  int32_t n_flags[2];          /**< Not 0: the entry of `n` is sent. */
  int32_t l_flags[7];          /**< Not 0: the entry of `capital_l` is sent. */
  DocumentHeader header;       /**< Opens the document. */
  AtE at_e;                    /**< Sent when its text is not empty. */
  DocumentLine lines[200];     /**< The lines. */
  DollarCapitalY capital_y;    /**< See `y_position`. */
  DollarN n[2];                /**< See `n_flags`. */
  DollarCapitalL capital_l[7]; /**< See `l_flags`. */
  Payment payments6[32];       /**< Payments "6$d". */
  Payment payments10[32];      /**< Payments "10$d". In mode 2 the number of a
                                    payment has at most three characters (-99 to
                                    999) and its quantity at most 15. */
  DocumentEnd end;             /**< The closing of mode 0. */
  DollarX x; /**< The closing of mode 1. Where there are payments,
                  their sums take the place of its own, and 1
                  that of its marks. */
  DollarY y; /**< The closing of mode 2. The payments take the
                  place of its own. */
  NonFiscalLine slips[100]; /**< Printed in mode 2 when the kind of `y` is
                                 3. */
  SingleNumber slip_end;    /**< Sent behind the slips with "$z". */
  char reserved1[5308];     /**< Not read. */
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
  int32_t mode;            /**< The closing: 0 by `end`, 1 by `at_c` and
                                `plain_end`; any other fails behind the
                                lines. */
  int32_t line_count;      /**< Lines, 0 to 200. */
  BuyerHeader header;      /**< Opens the document. */
  DocumentLine lines[200]; /**< The lines. */
  BuyerEnd end;            /**< The closing of mode 0; its total is the
                                document's in mode 1, too. */
  AtC at_c;                /**< First command of the closing of mode 1. */
  DocumentEnd plain_end;   /**< Second command of the closing of mode 1. */
  char reserved1[360];     /**< Not read. */
} WholeBuyerDocument;
QUILON_SIZE(WholeBuyerDocument, 88688);
QUILON_OFFSET(WholeBuyerDocument, header, 8);
QUILON_OFFSET(WholeBuyerDocument, lines, 752);
QUILON_OFFSET(WholeBuyerDocument, end, 87152);
QUILON_OFFSET(WholeBuyerDocument, at_c, 87544);
QUILON_OFFSET(WholeBuyerDocument, plain_end, 88128);

#endif /* QUILON_RECORDS_WHOLE_DOCUMENTS_H_ */
