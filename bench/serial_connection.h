// The two clients that are compared over a serial line, a pseudo-terminal: the
// driver and a bare file, each with a line and a printer of its own.
#ifndef QUILON_BENCH_SERIAL_CONNECTION_H_
#define QUILON_BENCH_SERIAL_CONNECTION_H_

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include "bench/printer.h"
#include "quilon/quilon.h"
#include "tests/support/pseudo_terminal.h"

namespace quilon::bench {

// The printer at the far end of a line.
class SerialPeer {
 public:
  SerialPeer() : thread_([this] { Serve(); }) {}
  ~SerialPeer() {
    const int port = open(path().c_str(), O_WRONLY | O_NOCTTY);
    if (write(port, &kNoMore, 1) == 1) {
      thread_.join();
    }
    close(port);
  }
  SerialPeer(const SerialPeer&) = delete;
  SerialPeer& operator=(const SerialPeer&) = delete;

  const std::string& path() const { return line_.path(); }
  Printer& printer() { return printer_; }

 private:
  static constexpr char kNoMore = 0x00;

  void Serve() {
    while (true) {
      std::string received = line_.Receive(1);
      received += line_.TryReceive(4096);
      if (received.ends_with(kNoMore)) {
        return;
      }
      line_.Send(printer_.Answer(received));
    }
  }

  testing::PseudoTerminal line_;
  Printer printer_;
  std::thread thread_;
};

// The driver at a port, `threaded` or not.
class SerialConnection {
 public:
  explicit SerialConnection(bool threaded) {
    quil_init(0);
    // The port's name is what follows "/dev/".
    if (quil_open_serial(peer_.path().c_str() + 5, 115200, threaded ? 1 : 0) !=
        1) {
      throw std::runtime_error("no port");
    }
  }
  ~SerialConnection() { quil_close(); }
  SerialConnection(const SerialConnection&) = delete;
  SerialConnection& operator=(const SerialConnection&) = delete;

  Printer& printer() { return peer_.printer(); }

 private:
  SerialPeer peer_;
};

// A bare file: writes at once, waits for what comes and takes it.
class BareSerialConnection {
 public:
  BareSerialConnection()
      : file_(open(peer_.path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    termios line = {};
    if (tcgetattr(file_, &line) != 0) {
      throw std::runtime_error("no port");
    }
    cfmakeraw(&line);
    tcsetattr(file_, TCSANOW, &line);
  }
  ~BareSerialConnection() { close(file_); }
  BareSerialConnection(const BareSerialConnection&) = delete;
  BareSerialConnection& operator=(const BareSerialConnection&) = delete;

  Printer& printer() { return peer_.printer(); }

  bool Send(std::string_view request) const {
    return write(file_, request.data(), request.size()) ==
           static_cast<ssize_t>(request.size());
  }

  // Reads as many bytes as `answer` has and compares them.
  bool Receive(std::string_view answer) const {
    for (const char expected : answer) {
      pollfd event = {file_, POLLIN, 0};
      char received = 0;
      if (poll(&event, 1, kPatience) != 1 || read(file_, &received, 1) != 1 ||
          received != expected) {
        return false;
      }
    }
    return true;
  }

 private:
  static constexpr int kPatience = 5000;  // milliseconds

  SerialPeer peer_;
  const int file_;
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_SERIAL_CONNECTION_H_
