/**
 * Records of non-fiscal printouts: slips that are no receipts.
 *
 * A printout is begun, filled line record by line record, and ended. What the
 * parameters mean is up to the printer; the driver passes them unchanged. Texts
 * end at their NUL or, when they have none, with their array; they are CP1250
 * (or UTF-8 after QUIL_TEXT_UTF8) except where the field says otherwise.
 */
#ifndef QUILON_RECORDS_NONFISCAL_H_
#define QUILON_RECORDS_NONFISCAL_H_

#include "quilon/records/layout.h"

/** Begins a non-fiscal printout: QUIL_NONFISCAL_BEGIN. */
typedef struct NonFiscalBegin {
  int32_t first_parameter;  /**< First parameter; the self-test's is 200. */
  int32_t second_parameter; /**< Second parameter. */
  int32_t reserved1;        /**< Not read. */
  int32_t third_parameter;  /**< Third parameter. */
  char reserved2[760];      /**< Not read. */
  char header_text[100];    /**< Header in the printer's own code page
                                 (Mazovia): sent as it is, when `header_flag`
                                 is 1. */
  int32_t header_flag;      /**< Fourth parameter; 1: with header text. */
  int32_t fifth_parameter;  /**< Fifth parameter; 0: none. */
} NonFiscalBegin;
QUILON_SIZE(NonFiscalBegin, 884);
QUILON_OFFSET(NonFiscalBegin, first_parameter, 0);
QUILON_OFFSET(NonFiscalBegin, second_parameter, 4);
QUILON_OFFSET(NonFiscalBegin, third_parameter, 12);
QUILON_OFFSET(NonFiscalBegin, header_text, 776);
QUILON_OFFSET(NonFiscalBegin, header_flag, 876);
QUILON_OFFSET(NonFiscalBegin, fifth_parameter, 880);

/** Prints up to eight lines: QUIL_NONFISCAL_LINE. */
typedef struct NonFiscalLine {
  int32_t parameter1;  /**< First parameter; the self-test's is 200. */
  int32_t reserved1;   /**< Not read. */
  int32_t parameter2;  /**< Second parameter. */
  int32_t reserved2;   /**< Not read. */
  int32_t parameter3;  /**< Third parameter. */
  int32_t parameter4;  /**< Fourth parameter. */
  int32_t parameter5;  /**< Fifth parameter. */
  int32_t parameter6;  /**< Sixth parameter. */
  int32_t parameter7;  /**< Seventh parameter. */
  char lines[8][65];   /**< The lines; an empty one is not printed, also between
                            others. */
  char reserved3[336]; /**< Not read. */
} NonFiscalLine;
QUILON_SIZE(NonFiscalLine, 892);
QUILON_OFFSET(NonFiscalLine, parameter1, 0);
QUILON_OFFSET(NonFiscalLine, parameter2, 8);
QUILON_OFFSET(NonFiscalLine, parameter3, 16);
QUILON_OFFSET(NonFiscalLine, parameter4, 20);
QUILON_OFFSET(NonFiscalLine, parameter5, 24);
QUILON_OFFSET(NonFiscalLine, parameter6, 28);
QUILON_OFFSET(NonFiscalLine, parameter7, 32);
QUILON_OFFSET(NonFiscalLine, lines, 36);

/** Ends a non-fiscal printout: QUIL_NONFISCAL_END. */
typedef struct NonFiscalEnd {
  int32_t second_parameter;   /**< Second parameter; the self-test's is 200. */
  char reserved1[552];        /**< Not read. */
  int32_t third_parameter;    /**< Third parameter. */
  int32_t closing_line_count; /**< Fourth parameter: how many closing lines are
                                   sent, 0 to 3. */
  char closing_lines[3][65];  /**< The closing lines, sent also when empty. */
  char closing_text[65];      /**< Sent before the lines, when not empty. */
  char reserved2[60];         /**< Not read. */
  int32_t fifth_parameter;    /**< Fifth parameter; 0: neither it nor
                                   `trailing_parameter` is sent. */
  int32_t trailing_parameter; /**< Sent behind the lines. */
} NonFiscalEnd;
QUILON_SIZE(NonFiscalEnd, 892);
QUILON_OFFSET(NonFiscalEnd, second_parameter, 0);
QUILON_OFFSET(NonFiscalEnd, third_parameter, 556);
QUILON_OFFSET(NonFiscalEnd, closing_line_count, 560);
QUILON_OFFSET(NonFiscalEnd, closing_lines, 564);
QUILON_OFFSET(NonFiscalEnd, closing_text, 759);
QUILON_OFFSET(NonFiscalEnd, fifth_parameter, 884);
QUILON_OFFSET(NonFiscalEnd, trailing_parameter, 888);

#endif /* QUILON_RECORDS_NONFISCAL_H_ */
