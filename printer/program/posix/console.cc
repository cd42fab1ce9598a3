#include "printer/program/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace quilon::printer {

void UseUtf8Console() {}

void SecureStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  // Each takes the lowest number that is free. It can be read only, so that
  // what is written there is not taken for written.
  int taken = 0;
  do {
    taken = open("/dev/null", O_RDONLY);
  } while (taken >= 0 && taken <= STDERR_FILENO);
  if (taken >= 0) {
    close(taken);
  }
}

}  // namespace quilon::printer
