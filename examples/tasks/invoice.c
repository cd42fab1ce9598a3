/* An invoice with the buyer's data, paid in cash.   task_invoice ADDRESS PORT
 */
#include "till.h"

int main(int argc, char** argv) {
  BuyerHeader header = {
      .line_count = 1,
      .lines = {"Hurtownia \"Świt\" sp. z o.o."},
      .buyer_text1 = "999-000-00-08",
      .buyer_text2 = "Zofia Łącka",
      .buyer_text3 = "ul. Źródlana 5",
      .buyer_text4 = "00-123 Warszawa",
      .number_text = "17/2024",
  };
  DocumentLine paper = {
      .name = "Papier A4, ryza",
      .quantity = 1000000000,
      .rate_group = "A",
      .unit = "szt",
      .price = 2199,
      .value = 21990,
  };
  Payment cash = {.amount = 21990, .number = 1};
  BuyerEnd end = {.total = 21990};
  const Step invoice[] = {
      {"header", QUIL_BUYER_HEADER, &header},
      {"paper", QUIL_BUYER_LINE, &paper},
      {"cash", QUIL_PAYMENT_6, &cash},
      {"closing", QUIL_BUYER_END, &end},
  };

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  return till_tell("invoice", "printed", till_print(invoice, 4, 21990));
}
