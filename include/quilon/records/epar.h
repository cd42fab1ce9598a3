/**
 * The printer's EPAR parameter sets.
 */
#ifndef QUILON_RECORDS_EPAR_H_
#define QUILON_RECORDS_EPAR_H_

#include "quilon/records/layout.h"

/** A parameter set: QUIL_SET_EPAR_COMMON, QUIL_SEND_EPAR, QUIL_READ_EPAR and
 *  QUIL_SET_EPAR. */
typedef struct EparSet {
  /** 0 to 3: which of `tail_values` are used, counted from 1. Sent: by type 2
   *  the first four, by type 3 the first five. Read: by type 1 the first four,
   *  by type 2 all but the fifth, by type 3 all. */
  int32_t type;
  /** Text before the values. */
  char first_text[204];
  /** The three values between the texts. */
  int32_t values[3];
  /** Text behind the values; at most 64 characters are read. */
  char second_text[68];
  /** Values at the end; see `type`.
   *  Virtual printer: the sixth to the eighth are receipts, invoices and
   *  cancelled documents so far, the last two unused. */
  int32_t tail_values[10];
} EparSet;
QUILON_SIZE(EparSet, 328);
QUILON_OFFSET(EparSet, first_text, 4);
QUILON_OFFSET(EparSet, values, 208);
QUILON_OFFSET(EparSet, second_text, 220);
QUILON_OFFSET(EparSet, tail_values, 288);

#endif /* QUILON_RECORDS_EPAR_H_ */
