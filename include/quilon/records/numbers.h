/**
 * Records that are nothing but numbers. Their order is that of the command or
 * of its answer; what a number means is told at the command's code.
 */
#ifndef QUILON_RECORDS_NUMBERS_H_
#define QUILON_RECORDS_NUMBERS_H_

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

#endif /* QUILON_RECORDS_NUMBERS_H_ */
