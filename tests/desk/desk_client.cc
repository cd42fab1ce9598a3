// A till that is driven by lines, for tests that stop and kill it:
//
//     desk_client SETTINGS
//
// SETTINGS is JSON as quil_desk_open takes it. Each line of the standard input
// is an order, "print JSON", "status", "pending", "resolve JSON", "learn JSON";
// each is answered by a line. The first line tells what the opening told; the
// exit status is 1 when there is no desk.
#include <iostream>
#include <string>

#include "quilon/desk.h"

namespace {

void Say(char* answer) {
  std::cout << (answer == nullptr ? "null" : answer) << std::endl;
  quil_desk_free(answer);
}

char* Obey(QuilDesk* desk, const std::string& line) {
  const size_t blank = line.find(' ');
  const std::string order = line.substr(0, blank);
  const std::string given =
      blank == std::string::npos ? "" : line.substr(blank + 1);
  if (order == "print") {
    return quil_desk_print(desk, given.c_str());
  }
  if (order == "status") {
    return quil_desk_status(desk);
  }
  if (order == "resolve") {
    return quil_desk_resolve(desk, given.c_str());
  }
  if (order == "learn") {
    return quil_desk_learn(desk, given.empty() ? nullptr : given.c_str());
  }
  return quil_desk_pending(desk);
}

}  // namespace

int main(int argc, char** argv) {
  char* answer = nullptr;
  QuilDesk* desk = quil_desk_open(argc > 1 ? argv[1] : nullptr, &answer);
  Say(answer);
  if (desk == nullptr) {
    return 1;
  }
  std::string line;
  while (std::getline(std::cin, line)) {
    Say(Obey(desk, line));
  }
  quil_desk_close(desk);
  return 0;
}
