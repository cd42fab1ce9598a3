#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

VirtualPrinter::Options SerialOptions(const std::string& link = {}) {
  VirtualPrinter::Options options;
  options.tcp.clear();
  options.pty = true;
  options.pty_link = link;
  return options;
}

class Terminal {
 public:
  explicit Terminal(const std::string& path)
      : file_(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    EXPECT_GE(file_, 0) << path;
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() { close(file_); }

  int file() const { return file_; }

  void Send(const std::string& bytes) const {
    ASSERT_EQ(write(file_, bytes.data(), bytes.size()),
              static_cast<ssize_t>(bytes.size()));
  }

  // The given number of bytes; fewer when none came for 10 s.
  std::string Read(size_t count) const {
    std::string bytes;
    pollfd line{file_, POLLIN, 0};
    while (bytes.size() < count && poll(&line, 1, 10'000) == 1) {
      char byte = 0;
      if (::read(file_, &byte, 1) != 1) {
        break;
      }
      bytes += byte;
    }
    return bytes;
  }

 private:
  int file_;
};

TEST(PseudoTerminal, CarriesEveryByteUnchanged) {
  VirtualPrinter printer(SerialOptions());
  const Terminal client(printer.pty_path());
  client.Send("\x10\x05");
  EXPECT_EQ(client.Read(2), "\x74\x6D");
  // CR, LF, the signal characters and bytes above 7F would suffer on a line
  // that is not raw.
  const std::string body =
      std::string("1$Q\r\n\x03\x04\x11\x13\x1C\x7F\xFF") + "x";
  client.Send(Framed(body) + Bare("#n"));
  const std::string answer = Framed("#E1022/");
  EXPECT_EQ(client.Read(answer.size()), answer);
  ASSERT_EQ(printer.frames().size(), 2U);
  EXPECT_EQ(printer.frames()[0].substr(0, body.size()), body);
}

TEST(PseudoTerminal, SurvivesClientsThatComeAndGo) {
  VirtualPrinter printer(SerialOptions());
  for (int i = 0; i < 20; ++i) {
    const Terminal client(printer.pty_path());
    client.Send("\x10");
    ASSERT_EQ(client.Read(1), "\x74");
  }
}

TEST(PseudoTerminal, ForgetsWhatADeadClientLeftUnfinished) {
  VirtualPrinter printer(SerialOptions());
  {
    const Terminal dying(printer.pty_path());
    dying.Send(Framed("1$Q") + "\x1BP0;0;0;1");
    EXPECT_TRUE(printer.WaitUntil(
        [](const Snapshot& now) { return now.error == 1022; }));
  }
  // A printer sees the end of a client only while nobody has the port open: the
  // next client leaves it alone for a while and comes back until it is heard.
  std::string answer;
  for (int i = 0; i < 1000 && answer.empty(); ++i) {
    poll(nullptr, 0, 10);
    const Terminal client(printer.pty_path());
    client.Send("\x10");
    pollfd line{client.file(), POLLIN, 0};
    if (poll(&line, 1, 10) == 1) {
      answer = client.Read(1);
    }
  }
  EXPECT_EQ(answer, "\x74");
}

TEST(PseudoTerminal, IsReachedThroughItsLink) {
  const std::string link =
      testing::TempDir() + "printer_link_" + std::to_string(getpid());
  {
    VirtualPrinter printer(SerialOptions(link));
    EXPECT_EQ(std::filesystem::read_symlink(link), printer.pty_path());
    const Terminal client(link);
    client.Send("\x10");
    EXPECT_EQ(client.Read(1), "\x74");
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
}

TEST(PseudoTerminal, ReplacesAnOldLinkButNoOtherFile) {
  const std::string link =
      testing::TempDir() + "printer_old_link_" + std::to_string(getpid());
  std::filesystem::create_symlink("/nowhere", link);
  {
    VirtualPrinter printer(SerialOptions(link));
    EXPECT_EQ(std::filesystem::read_symlink(link), printer.pty_path());
  }
  std::ofstream(link) << "precious";
  EXPECT_THROW(VirtualPrinter{SerialOptions(link)}, std::system_error);
  EXPECT_EQ(std::filesystem::file_size(link), 8U);
  std::filesystem::remove(link);
}

TEST(PseudoTerminal, VanishesWithThePrinter) {
  auto printer = std::make_unique<VirtualPrinter>(SerialOptions());
  const Terminal client(printer->pty_path());
  printer.reset();
  char byte = 0;
  EXPECT_LE(::read(client.file(), &byte, 1), 0);
}

TEST(HeldInput, StaysInTheWire) {
  VirtualPrinter printer(SerialOptions());
  const Terminal client(printer.pty_path());
  client.Send("\x10");
  EXPECT_EQ(client.Read(1), "\x74");
  printer.HoldInput(true);
  // The wire fills up: a client that does not wait is told so.
  ASSERT_NE(fcntl(client.file(), F_SETFL, O_NONBLOCK), -1);
  const std::string piece(1024, 'x');
  size_t sent = 0;
  ssize_t count = 0;
  while ((count = write(client.file(), piece.data(), piece.size())) > 0) {
    sent += static_cast<size_t>(count);
    ASSERT_LT(sent, size_t{10} << 20);
  }
  printer.HoldInput(false);
  ASSERT_EQ(fcntl(client.file(), F_SETFL, 0), 0);
  client.Send("\x10");
  EXPECT_EQ(client.Read(1), "\x74");
}

}  // namespace
}  // namespace quilon::printer
