/**
 * Records of the commands of codes 100 to 113, 500 to 503 and 700. They bear
 * the names of the commands' mnemonics: "#" is Hash, "$" is Dollar. Those of
 * the two longest, "#f" and "#m", stand in long_frames.h.
 *
 * Units: an amount counts hundredths (1250 is 12,50 zł). Texts are CP1250 (or
 * UTF-8 after QUIL_TEXT_UTF8) and end at their NUL or, when they have none,
 * with their array. The last text of a record has 64 bytes.
 */
#ifndef QUILON_RECORDS_SECOND_SERIES_H_
#define QUILON_RECORDS_SECOND_SERIES_H_

#include "quilon/records/layout.h"

/** "#r": QUIL_HASH_R. */
typedef struct HashR {
  char parameter1[3]; /**< When empty, "0" is sent in place of the three
                           parameters; otherwise "1" stands before them. */
  char parameter2[3]; /**< Second parameter. */
  char parameter3[3]; /**< Third parameter. */
  char text1[9];      /**< Sent when not empty. */
  char text2[64];     /**< Sent when not empty. */
} HashR;
QUILON_SIZE(HashR, 82);
QUILON_OFFSET(HashR, parameter2, 3);
QUILON_OFFSET(HashR, parameter3, 6);
QUILON_OFFSET(HashR, text1, 9);
QUILON_OFFSET(HashR, text2, 18);

/** "#k": QUIL_HASH_K. */
typedef struct HashK {
  int32_t parameter; /**< The parameter. */
  char text1[9];     /**< Sent also when empty. */
  char text2[33];    /**< Sent also when empty. */
  char text3[64];    /**< Sent when not empty. */
  char reserved1[2]; /**< Padding. */
} HashK;
QUILON_SIZE(HashK, 112);
QUILON_OFFSET(HashK, text1, 4);
QUILON_OFFSET(HashK, text2, 13);
QUILON_OFFSET(HashK, text3, 46);

/** "#o": QUIL_HASH_O_TEXTS sends the six parameters and `number`,
 *  QUIL_HASH_O_FIELDS `number` and the two fields. */
typedef struct HashO {
  char parameters[6][3]; /**< The six parameters before `number`. */
  char reserved1[2];     /**< Padding. */
  int32_t number;        /**< The last parameter. */
  char text1[33];        /**< Sent when not empty. */
  char text2[9];         /**< Sent when not empty. */
  char field1[11];       /**< First field, sent also when empty. */
  char field2[64];       /**< Second field, sent also when empty. */
  char reserved2[3];     /**< Padding. */
} HashO;
QUILON_SIZE(HashO, 144);
QUILON_OFFSET(HashO, parameters, 0);
QUILON_OFFSET(HashO, number, 20);
QUILON_OFFSET(HashO, text1, 24);
QUILON_OFFSET(HashO, text2, 57);
QUILON_OFFSET(HashO, field1, 66);
QUILON_OFFSET(HashO, field2, 77);

/** "$o" with texts: QUIL_DOLLAR_O_TEXTS. */
typedef struct DollarOTexts {
  int32_t parameter;  /**< The parameter. */
  char reserved1[20]; /**< Not read. */
  char field[3];      /**< Sent last. */
  char text1[11];     /**< Sent first. */
  char text2[64];     /**< Sent second. */
  char reserved2[2];  /**< Padding. */
} DollarOTexts;
QUILON_SIZE(DollarOTexts, 104);
QUILON_OFFSET(DollarOTexts, field, 24);
QUILON_OFFSET(DollarOTexts, text1, 27);
QUILON_OFFSET(DollarOTexts, text2, 38);

/** "$o" with numbers: QUIL_DOLLAR_O_NUMBERS. */
typedef struct DollarONumbers {
  int32_t parameter; /**< The parameter. */
  int32_t reserved1; /**< Not read. */
  int64_t number1;   /**< Sent first, as plain decimal. */
  int64_t number2;   /**< Sent second, as plain decimal. */
  char field[64];    /**< Sent last. */
} DollarONumbers;
QUILON_SIZE(DollarONumbers, 88);
QUILON_OFFSET(DollarONumbers, number1, 8);
QUILON_OFFSET(DollarONumbers, number2, 16);
QUILON_OFFSET(DollarONumbers, field, 24);

/** "#t": QUIL_HASH_T. */
typedef struct HashT {
  char text1[9];  /**< Sent when not empty. */
  char text2[64]; /**< Sent when not empty. */
} HashT;
QUILON_SIZE(HashT, 73);
QUILON_OFFSET(HashT, text2, 9);

/** "@PR": QUIL_AT_PR. */
typedef struct PrCommand {
  int32_t number1; /**< Sent first. */
  int32_t number2; /**< Sent second. */
  char text1[20];  /**< Sent third, also when empty. */
  char text2[64];  /**< Sent last, also when empty. */
} PrCommand;
QUILON_SIZE(PrCommand, 92);
QUILON_OFFSET(PrCommand, number2, 4);
QUILON_OFFSET(PrCommand, text1, 8);
QUILON_OFFSET(PrCommand, text2, 28);

/** "@PMR": QUIL_AT_PMR. */
typedef struct PmrCommand {
  int32_t reserved1; /**< Not read. */
  int32_t number1;   /**< Sent first. */
  int32_t number2;   /**< Sent second. */
  char text1[20];    /**< Sent third, also when empty. */
  char text2[64];    /**< Sent last, also when empty. */
} PmrCommand;
QUILON_SIZE(PmrCommand, 96);
QUILON_OFFSET(PmrCommand, number1, 4);
QUILON_OFFSET(PmrCommand, number2, 8);
QUILON_OFFSET(PmrCommand, text1, 12);
QUILON_OFFSET(PmrCommand, text2, 32);

/** "#i" and "#d": QUIL_HASH_I and QUIL_HASH_D. */
typedef struct HashAmount {
  int32_t parameter; /**< The parameter. */
  int32_t reserved1; /**< Not read. */
  int64_t amount;    /**< Amount, in hundredths. */
  char text1[10];    /**< Sent when not empty. */
  char text2[64];    /**< Sent, also when empty, if `text1` is not empty;
                          otherwise not, whatever it holds. */
  char reserved2[6]; /**< Padding. */
} HashAmount;
QUILON_SIZE(HashAmount, 96);
QUILON_OFFSET(HashAmount, amount, 8);
QUILON_OFFSET(HashAmount, text1, 16);
QUILON_OFFSET(HashAmount, text2, 26);

/** "#p" and "#q": QUIL_HASH_P and QUIL_HASH_Q. */
typedef struct HashP {
  int32_t parameter; /**< The parameter of "#p"; not sent by "#q". */
  char text1[33];    /**< Sent also when empty. */
  char text2[64];    /**< Sent also when empty. */
  char reserved1[3]; /**< Padding. */
} HashP;
QUILON_SIZE(HashP, 104);
QUILON_OFFSET(HashP, text1, 4);
QUILON_OFFSET(HashP, text2, 37);

/** The printer's "#P" answer, filled by QUIL_READ_HASH_P. */
typedef struct HashPAnswer {
  char text1[33]; /**< First field, cut to 32 characters. */
  char text2[11]; /**< Second field, cut to 10 characters. */
  int32_t number; /**< Third field; -1 when it is empty. */
} HashPAnswer;
QUILON_SIZE(HashPAnswer, 48);
QUILON_OFFSET(HashPAnswer, text1, 0);
QUILON_OFFSET(HashPAnswer, text2, 33);
QUILON_OFFSET(HashPAnswer, number, 44);

#endif /* QUILON_RECORDS_SECOND_SERIES_H_ */
