/**
 * Records made of a few numbers and texts that need no name of their own. Their
 * order is that of the command or of its answer; what is known of their meaning
 * stands at the command's code.
 *
 * A text whose length the printer does not fix has 256 bytes.
 */
#ifndef QUILON_RECORDS_PLAIN_H_
#define QUILON_RECORDS_PLAIN_H_

#include "quilon/records/layout.h"

/** One number. */
typedef struct SingleNumber {
  int32_t number; /**< The number. */
} SingleNumber;
QUILON_SIZE(SingleNumber, 4);

/** Two numbers. */
typedef struct TwoNumbers {
  int32_t numbers[2]; /**< The numbers. */
} TwoNumbers;
QUILON_SIZE(TwoNumbers, 8);

/** Three numbers. */
typedef struct ThreeNumbers {
  int32_t numbers[3]; /**< The numbers. */
} ThreeNumbers;
QUILON_SIZE(ThreeNumbers, 12);

/** Six numbers. */
typedef struct SixNumbers {
  int32_t numbers[6]; /**< The numbers. */
} SixNumbers;
QUILON_SIZE(SixNumbers, 24);

/** Seven numbers. */
typedef struct SevenNumbers {
  int32_t numbers[7]; /**< The numbers. */
} SevenNumbers;
QUILON_SIZE(SevenNumbers, 28);

/** One text. */
typedef struct SingleText {
  char text[256]; /**< The text. */
} SingleText;
QUILON_SIZE(SingleText, 256);

/** Two texts. */
typedef struct TwoTexts {
  char texts[2][256]; /**< The texts. */
} TwoTexts;
QUILON_SIZE(TwoTexts, 512);

/** Five texts. */
typedef struct FiveTexts {
  char texts[5][256]; /**< The texts. */
} FiveTexts;
QUILON_SIZE(FiveTexts, 1280);

/** Seven texts. */
typedef struct SevenTexts {
  char texts[7][256]; /**< The texts. */
} SevenTexts;
QUILON_SIZE(SevenTexts, 1792);

/** A number and a text. */
typedef struct NumberAndText {
  int32_t number; /**< The number. */
  char text[256]; /**< The text. */
} NumberAndText;
QUILON_SIZE(NumberAndText, 260);
QUILON_OFFSET(NumberAndText, text, 4);

/** A number and four texts. */
typedef struct NumberAndFourTexts {
  int32_t number;     /**< The number. */
  char texts[4][256]; /**< The texts. */
} NumberAndFourTexts;
QUILON_SIZE(NumberAndFourTexts, 1028);
QUILON_OFFSET(NumberAndFourTexts, texts, 4);

/** A number and seven texts. */
typedef struct NumberAndSevenTexts {
  int32_t number;     /**< The number. */
  char texts[7][256]; /**< The texts. */
} NumberAndSevenTexts;
QUILON_SIZE(NumberAndSevenTexts, 1796);
QUILON_OFFSET(NumberAndSevenTexts, texts, 4);

#endif /* QUILON_RECORDS_PLAIN_H_ */
