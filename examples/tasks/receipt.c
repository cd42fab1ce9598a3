/* A receipt of one line, paid in cash.   task_receipt ADDRESS PORT */
#include "till.h"

int main(int argc, char** argv) {
  /* Amounts count hundredths, quantities 10^-8. */
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
      .value = 1298, /* 2 * 6.49 */
  };
  Payment cash = {.amount = 2000, .number = 1};
  DocumentEnd end = {.paid = 2000, .total = 1298};
  const Step receipt[] = {
      {"header", QUIL_DOCUMENT_HEADER, &header},
      {"bread", QUIL_DOCUMENT_LINE, &bread},
      {"cash", QUIL_PAYMENT_6, &cash},
      {"closing", QUIL_DOCUMENT_END, &end},
  };

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  return till_tell("receipt", "printed", till_print(receipt, 4, 1298));
}
