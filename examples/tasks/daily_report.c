/* The daily report.   task_daily_report ADDRESS PORT */
#include "till.h"

int main(int argc, char** argv) {
  HashR report = {.text1 = "Kasa 1", .text2 = "Anna"};
  const Step step = {"daily report", QUIL_HASH_R, &report};

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  /* Only after every document's outcome is known: a report cannot be undone,
   * and the totals that could tell are reported with it. */
  return till_tell("daily report", "printed", till_do(&step));
}
