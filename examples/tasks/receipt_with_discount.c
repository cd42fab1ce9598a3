/* A receipt with a discount on a line and one on the whole, paid by card.
 *   task_receipt_with_discount ADDRESS PORT */
#include "till.h"

int main(int argc, char** argv) {
  DocumentHeader header = {.line_count = 1, .lines = {"Kawiarnia \"Żuraw\""}};
  DocumentLine coffee = {
      .integer2 = 1, /* The line's discount is one in percent. */
      .name = "Kawa ziarnista 0,5 kg",
      .quantity = 100000000,
      .rate_group = "A",
      .unit = "szt",
      .price = 4590,
      .value = 4590,
      .optional_amount = 1000, /* 10 %, which leaves 41.31 */
      .optional_text = "stały klient",
  };
  DocumentLine cups = {
      .name = "Filiżanka",
      .quantity = 200000000,
      .rate_group = "A",
      .unit = "szt",
      .price = 1950,
      .value = 3900,
  };
  Payment card = {.amount = 7629, .number = 1};
  DocumentEnd end = {
      .adjustment_kind = 1, /* A discount on the whole, in percent. */
      .paid = 7629,
      .total = 8031,     /* 41.31 + 39.00 */
      .adjustment = 500, /* 5 %, rounded 4.02 */
  };
  const Step receipt[] = {
      {"header", QUIL_DOCUMENT_HEADER, &header},
      {"coffee", QUIL_DOCUMENT_LINE, &coffee},
      {"cups", QUIL_DOCUMENT_LINE, &cups},
      {"card", QUIL_PAYMENT_7, &card},
      {"closing", QUIL_DOCUMENT_END, &end},
  };

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  return till_tell("receipt", "printed", till_print(receipt, 5, 7629));
}
