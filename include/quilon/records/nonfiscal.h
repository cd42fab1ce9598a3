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
  /** Second number of the frame; the self-test uses 200.
   *  Virtual printer: kind of printout. */
  int32_t first_parameter;
  /** Third number of the frame. */
  int32_t second_parameter;
  int32_t reserved1;
  /** Fourth number of the frame. */
  int32_t third_parameter;
  char reserved2[760];
  /** Header in the printer's own code page (Mazovia): sent without conversion,
   *  when `header_flag` is 1. */
  char header_text[100];
  /** 1: `header_text` is printed; also the fifth number of the frame. */
  int32_t header_flag;
  /** Sixth number of the frame; 0: not sent. */
  int32_t fifth_parameter;
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
  /** First number of the frame; the self-test uses 200. */
  int32_t parameter1;
  int32_t reserved1;
  /** Second number of the frame. */
  int32_t parameter2;
  int32_t reserved2;
  /** Third number of the frame. */
  int32_t parameter3;
  /** Fourth number of the frame. */
  int32_t parameter4;
  /** Fifth number of the frame. */
  int32_t parameter5;
  /** Sixth number of the frame. */
  int32_t parameter6;
  /** Seventh number of the frame. */
  int32_t parameter7;
  /** The lines; an empty one is not printed, also between others. */
  char lines[8][65];
  char reserved3[336];
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
  /** Second number of the frame; the self-test uses 200.
   *  Virtual printer: kind of printout. */
  int32_t second_parameter;
  char reserved1[552];
  /** Third number of the frame. */
  int32_t third_parameter;
  /** How many of `closing_lines` are sent, 0 to 3; also the fourth number of
   *  the frame. */
  int32_t closing_line_count;
  /** The closing lines, sent also when empty. */
  char closing_lines[3][65];
  /** Sent before the lines, when not empty.
   *  Virtual printer: printed last, below the closing lines. */
  char closing_text[65];
  char reserved2[60];
  /** Fifth number of the frame; 0: neither it nor `trailing_parameter` is
   *  sent. */
  int32_t fifth_parameter;
  /** Number behind the lines. */
  int32_t trailing_parameter;
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
