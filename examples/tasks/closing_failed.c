/* A receipt that is printed once, whatever happens to its closing and to this
 * program: run it again until it says "printed" or "not printed".
 *   task_closing_failed ADDRESS PORT */
#include <stdio.h>

#include "till.h"

/* Keeps what will tell whether the receipt was printed. */
static int keep(const Sale* sale) {
  FILE* file = fopen("unknown.sale", "wb");
  const int kept = file != NULL && fwrite(sale, sizeof *sale, 1, file) == 1;
  return file != NULL && fclose(file) == 0 && kept;
}

static int is_kept(Sale* sale) {
  FILE* file = fopen("unknown.sale", "rb");
  const int kept = file != NULL && fread(sale, sizeof *sale, 1, file) == 1;
  return file != NULL && fclose(file) == 0 && kept;
}

int main(int argc, char** argv) {
  DocumentHeader header = {
      .line_count = 1,
      .lines = {"Sklep \"Pod Źródłem\""},
  };
  DocumentLine bread = {
      .name = "Chleb żytni",
      .quantity = 200000000,
      .rate_group = "C",
      .unit = "szt",
      .price = 649,
      .value = 1298,
  };
  DocumentEnd end = {.total = 1298};
  const Step begun[] = {
      {"header", QUIL_DOCUMENT_HEADER, &header},
      {"bread", QUIL_DOCUMENT_LINE, &bread},
  };
  const Step closing = {"closing", QUIL_DOCUMENT_END, &end};
  Sale sale;
  Outcome outcome = kNotPrinted;

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  if (is_kept(&sale)) {
    outcome = till_find_out(&sale);
  }
  /* Printed again is only what is certainly not printed. */
  for (int attempt = 0; attempt < 2 && outcome == kNotPrinted; ++attempt) {
    if (!till_begin(&sale, begun, 2, 1298)) {
      break;
    }
    if (!keep(&sale)) {
      till_cancel();
      break;
    }
    outcome = till_end(&sale, &closing);
  }
  if (outcome != kUnknown) {
    remove("unknown.sale");
  }
  return till_tell("receipt", "printed", outcome);
}
