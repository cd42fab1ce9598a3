// Serial ports of Linux, on pseudo-terminals. These always have 8 data bits and
// no parity, so other values can only be seen to be taken or refused.
#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <future>
#include <thread>

#include "src/platform/serial_port.h"
#include "tests/support/pseudo_terminal.h"

namespace quilon::testing {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr LineState kLine = {
    .baud_rate = 9600, .data_bits = 8, .xon = 0x11, .xoff = 0x13};

class PosixSerialPortTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(port_->Open(terminal_.path()));
    ASSERT_TRUE(port_->SetLineState(kLine));
    SetTimeouts({.read_interval = 50,
                 .read_per_byte = 10,
                 .read_constant = 10,
                 .write_per_byte = 10,
                 .write_constant = 10000});
  }

  void SetTimeouts(const SerialTimeouts& timeouts) {
    ASSERT_TRUE(port_->SetTimeouts(timeouts));
  }

  // What is gone reads as "gone".
  std::string Read(int32_t count, uint32_t patience = 10000) {
    std::string bytes(static_cast<size_t>(count), '\0');
    const int32_t length = port_->Read(bytes.data(), count, patience);
    if (length == SerialPort::kGone) {
      return "gone";
    }
    bytes.resize(static_cast<size_t>(length));
    return bytes;
  }

  // Reads until so many bytes are there.
  std::string ReadAll(size_t count) {
    std::string bytes;
    while (bytes.size() < count && bytes.find("gone") == std::string::npos) {
      bytes += Read(static_cast<int32_t>(count - bytes.size()));
    }
    return bytes;
  }

  int32_t Write(std::string_view bytes) {
    return port_->Write(bytes.data(), static_cast<int32_t>(bytes.size()));
  }

  SerialPort& port() { return *port_; }
  PseudoTerminal& terminal() { return terminal_; }

 private:
  PseudoTerminal terminal_;
  std::unique_ptr<SerialPort> port_ = CreateSerialPort();
};

TEST_F(PosixSerialPortTest, AnyBaudRate) {
  for (const uint32_t rate : {50U, 9600U, 12345U, 115200U, 4000000U}) {
    LineState line = kLine;
    line.baud_rate = rate;
    EXPECT_TRUE(port().SetLineState(line));
    EXPECT_EQ(terminal().Settings().speed, rate);
    EXPECT_TRUE(port().GetLineState(&line));
    EXPECT_EQ(line.baud_rate, rate);
  }
}

TEST_F(PosixSerialPortTest, FlowControlBothWays) {
  struct Case {
    uint32_t flags;
    bool rts_cts, output, input;
  };
  for (const Case& wanted : {Case{0, false, false, false},
                             {0x2004, true, false, false},
                             {0x0100, false, true, false},
                             {0x0200, false, false, true},
                             {0x2304, true, true, true}}) {
    LineState line = kLine;
    line.flags = wanted.flags;
    EXPECT_TRUE(port().SetLineState(line));
    const TerminalSettings settings = terminal().Settings();
    EXPECT_EQ(settings.rts_cts, wanted.rts_cts);
    EXPECT_EQ(settings.xon_xoff_output, wanted.output);
    EXPECT_EQ(settings.xon_xoff_input, wanted.input);
    EXPECT_TRUE(port().GetLineState(&line));
    EXPECT_EQ(line.flags, wanted.flags);
    EXPECT_EQ(line.xon, 0x11);
    EXPECT_EQ(line.xoff, 0x13);
    EXPECT_EQ(line.data_bits, 8);
    EXPECT_EQ(line.stop_bits, 0);
    EXPECT_EQ(line.parity, 0);
  }
}

TEST_F(PosixSerialPortTest, KeyboardsXonXoffIsNoneOfThePorts) {
  PseudoTerminal fresh;
  ASSERT_TRUE(fresh.Settings().xon_xoff_output);
  const auto other = CreateSerialPort();
  ASSERT_TRUE(other->Open(fresh.path()));
  LineState line = {};
  EXPECT_TRUE(other->GetLineState(&line));
  EXPECT_EQ(line.flags, 0U);
}

TEST_F(PosixSerialPortTest, TakesWhatALineCanHave) {
  const auto takes = [this](uint8_t data_bits, uint8_t parity,
                            uint8_t stop_bits) {
    LineState line = kLine;
    line.data_bits = data_bits;
    line.parity = parity;
    line.stop_bits = stop_bits;
    return port().SetLineState(line);
  };
  for (uint8_t value = 0; value < 255; ++value) {
    EXPECT_EQ(takes(value, 0, 0), value >= 5 && value <= 8);
    EXPECT_EQ(takes(8, value, 0), value <= 4);
  }
  EXPECT_TRUE(takes(8, 0, 2));
  EXPECT_TRUE(takes(5, 0, 1));
  EXPECT_FALSE(takes(8, 0, 1));
  EXPECT_FALSE(takes(5, 0, 2));
  EXPECT_FALSE(takes(8, 0, 3));
  LineState silent = kLine;
  silent.baud_rate = 0;
  EXPECT_FALSE(port().SetLineState(silent));
}

TEST_F(PosixSerialPortTest, EveryByteBothWays) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
  }
  terminal().Send(bytes);
  EXPECT_EQ(ReadAll(256), bytes);
  EXPECT_EQ(Write(bytes), 256);
  EXPECT_EQ(terminal().Receive(256), bytes);
}

TEST_F(PosixSerialPortTest, ReadWaitsForItsTimeAndNoLonger) {
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(Read(4, 50), "");
  EXPECT_GE(Clock::now() - start, milliseconds(50));
  EXPECT_LT(Clock::now() - start, milliseconds(5000));
}

TEST_F(PosixSerialPortTest, ReadEndsWithTheByteThatComes) {
  auto read = std::async(std::launch::async,
                         [this] { return Read(100, SerialPort::kForever); });
  terminal().Send("a");
  EXPECT_EQ(read.get(), "a");
}

TEST_F(PosixSerialPortTest, ReadCanBeInterrupted) {
  auto read = std::async(std::launch::async,
                         [this] { return Read(100, SerialPort::kForever); });
  port().Interrupt();
  EXPECT_EQ(read.get(), "");
}

TEST_F(PosixSerialPortTest, ReadTakesNoMoreThanAsked) {
  terminal().Send("abcdef");
  terminal().WaitForUnread(6);
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(Read(4), "cdef");
}

TEST_F(PosixSerialPortTest, WriteGivesUpAtItsTime) {
  SetTimeouts({.write_constant = 50});
  const std::string bytes(1000000, 'x');
  const Clock::time_point start = Clock::now();
  const int32_t written = Write(bytes);
  EXPECT_GE(Clock::now() - start, milliseconds(50));
  EXPECT_GT(written, 0);
  EXPECT_LT(written, 1000000);
  EXPECT_EQ(Write("y"), 0);
  EXPECT_EQ(port().LastError(), ETIMEDOUT);
  EXPECT_EQ(terminal().Receive(static_cast<size_t>(written)),
            bytes.substr(0, static_cast<size_t>(written)));
}

TEST_F(PosixSerialPortTest, WriteThatIsHeldUpCanBeInterrupted) {
  SetTimeouts({.write_constant = 600000});
  auto error = std::async(std::launch::async, [this] {
    EXPECT_LT(Write(std::string(1000000, 'x')), 1000000);
    return port().LastError();
  });
  port().Interrupt();
  EXPECT_EQ(error.get(), ECANCELED);
  // A port that is opened again knows nothing of it.
  EXPECT_TRUE(port().Close());
  ASSERT_TRUE(port().Open(terminal().path()));
  SetTimeouts({.write_constant = 1});
  Write(std::string(1000000, 'x'));
  EXPECT_EQ(port().LastError(), ETIMEDOUT);
}

TEST_F(PosixSerialPortTest, ClearDiscardsWhatWasReceived) {
  terminal().Send("abc");
  terminal().WaitForUnread(3);
  EXPECT_TRUE(port().AbortReads());
  EXPECT_TRUE(port().ClearReceived());
  EXPECT_EQ(Read(3, 0), "");
}

TEST_F(PosixSerialPortTest, BelongsToOneAtATime) {
  const auto other = CreateSerialPort();
  EXPECT_FALSE(other->Open(terminal().path()));
  EXPECT_FALSE(other->IsOpen());
  EXPECT_TRUE(port().Close());
  EXPECT_TRUE(other->Open(terminal().path()));
}

TEST_F(PosixSerialPortTest, VanishedPortNeitherReadsNorWrites) {
  terminal().Hangup();
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(Read(1000), "gone");
  EXPECT_EQ(Write("x"), 0);
  EXPECT_EQ(port().LastError(), EIO);
  EXPECT_LT(Clock::now() - start, milliseconds(5000));
  LineState line = {};
  EXPECT_FALSE(port().GetLineState(&line));
  EXPECT_FALSE(port().SetLineState(kLine));
  EXPECT_TRUE(port().Close());
}

TEST_F(PosixSerialPortTest, ClosedPortRefusesEverything) {
  EXPECT_TRUE(port().Close());
  EXPECT_FALSE(port().Close());
  EXPECT_FALSE(port().IsOpen());
  EXPECT_EQ(Read(1), "gone");
  EXPECT_EQ(Write("x"), 0);
  LineState line = {};
  EXPECT_FALSE(port().GetLineState(&line));
  EXPECT_FALSE(port().SetLineState(kLine));
  EXPECT_FALSE(port().SetTimeouts({}));
  EXPECT_FALSE(port().AbortReads());
  EXPECT_FALSE(port().ClearReceived());
}

TEST_F(PosixSerialPortTest, NamesOfDevicesAndPaths) {
  const auto other = CreateSerialPort();
  PseudoTerminal terminal;
  EXPECT_TRUE(other->Open(terminal.path()));
  EXPECT_TRUE(other->Close());
  EXPECT_TRUE(other->Open(terminal.path().substr(std::string("/dev/").size())));
  EXPECT_TRUE(other->Close());
  for (const char* name : {"", "/", "no such port", "/dev/no such port"}) {
    EXPECT_FALSE(other->Open(name)) << name;
  }
}

TEST_F(PosixSerialPortTest, FileHasNoLine) {
  const std::string path = ::testing::TempDir() + "no_port";
  std::ofstream(path) << "text";
  const auto other = CreateSerialPort();
  EXPECT_TRUE(other->Open(path));
  LineState line = {};
  EXPECT_FALSE(other->GetLineState(&line));
}

}  // namespace
}  // namespace quilon::testing
