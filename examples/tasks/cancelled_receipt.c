/* A receipt that is begun and then cancelled.
 *   task_cancelled_receipt ADDRESS PORT */
#include <stdio.h>

#include "till.h"

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
  const Step begun[] = {
      {"header", QUIL_DOCUMENT_HEADER, &header},
      {"bread", QUIL_DOCUMENT_LINE, &bread},
  };
  Sale sale;

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  if (!till_begin(&sale, begun, 2, 1298)) {
    return till_tell("receipt", "printed", kNotPrinted);
  }
  /* The customer has left the money at home. */
  if (!till_cancel()) {
    printf("receipt: not printed, but still open: the next one cancels it\n");
    return 1;
  }
  printf("receipt: cancelled\n");
  return 0;
}
