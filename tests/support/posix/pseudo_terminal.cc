#include "tests/support/pseudo_terminal.h"

#include <asm/termbits.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace quilon::testing {
namespace {

constexpr int kPatience = 10000;  // milliseconds

bool WaitFor(int16_t event, int file) {
  pollfd events = {file, event, 0};
  return poll(&events, 1, kPatience) == 1 && (events.revents & event) != 0;
}

}  // namespace

PseudoTerminal::PseudoTerminal()
    : far_end_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
  char path[64];
  if (grantpt(far_end_) != 0 || unlockpt(far_end_) != 0 ||
      ptsname_r(far_end_, path, sizeof(path)) != 0) {
    throw std::runtime_error("no pseudo-terminal");
  }
  path_ = path;
  port_ = open(path, O_RDWR | O_NOCTTY);
}

PseudoTerminal::~PseudoTerminal() { Hangup(); }

TerminalSettings PseudoTerminal::Settings() const {
  termios2 line = {};
  ioctl(port_, TCGETS2, &line);
  return {.speed = line.c_ospeed,
          .rts_cts = (line.c_cflag & CRTSCTS) != 0,
          .xon_xoff_output = (line.c_iflag & IXON) != 0,
          .xon_xoff_input = (line.c_iflag & IXOFF) != 0};
}

size_t PseudoTerminal::TrySend(std::string_view bytes) {
  const ssize_t sent = write(far_end_, bytes.data(), bytes.size());
  return sent > 0 ? static_cast<size_t>(sent) : 0;
}

void PseudoTerminal::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!WaitFor(POLLOUT, far_end_)) {
      throw std::runtime_error("nobody reads what was sent");
    }
    bytes.remove_prefix(TrySend(bytes));
  }
}

void PseudoTerminal::WaitForUnread(int count) const {
  int unread = 0;
  while (ioctl(port_, FIONREAD, &unread) == 0 && unread != count) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

std::string PseudoTerminal::TryReceive(size_t count) {
  std::string bytes(count, '\0');
  const ssize_t received = read(far_end_, bytes.data(), count);
  bytes.resize(received > 0 ? static_cast<size_t>(received) : 0);
  return bytes;
}

std::string PseudoTerminal::Receive(size_t count) {
  std::string bytes;
  while (bytes.size() < count && WaitFor(POLLIN, far_end_)) {
    bytes += TryReceive(count - bytes.size());
  }
  return bytes;
}

void PseudoTerminal::Hangup() {
  for (int* end : {&port_, &far_end_}) {
    if (*end >= 0) {
      close(*end);
      *end = -1;
    }
  }
}

}  // namespace quilon::testing
