/*
 * A shop's side of its printer: a document is printed once, and called printed
 * only when the printer's totals hold it.
 *
 * Copy till.h and till.c into your program. They drive one printer from one
 * thread, and tell on the standard output what the printer says. Nobody else
 * may print on it meanwhile.
 */
#ifndef QUILON_EXAMPLES_TASKS_TILL_H_
#define QUILON_EXAMPLES_TASKS_TILL_H_

#include <stddef.h>

#include "quilon/quilon.h"

#ifdef __cplusplus
extern "C" {
#endif

/* What became of something that was to be printed. */
typedef enum Outcome {
  kPrinted,    /* The printer has it in its books. */
  kNotPrinted, /* The printer does not have it, and never will. */
  kUnknown     /* One of the two: look before anything is printed again. */
} Outcome;

/* A command with its record, and what to call it when it fails. */
typedef struct Step {
  const char* name;
  int32_t code;
  void* record;
} Step;

/* What tells later whether a document reached the printer's totals. */
typedef struct Sale {
  int32_t invoice;   /* 1: of the series that QUIL_BUYER_HEADER opens. */
  int32_t cancelled; /* 1: its closing was sent, but it was cancelled. */
  int64_t total;     /* What the totals grow by, in hundredths. */
  int32_t totals_before[7];
} Sale;

/* Makes ready to reach the printer over TCP or over a serial port, without
 * connecting yet. The settings must stay. Texts are UTF-8 from now on. */
void till_use_tcp(const TcpParams* params);
void till_use_serial(const SerialParams* params);

/* The same for the examples' arguments, ADDRESS PORT [REPLY_TIMEOUT in
 * milliseconds]. Returns 0, and says why, when they make no sense. */
int till_use_arguments(int argc, char** argv);

/* Prints a document: its first step opens it and the last closes it. `total` is
 * what the closing command's record comes to with its discount, above 0. Takes
 * at most about 15 reply time-outs, however the printer fails. */
Outcome till_print(const Step* steps, size_t count, int64_t total);

/* The same in three parts. till_begin prints all but the closing; it returns 0
 * when the document failed before its closing and thus is not printed. */
int till_begin(Sale* sale, const Step* steps, size_t count, int64_t total);
Outcome till_end(Sale* sale, const Step* closing);

/* Finds out what became of a document whose closing failed. May be called again
 * while the outcome is kUnknown, when the printer has paper again, say; also by
 * a program that was started anew and kept the sale. Until then nothing else
 * may be printed. */
Outcome till_find_out(Sale* sale);

/* Cancels the open document, if there is one. Returns 0 when that failed: a
 * document may then still be open, and the next till_begin cancels it. */
int till_cancel(void);

/* Runs a command that stands for itself: a report, the drawer. kPrinted here
 * means that the printer accepted it. */
Outcome till_do(const Step* step);

/* Tells what became of `name`, for example "receipt: printed". Returns the exit
 * status of a program: 0, 1 when it is not printed, 3 when that is unknown. */
int till_tell(const char* name, const char* printed, Outcome outcome);

#ifdef __cplusplus
}
#endif

#endif /* QUILON_EXAMPLES_TASKS_TILL_H_ */
