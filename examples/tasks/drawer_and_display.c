/* What is to be paid on the customer display, and the drawer open.
 *   task_drawer_and_display ADDRESS PORT */
#include "till.h"

int main(int argc, char** argv) {
  DisplayText first = {.mode = 0, .text = "Razem do zapłaty"};
  DisplayText second = {.mode = 1, .text = "12,98 PLN"};
  const Step steps[] = {
      {"display, line 1", QUIL_EXCLAMATION_D, &first},
      {"display, line 2", QUIL_EXCLAMATION_D, &second},
      {"drawer", QUIL_OPEN_DRAWER, NULL},
  };
  const char* done[] = {"shown", "shown", "open"};
  int status = 0;

  if (!till_use_arguments(argc, argv)) {
    return 2;
  }
  for (int i = 0; i < 3 && status == 0; ++i) {
    status = till_tell(steps[i].name, done[i], till_do(&steps[i]));
  }
  return status;
}
