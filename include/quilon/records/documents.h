/**
 * Records of fiscal documents.
 *
 * Units: an amount counts hundredths (1250 is 12,50 zł), a rate hundredths of
 * a percent (2300 is 23 %), a quantity 10^-8 (150000000 is 1.5). Texts are
 * CP1250 (or UTF-8 after QUIL_TEXT_UTF8) and end at their NUL or, when they
 * have none, with their array.
 *
 * A `quantity` with a fraction reaches the printer without the zeros that
 * begin the fraction: 105000000, which is 1.05, is sent as "1.5000000". Give
 * what is no whole number as `quantity_text`, which is sent as it is: "1.05".
 */
#ifndef QUILON_RECORDS_DOCUMENTS_H_
#define QUILON_RECORDS_DOCUMENTS_H_

#include "quilon/records/layout.h"

/** Opens a document: QUIL_DOCUMENT_HEADER, QUIL_DOCUMENT_HEADER_219. */
typedef struct DocumentHeader {
  /** How many of `lines` are sent, 0 to 3. */
  int32_t line_count;
  /** The header lines.
   *  Virtual printer: printed at the head of the document, but "NIP nabywcy"
   *  with the NIP of a receipt's buyer and "Kasa" with the number of the cash
   *  desk stand at its end. */
  char lines[3][200];
  /** Last parameter.
   *  Virtual printer: number of the logo at the head of the document, 0 for
   *  none. */
  int32_t header_integer;
  /** Text behind the header lines, sent also when empty.
   *  Virtual printer: printed at the head of the document. */
  char final_text[200];
} DocumentHeader;
QUILON_SIZE(DocumentHeader, 808);
QUILON_OFFSET(DocumentHeader, lines, 4);
QUILON_OFFSET(DocumentHeader, header_integer, 604);
QUILON_OFFSET(DocumentHeader, final_text, 608);

/** A line of a document: QUIL_DOCUMENT_LINE, QUIL_BUYER_LINE. */
typedef struct DocumentLine {
  /** First parameter. */
  int32_t integer1;
  /** Second parameter.
   *  Virtual printer: what the optional amount is, 1 and 2 a discount and a
   *  surcharge in percent, 3 and 4 in zloty. */
  int32_t integer2;
  /** Third parameter. */
  int32_t integer3;
  /** 1: a line with a closing text ("$l"), and sent as fourth parameter; any
   *  other value: one without ("^l"). */
  int32_t kind;
  /** Name of the goods. */
  char name[61];
  /** Second line of the name; sent when `kind` is 0. */
  char second_name[35];
  /** Quantity in 10^-8; sent when `quantity_text` is empty. A whole number
   *  arrives as it is, a fraction loses the zeros that begin it. */
  int64_t quantity;
  /** Quantity as text, "1.05", at most 10 characters; a longer one is not
   *  sent. */
  char quantity_text[11];
  /** Letter of the VAT rate (PTU), "A" to "G". */
  char rate_group[2];
  /** Unit of measure, "szt"; empty: none. */
  char unit[27];
  /** Price of one unit, in hundredths. */
  int64_t price;
  /** Value of the line, quantity times price, in hundredths. */
  int64_t value;
  /** Amount of the line beside its price and value, in hundredths; 0: neither
   *  it nor its text is sent.
   *  Virtual printer: discount or surcharge of the line. */
  int64_t optional_amount;
  /** Text of the optional amount.
   *  Virtual printer: name of the discount or surcharge. */
  char optional_text[41];
  /** Text at the end of the line; sent when `kind` is 1.
   *  Virtual printer: printed below the line. */
  char closing_text[207];
} DocumentLine;
QUILON_SIZE(DocumentLine, 432);
QUILON_OFFSET(DocumentLine, name, 16);
QUILON_OFFSET(DocumentLine, second_name, 77);
QUILON_OFFSET(DocumentLine, quantity, 112);
QUILON_OFFSET(DocumentLine, quantity_text, 120);
QUILON_OFFSET(DocumentLine, rate_group, 131);
QUILON_OFFSET(DocumentLine, unit, 133);
QUILON_OFFSET(DocumentLine, price, 160);
QUILON_OFFSET(DocumentLine, value, 168);
QUILON_OFFSET(DocumentLine, optional_amount, 176);
QUILON_OFFSET(DocumentLine, optional_text, 184);
QUILON_OFFSET(DocumentLine, closing_text, 225);

/** A payment: QUIL_PAYMENT_6 and its sisters. */
typedef struct Payment {
  /** What is paid, in hundredths. */
  int64_t amount;
  /** Number of the payment. */
  int32_t number;
  char reserved1[4];
  /** Quantity in 10^-8; sent when `quantity_text` is empty. */
  int64_t quantity;
  /** Quantity as text, at most 10 characters; a longer one is not sent. */
  char quantity_text[11];
  char reserved2[5];
} Payment;
QUILON_SIZE(Payment, 40);
QUILON_OFFSET(Payment, number, 8);
QUILON_OFFSET(Payment, quantity, 16);
QUILON_OFFSET(Payment, quantity_text, 24);

/** Closes a document: QUIL_DOCUMENT_END, QUIL_BUYER_PLAIN_END. */
typedef struct DocumentEnd {
  /** First parameter. */
  int32_t first_parameter;
  /** Discount of the document as a rate in hundredths of a percent; 0: see
   *  `adjustment_kind`. When it is not 0, an `adjustment` above 0 takes its
   *  place in the totals comparison. */
  int32_t discount_rate;
  /** How many of `extra_lines` are sent, 0 to 3. */
  int32_t extra_line_count;
  /** What `adjustment` is: 0 nothing, 1 a discount, 2 a surcharge. With another
   *  value the totals comparison does not know what to expect. */
  int32_t adjustment_kind;
  /** Code text, sent also when empty.
   *  Virtual printer: printed at the end of the document. */
  char code_text[33];
  /** The extra lines.
   *  Virtual printer: printed at the end of the document, "NIP nabywcy" with
   *  the NIP of a receipt's buyer and "Kasa" with the number of the cash desk
   *  in their own places. */
  char extra_lines[3][41];
  char reserved1[4];
  /** What the customer paid, in hundredths.
   *  Virtual printer: counts as cash when no payment came before, 0 means
   *  exactly what is due. */
  int64_t paid;
  /** Total of the document, in hundredths: what the totals comparison expects
   *  to be booked, before the adjustment. */
  int64_t total;
  /** Discount or surcharge of the document: a rate in hundredths of a percent.
   *  It is sent as an amount is: 1000, which is 10 %, as "10". */
  int64_t adjustment;
} DocumentEnd;
QUILON_SIZE(DocumentEnd, 200);
QUILON_OFFSET(DocumentEnd, code_text, 16);
QUILON_OFFSET(DocumentEnd, extra_lines, 49);
QUILON_OFFSET(DocumentEnd, paid, 176);
QUILON_OFFSET(DocumentEnd, total, 184);
QUILON_OFFSET(DocumentEnd, adjustment, 192);

/** Ends a document in the short form: QUIL_DOCUMENT_SHORT_END. */
typedef struct DocumentShortEnd {
  /** Sent when not empty.
   *  Virtual printer: printed on the cancelled document. */
  char first_text[9];
  /** Sent when not empty.
   *  Virtual printer: printed on the cancelled document. */
  char second_text[64];
} DocumentShortEnd;
QUILON_SIZE(DocumentShortEnd, 73);
QUILON_OFFSET(DocumentShortEnd, second_text, 9);

/** A line that carries a number in place of a name, always in rate group "P":
 *  QUIL_DOCUMENT_LINE_P. */
typedef struct DocumentLineP {
  /** The only parameter. */
  int32_t integer;
  /** Number in place of a name.
   *  Virtual printer: number of the deposit. */
  int32_t name_number;
  /** Quantity in 10^-8; sent when `quantity_text` is empty. A whole number
   *  arrives as it is, a fraction loses the zeros that begin it. */
  int64_t quantity;
  /** Quantity as text, "1.05", at most 10 characters; a longer one is not
   *  sent. */
  char quantity_text[11];
  char reserved1[5];
  /** Price of one unit, in hundredths. */
  int64_t price;
  /** Value of the line, quantity times price, in hundredths. */
  int64_t value;
} DocumentLineP;
QUILON_SIZE(DocumentLineP, 48);
QUILON_OFFSET(DocumentLineP, quantity, 8);
QUILON_OFFSET(DocumentLineP, quantity_text, 16);
QUILON_OFFSET(DocumentLineP, price, 32);

/** The command "$n": QUIL_DOLLAR_N. */
typedef struct DollarN {
  /** The only parameter. */
  int32_t integer;
  /** Sent also when empty.
   *  Virtual printer: printed. */
  char text[64];
  char reserved1[4];
  /** An amount, in hundredths.
   *  Virtual printer: printed, pays for nothing. */
  int64_t amount;
} DollarN;
QUILON_SIZE(DollarN, 80);
QUILON_OFFSET(DollarN, text, 4);
QUILON_OFFSET(DollarN, amount, 72);

/** The command "$L": QUIL_DOLLAR_CAPITAL_L. */
typedef struct DollarCapitalL {
  /** The three parameters. */
  int32_t integers[3];
  int32_t reserved1;
  /** Two amounts, in hundredths.
   *  Virtual printer: printed, change no total. */
  int64_t amounts[2];
  /** Sent also when empty.
   *  Virtual printer: printed. */
  char text[64];
} DollarCapitalL;
QUILON_SIZE(DollarCapitalL, 96);
QUILON_OFFSET(DollarCapitalL, amounts, 16);
QUILON_OFFSET(DollarCapitalL, text, 32);

/** The command "$Y": QUIL_DOLLAR_CAPITAL_Y. */
typedef struct DollarCapitalY {
  /** The two parameters. */
  int32_t integers[2];
  /** Two amounts, in hundredths.
   *  Virtual printer: the first is the subtotal, both are printed. */
  int64_t amounts[2];
  /** Sent also when empty.
   *  Virtual printer: printed. */
  char text[64];
} DollarCapitalY;
QUILON_SIZE(DollarCapitalY, 88);
QUILON_OFFSET(DollarCapitalY, amounts, 8);
QUILON_OFFSET(DollarCapitalY, text, 24);

/** The command "$b": QUIL_DOLLAR_B. */
typedef struct DollarB {
  /** The two parameters. */
  int32_t integers[2];
  /** An amount, in hundredths.
   *  Virtual printer: printed, pays for nothing. */
  int64_t amount;
  /** Sent also when empty.
   *  Virtual printer: printed. */
  char text[64];
} DollarB;
QUILON_SIZE(DollarB, 80);
QUILON_OFFSET(DollarB, amount, 8);
QUILON_OFFSET(DollarB, text, 16);

/** The command "@z": QUIL_AT_Z. */
typedef struct AtZ {
  /** The only parameter. */
  int32_t integer;
  /** Sent also when empty.
   *  Virtual printer: printed. */
  char text[64];
  /** Sent without conversion, also when empty.
   *  Virtual printer: printed. */
  char raw_text[64];
  char reserved1[4];
  /** Two amounts, in hundredths.
   *  Virtual printer: printed, change no total. */
  int64_t amounts[2];
} AtZ;
QUILON_SIZE(AtZ, 152);
QUILON_OFFSET(AtZ, text, 4);
QUILON_OFFSET(AtZ, raw_text, 68);
QUILON_OFFSET(AtZ, amounts, 136);

/** The command "@e": QUIL_AT_E. */
typedef struct AtE {
  /** Sent also when empty.
   *  Virtual printer: printed. */
  char text[104];
  /** 0: no parameters are sent; 3: this, `integer1` and `integer2`; any other
   *  value: this alone. */
  int32_t mode;
  /** In mode 3 the second parameter; when not 0, `integer3` is sent behind the
   *  text. */
  int32_t integer1;
  /** In mode 3 the third parameter; when not 0, sent again behind the text. */
  int32_t integer2;
  /** In mode 3 sent behind the text, if `integer1` is not 0. */
  int32_t integer3;
} AtE;
QUILON_SIZE(AtE, 120);
QUILON_OFFSET(AtE, mode, 104);

#endif /* QUILON_RECORDS_DOCUMENTS_H_ */
