/**
 * Records of fiscal documents.
 *
 * Units: an amount counts hundredths (1250 is 12,50 zł), a rate hundredths of
 * a percent (2300 is 23 %), a quantity 10^-8 (150000000 is 1.5). Texts are
 * CP1250 (or UTF-8 after QUIL_TEXT_UTF8) and end at their NUL or, when they
 * have none, with their array.
 */
#ifndef QUILON_RECORDS_DOCUMENTS_H_
#define QUILON_RECORDS_DOCUMENTS_H_

#include "quilon/records/layout.h"

/** Opens a document: QUIL_DOCUMENT_HEADER. */
typedef struct DocumentHeader {
  int32_t line_count;     /**< Header lines, 0 to 3. */
  char lines[3][200];     /**< The header lines. */
  int32_t header_integer; /**< Sent after the line count. */
  char final_text[200];   /**< Sent last, also when empty. */
} DocumentHeader;
QUILON_SIZE(DocumentHeader, 808);
QUILON_OFFSET(DocumentHeader, lines, 4);
QUILON_OFFSET(DocumentHeader, header_integer, 604);
QUILON_OFFSET(DocumentHeader, final_text, 608);

/** A line of a document: QUIL_DOCUMENT_LINE. */
typedef struct DocumentLine {
  int32_t integer1;        /**< First parameter. */
  int32_t integer2;        /**< Second parameter. */
  int32_t integer3;        /**< Third parameter. */
  int32_t kind;            /**< 1: a line with a closing text, sent as fourth
                                parameter; any other value: one without. */
  char name[61];           /**< Name of the goods. */
  char second_name[35];    /**< Second line of the name; sent when `kind` is
                                0. */
  int64_t quantity;        /**< Quantity in 10^-8; sent when `quantity_text` is
                                empty. */
  char quantity_text[11];  /**< Quantity as text, at most 10 characters; a
                                longer one is not sent. */
  char rate_group[2];      /**< Letter of the VAT rate, "A" to "G". */
  char unit[27];           /**< Unit of measure, "szt"; empty: none. */
  int64_t price;           /**< Price of one unit, in hundredths. */
  int64_t value;           /**< Value of the line, in hundredths. */
  int64_t optional_amount; /**< In hundredths; 0: not sent. */
  char optional_text[41];  /**< Text of the optional amount. */
  char closing_text[207];  /**< Closing text; sent when `kind` is 1. */
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
  int64_t amount;         /**< Amount, in hundredths. */
  int32_t number;         /**< Number of the payment. */
  char reserved1[4];      /**< Padding. */
  int64_t quantity;       /**< Quantity in 10^-8; sent when `quantity_text` is
                               empty. */
  char quantity_text[11]; /**< Quantity as text, at most 10 characters; a longer
                               one is not sent. */
  char reserved2[5];      /**< Padding. */
} Payment;
QUILON_SIZE(Payment, 40);
QUILON_OFFSET(Payment, number, 8);
QUILON_OFFSET(Payment, quantity, 16);
QUILON_OFFSET(Payment, quantity_text, 24);

/** Closes a document: QUIL_DOCUMENT_END. */
typedef struct DocumentEnd {
  int32_t first_parameter; /**< Sent first. */
  int32_t discount_rate;   /**< Rate in hundredths of a percent, sent second. */
  int32_t extra_line_count; /**< Extra lines, 0 to 3. */
  int32_t adjustment_kind;  /**< Sent in fifth place. */
  char code_text[33];       /**< Code text, sent also when empty. */
  char extra_lines[3][41];  /**< The extra lines. */
  char reserved1[4];        /**< Padding. */
  int64_t paid;             /**< Amount paid in, in hundredths. */
  int64_t total;            /**< Total of the document, in hundredths. */
  int64_t adjustment;       /**< Rate of the adjustment, in hundredths of a
                                 percent. */
} DocumentEnd;
QUILON_SIZE(DocumentEnd, 200);
QUILON_OFFSET(DocumentEnd, code_text, 16);
QUILON_OFFSET(DocumentEnd, extra_lines, 49);
QUILON_OFFSET(DocumentEnd, paid, 176);
QUILON_OFFSET(DocumentEnd, total, 184);
QUILON_OFFSET(DocumentEnd, adjustment, 192);

/** Ends a document in the short form: QUIL_DOCUMENT_SHORT_END. */
typedef struct DocumentShortEnd {
  char first_text[9];   /**< Sent when not empty. */
  char second_text[64]; /**< Sent when not empty. */
} DocumentShortEnd;
QUILON_SIZE(DocumentShortEnd, 73);
QUILON_OFFSET(DocumentShortEnd, second_text, 9);

/** A line that carries a number in place of a name, always in rate group "P":
 *  QUIL_DOCUMENT_LINE_P. */
typedef struct DocumentLineP {
  int32_t integer;        /**< Sent as the only parameter. */
  int32_t name_number;    /**< Number in place of a name. */
  int64_t quantity;       /**< Quantity in 10^-8; sent when `quantity_text` is
                               empty. */
  char quantity_text[11]; /**< Quantity as text, at most 10 characters; a longer
                               one is not sent. */
  char reserved1[5];      /**< Padding. */
  int64_t price;          /**< Price of one unit, in hundredths. */
  int64_t value;          /**< Value of the line, in hundredths. */
} DocumentLineP;
QUILON_SIZE(DocumentLineP, 48);
QUILON_OFFSET(DocumentLineP, quantity, 8);
QUILON_OFFSET(DocumentLineP, quantity_text, 16);
QUILON_OFFSET(DocumentLineP, price, 32);

/** The command "$n": QUIL_DOLLAR_N. */
typedef struct DollarN {
  int32_t integer;   /**< Parameter. */
  char text[64];     /**< Sent also when empty. */
  char reserved1[4]; /**< Padding. */
  int64_t amount;    /**< In hundredths. */
} DollarN;
QUILON_SIZE(DollarN, 80);
QUILON_OFFSET(DollarN, text, 4);
QUILON_OFFSET(DollarN, amount, 72);

/** The command "$L": QUIL_DOLLAR_CAPITAL_L. */
typedef struct DollarCapitalL {
  int32_t integers[3]; /**< Parameters. */
  int32_t reserved1;   /**< Padding. */
  int64_t amounts[2];  /**< In hundredths. */
  char text[64];       /**< Sent also when empty. */
} DollarCapitalL;
QUILON_SIZE(DollarCapitalL, 96);
QUILON_OFFSET(DollarCapitalL, amounts, 16);
QUILON_OFFSET(DollarCapitalL, text, 32);

/** The command "$Y": QUIL_DOLLAR_CAPITAL_Y. */
typedef struct DollarCapitalY {
  int32_t integers[2]; /**< Parameters. */
  int64_t amounts[2];  /**< In hundredths. */
  char text[64];       /**< Sent also when empty. */
} DollarCapitalY;
QUILON_SIZE(DollarCapitalY, 88);
QUILON_OFFSET(DollarCapitalY, amounts, 8);
QUILON_OFFSET(DollarCapitalY, text, 24);

/** The command "$b": QUIL_DOLLAR_B. */
typedef struct DollarB {
  int32_t integers[2]; /**< Parameters. */
  int64_t amount;      /**< In hundredths. */
  char text[64];       /**< Sent also when empty. */
} DollarB;
QUILON_SIZE(DollarB, 80);
QUILON_OFFSET(DollarB, amount, 8);
QUILON_OFFSET(DollarB, text, 16);

/** The command "@z": QUIL_AT_Z. */
typedef struct AtZ {
  int32_t integer;    /**< Parameter. */
  char text[64];      /**< Sent also when empty. */
  char raw_text[64];  /**< Sent as it is, also when empty. */
  char reserved1[4];  /**< Padding. */
  int64_t amounts[2]; /**< In hundredths. */
} AtZ;
QUILON_SIZE(AtZ, 152);
QUILON_OFFSET(AtZ, text, 4);
QUILON_OFFSET(AtZ, raw_text, 68);
QUILON_OFFSET(AtZ, amounts, 136);

/** The command "@e": QUIL_AT_E. */
typedef struct AtE {
  char text[104];   /**< Sent also when empty. */
  int32_t mode;     /**< 0: no parameters; 3: this and two more; else this. */
  int32_t integer1; /**< In mode 3 the second parameter; not 0: `integer3` is
                         sent behind the text. */
  int32_t integer2; /**< In mode 3 the third parameter and, when not 0, sent
                         again behind the text. */
  int32_t integer3; /**< In mode 3 sent behind the text, if `integer1` is not
                         0. */
} AtE;
QUILON_SIZE(AtE, 120);
QUILON_OFFSET(AtE, mode, 104);

#endif /* QUILON_RECORDS_DOCUMENTS_H_ */
