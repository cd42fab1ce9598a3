/* Cash paid into the drawer in the morning and out in the evening.
 *   task_cash_in_and_out ADDRESS PORT */
#include "till.h"

int main(int argc, char** argv) {
  HashAmount in = {.amount = 20000, .text1 = "Kasa 1", .text2 = "Anna"};
  HashAmount out = {.amount = 15050, .text1 = "Kasa 1", .text2 = "Anna"};
  const Step morning = {"cash in", QUIL_HASH_I, &in};
  const Step evening = {"cash out", QUIL_HASH_D, &out};

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  const int status = till_tell("cash in", "printed", till_do(&morning));
  if (status != 0) {
    return status;
  }
  return till_tell("cash out", "printed", till_do(&evening));
}
