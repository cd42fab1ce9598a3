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
  /** The number. */
  int32_t number;
} SingleNumber;
QUILON_SIZE(SingleNumber, 4);

/** Two numbers. */
typedef struct TwoNumbers {
  /** The numbers. */
  int32_t numbers[2];
} TwoNumbers;
QUILON_SIZE(TwoNumbers, 8);

/** Three numbers. */
typedef struct ThreeNumbers {
  /** The numbers. */
  int32_t numbers[3];
} ThreeNumbers;
QUILON_SIZE(ThreeNumbers, 12);

/** Six numbers. */
typedef struct SixNumbers {
  /** The numbers. */
  int32_t numbers[6];
} SixNumbers;
QUILON_SIZE(SixNumbers, 24);

/** Seven numbers. */
typedef struct SevenNumbers {
  /** The numbers. */
  int32_t numbers[7];
} SevenNumbers;
QUILON_SIZE(SevenNumbers, 28);

/** One text. */
typedef struct SingleText {
  /** The text. */
  char text[256];
} SingleText;
QUILON_SIZE(SingleText, 256);

/** Two texts. */
typedef struct TwoTexts {
  /** The texts. */
  char texts[2][256];
} TwoTexts;
QUILON_SIZE(TwoTexts, 512);

/** Five texts. */
typedef struct FiveTexts {
  /** The texts. */
  char texts[5][256];
} FiveTexts;
QUILON_SIZE(FiveTexts, 1280);

/** Seven texts. */
typedef struct SevenTexts {
  /** The texts. */
  char texts[7][256];
} SevenTexts;
QUILON_SIZE(SevenTexts, 1792);

/** A number and a text. */
typedef struct NumberAndText {
  /** The number. */
  int32_t number;
  /** The text. */
  char text[256];
} NumberAndText;
QUILON_SIZE(NumberAndText, 260);
QUILON_OFFSET(NumberAndText, text, 4);

/** A number and four texts. */
typedef struct NumberAndFourTexts {
  /** The number. */
  int32_t number;
  /** The texts. */
  char texts[4][256];
} NumberAndFourTexts;
QUILON_SIZE(NumberAndFourTexts, 1028);
QUILON_OFFSET(NumberAndFourTexts, texts, 4);

/** A number and seven texts. */
typedef struct NumberAndSevenTexts {
  /** The number. */
  int32_t number;
  /** The texts. */
  char texts[7][256];
} NumberAndSevenTexts;
QUILON_SIZE(NumberAndSevenTexts, 1796);
QUILON_OFFSET(NumberAndSevenTexts, texts, 4);

#endif /* QUILON_RECORDS_PLAIN_H_ */
