// Serial ports through the exports: on both systems, with and without threads.
#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/support/checksum.h"
#include "tests/support/connections.h"
#include "tests/support/log_folder.h"
#include "tests/support/open_handles.h"
#include "tests/support/serial_peer.h"

namespace quilon::testing {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using Strings = std::vector<std::string>;

// At least `size` bytes of packets that a reading command passes over.
std::string Packets(size_t size) {
  std::string packets;
  while (packets.size() < size) {
    packets += "#Z" + std::string(61, 'z') + "\\";
  }
  return packets;
}

class SerialFixture : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  void EnableLog() { ASSERT_EQ(quil_enable_log(folder_.path().c_str()), 1); }

  // The log's entries behind its head.
  Strings Log() const {
    Strings entries = folder_.Entries();
    EXPECT_GE(entries.size(), 2U);
    entries.erase(entries.begin(),
                  entries.begin() + std::min<ptrdiff_t>(2, Count(entries)));
    return entries;
  }

  const LogFolder& folder() const { return folder_; }

 private:
  static ptrdiff_t Count(const Strings& entries) {
    return static_cast<ptrdiff_t>(entries.size());
  }

  LogFolder folder_;
};

class SerialTest : public SerialFixture,
                   public ::testing::WithParamInterface<uint32_t> {
 protected:
  static int32_t Open(std::string_view port) {
    return OpenSerial(port, GetParam());
  }

  // What the two transports call their failure.
  static std::string OpenErrorOf(uint32_t threaded) {
    return threaded == kThreaded ? "Port Open ERROR" : "Port open ERROR";
  }
  static std::string OpenError() { return OpenErrorOf(GetParam()); }

  // Puts the other transport's failure into the last error; returns its text.
  static std::string SetLastError() {
    const uint32_t other = kThreaded - GetParam();
    EXPECT_EQ(quil_open_serial("NOPORT", 9600, other), 0);
    EXPECT_EQ(quil_close(), 1);
    EXPECT_EQ(LastError().message, OpenErrorOf(other));
    return OpenErrorOf(other);
  }

  // The log's line about the settings of a port.
  static std::string ParamsEntry(const std::string& port,
                                 const std::string& flow_control) {
    return "MSG Params: portname: " + port +
           " baudrate: 9600 flowcontrol:" + flow_control +
           (GetParam() == kThreaded ? " threaded:1" : "");
  }

  // Opens with what `params` say, expects the flow control's name in the log
  // and returns how the port is set up.
  SerialLine LineAfterOpening(SerialPeer& peer, uint32_t flow_control,
                              const std::string& name) {
    SerialParams params = ParamsOf(peer.port(), GetParam());
    params.flow_control = flow_control;
    EnableLog();
    EXPECT_EQ(quil_open_serial_ex(&params), 1);
    EXPECT_EQ(Log().back(), ParamsEntry(peer.port(), name));
    const SerialLine line = peer.Line();
    EXPECT_EQ(line.speed, 9600);
    EXPECT_FALSE(line.changes_bytes);
    return line;
  }
};

INSTANTIATE_TEST_SUITE_P(Transports, SerialTest,
                         ::testing::Values(kBlocking, kThreaded),
                         [](const auto& test) {
                           return test.param == kThreaded ? "Threaded"
                                                          : "Blocking";
                         });

TEST_P(SerialTest, OpensByNameAndBaudRate) {
  SerialPeer peer;
  EXPECT_EQ(quil_open_serial(peer.port().c_str(), 115200, GetParam()), 1);
  const SerialLine line = peer.Line();
  EXPECT_EQ(line.speed, 115200);
  EXPECT_FALSE(line.rts_cts);
  EXPECT_FALSE(line.xon_xoff_output);
  EXPECT_FALSE(line.xon_xoff_input);
  EXPECT_FALSE(line.changes_bytes);
  ExpectExchange(peer);
}

TEST_P(SerialTest, NoFlowControl) {
  SerialPeer peer;
  const SerialLine line = LineAfterOpening(peer, 0, "Brak");
  EXPECT_FALSE(line.rts_cts);
  EXPECT_FALSE(line.xon_xoff_output);
  EXPECT_FALSE(line.xon_xoff_input);
  EXPECT_EQ(line.xon, 0xFF);
  EXPECT_EQ(line.xoff, 0xFF);
}

TEST_P(SerialTest, HardwareFlowControl) {
  SerialPeer peer;
  const SerialLine line =
      LineAfterOpening(peer, QUIL_FLOW_HARDWARE, "Hardware");
  EXPECT_TRUE(line.rts_cts);
  EXPECT_FALSE(line.xon_xoff_output);
  EXPECT_FALSE(line.xon_xoff_input);
}

TEST_P(SerialTest, XonXoffFlowControl) {
  SerialPeer peer;
  const SerialLine line =
      LineAfterOpening(peer, QUIL_FLOW_XON_XOFF, "Xon/Xoff");
  EXPECT_FALSE(line.rts_cts);
  EXPECT_TRUE(line.xon_xoff_output);
  EXPECT_TRUE(line.xon_xoff_input);
  EXPECT_EQ(line.xon, 0x11);
  EXPECT_EQ(line.xoff, 0x13);
}

TEST_P(SerialTest, HardwareWinsOverXonXoff) {
  SerialPeer peer;
  const SerialLine line = LineAfterOpening(peer, 3, "Hardware");
  EXPECT_TRUE(line.rts_cts);
  EXPECT_FALSE(line.xon_xoff_output);
}

TEST_P(SerialTest, NoFlowControlKeepsCtsOfAPortThatHadIt) {
  SerialPeer peer;
  SerialParams params = ParamsOf(peer.port(), GetParam());
  params.flow_control = QUIL_FLOW_HARDWARE;
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  ASSERT_EQ(quil_close(), 1);
  ASSERT_EQ(Open(peer.port()), 1);
  EXPECT_TRUE(peer.Line().rts_cts);
}

TEST_P(SerialTest, SendsFramesAndChecksTheStatus) {
  SerialPeer peer;
  ASSERT_EQ(Open(peer.port()), 1);
  std::thread printer([&peer] {
    // The digits and semicolons leave 0x31: FF ^ 31 ^ 24 ^ 68 ^ 0D.
    EXPECT_EQ(peer.ReceiveFrame(), "\x1BP0;0;0;1;0$h\r8f\x1B\\");
    EXPECT_EQ(peer.Receive(1), "\x10");
    peer.Send("\x74");
    EXPECT_EQ(peer.Receive(1), "\x05");
    peer.Send("\x64");
  });
  DocumentHeader header = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, QUIL_CHECK_STATUS), 0);
  printer.join();
}

TEST_P(SerialTest, ReceivesEveryByteAsItIs) {
  SerialPeer peer;
  EnableLog();
  ASSERT_EQ(Open(peer.port()), 1);
  peer.Send("#E20/\x01\x03\x04\n\r\x11\x13\x1A\x1C\x7F\x80\xFF\\");
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, 20);
  EXPECT_EQ(Log().back(),
            "PC <- #E20/<01><03><04><LF><CR><11><13><1A><1C><7F><80><FF>\\");
}

TEST_P(SerialTest, UnknownPort) {
  SetLastError();
  EnableLog();
  EXPECT_EQ(Open("NOPORT"), 0);
  EXPECT_EQ(LastError().error_code, 1);
  EXPECT_EQ(LastError().message, OpenError());
  // The port is the device's connection all the same.
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), -1);
  DleStatus status = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1);
  EXPECT_EQ(quil_close(), 1);
  const Strings log = Log();
  ASSERT_EQ(log.size(), 3U);
  EXPECT_EQ(log[0], "MSG Open port");
  EXPECT_EQ(log[1], "MSG " + OpenError());
  EXPECT_TRUE(log[2].starts_with("MSG READ TIMEOUT! ")) << log[2];
}

TEST_P(SerialTest, SomethingThatIsNoSerialPort) {
  const SerialPeer peer;
  const std::string last_error = SetLastError();
  EnableLog();
  EXPECT_EQ(Open(peer.no_serial_port()), 0);
  EXPECT_EQ(LastError().message, last_error);
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(Log(), (Strings{"MSG Open port",
                            "MSG Port Open OK, try set connection params...",
                            "MSG Param settings fail, closing port."}));
}

TEST_P(SerialTest, RefusedSettings) {
  SerialPeer peer;
  const std::string last_error = SetLastError();
  EnableLog();
  SerialParams params = ParamsOf(peer.port(), GetParam());
  params.data_bits = 3;
  EXPECT_EQ(quil_open_serial_ex(&params), 0);
  EXPECT_EQ(LastError().message, last_error);
  EXPECT_EQ(Log().back(), "MSG Param settings fail, closing port.");
  // The port was closed again; the refused connection is replaced.
  params.data_bits = 8;
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(quil_open_serial_ex(&params), 1);
  ExpectExchange(peer);
}

TEST_P(SerialTest, OnlyTheLowBytesOfTheSettingsCount) {
  SerialPeer peer;
  SerialParams params = ParamsOf(peer.port(), GetParam());
  params.data_bits = 0x7F00 + 8;
  params.stop_bits = 0x1200;
  params.parity = -256;
  EXPECT_EQ(quil_open_serial_ex(&params), 1);
  ExpectExchange(peer);
}

TEST_P(SerialTest, NameMayFillItsArray) {
  EXPECT_EQ(Open(std::string(sizeof(SerialParams::port_name), 'X')), 0);
  EXPECT_EQ(LastError().message, OpenError());
  EXPECT_EQ(quil_open_serial(std::string(100000, 'X').c_str(), 9600, 0), 0);
  EXPECT_EQ(quil_open_serial("", 9600, GetParam()), 0);
}

TEST_P(SerialTest, NullIsRefused) {
  const std::string last_error = SetLastError();
  EXPECT_EQ(quil_open_serial(nullptr, 9600, GetParam()), 0);
  EXPECT_EQ(quil_open_serial_ex(nullptr), 0);
  EXPECT_EQ(LastError().message, last_error);
}

TEST_P(SerialTest, SilentPrinterTimesOut) {
  SerialPeer peer;
  ASSERT_EQ(Open(peer.port()), 1);
  DleStatus status = {};
  EXPECT_GE(TimeOf([&] { EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1); }),
            milliseconds(kReplyTimeout));
}

TEST_P(SerialTest, PortVanishes) {
  {
    SerialPeer peer;
    ASSERT_EQ(Open(peer.port()), 1);
    ExpectExchange(peer);
    peer.Hangup();
  }
  const Clock::duration time = TimeOf([] {
    DleStatus status = {};
    EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1);
    Ioctl(QUIL_SEND_DLE);
    EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1);
    EXPECT_EQ(quil_close(), 1);
  });
  EXPECT_LT(time, milliseconds(2 * kReplyTimeout + 2000));
  SerialPeer another;
  ASSERT_EQ(Open(another.port()), 1);
  ExpectExchange(another);
}

TEST_P(SerialTest, SecondOpenReplacesTheConnection) {
  SerialPeer first;
  SerialPeer second;
  ASSERT_EQ(Open(first.port()), 1);
  ASSERT_EQ(Open(second.port()), 1);
  ExpectExchange(second);
}

TEST_P(SerialTest, ClosedPortCanBeOpenedAgain) {
  SerialPeer peer;
  for (int i = 0; i < 20; ++i) {
    ASSERT_EQ(Open(peer.port()), 1);
    ExpectExchange(peer);
    ASSERT_EQ(quil_close(), 1);
  }
}

TEST_P(SerialTest, ChildrenDoNotGetThePort) {
  SerialPeer peer;
  const auto before = InheritedHandles();
  ASSERT_EQ(Open(peer.port()), 1);
  EXPECT_EQ(InheritedHandles(), before);
}

TEST_P(SerialTest, IdlePortClosesWithin100Milliseconds) {
  SerialPeer peer;
  // The best of some: a busy machine may hold up any one.
  Clock::duration best = Clock::duration::max();
  for (int i = 0; i < 5; ++i) {
    ASSERT_EQ(Open(peer.port()), 1);
    ExpectExchange(peer);
    best = std::min(best, TimeOf([] { EXPECT_EQ(quil_close(), 1); }));
  }
  EXPECT_LT(best, milliseconds(100));
}

using BlockingSerialTest = SerialFixture;

TEST_F(BlockingSerialTest, LogOfAConnection) {
  SerialPeer peer;
  EnableLog();
  const SerialParams params = ParamsOf(peer.port(), kBlocking);
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  ExpectExchange(peer);
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(Log(), (Strings{"MSG Open port",
                            "MSG Port Open OK, try set connection params...",
                            "MSG Params: portname: " + peer.port() +
                                " baudrate: 9600 flowcontrol:Brak",
                            "PC -> <DLE>", "PC <- t", "MSG READ 1",
                            "MSG READ desired len", "MSG Close port"}));
}

TEST_F(BlockingSerialTest, SendingDiscardsWhatWasReceived) {
  SerialPeer peer;
  const SerialParams params = ParamsOf(peer.port(), kBlocking);
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  peer.Send("\x71");
  ASSERT_TRUE(peer.WaitForUnread(1));
  ExpectExchange(peer);
}

TEST_F(BlockingSerialTest, WhatNobodyReadsWaitsInTheLine) {
  SerialPeer peer;
  const SerialParams params = ParamsOf(peer.port(), kBlocking);
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  peer.Send(Packets(100000) + "#E20/\\");
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, 20);
}

TEST_F(BlockingSerialTest, WriteGivesUpWhenThePrinterStopsReading) {
  SerialPeer peer;
  SerialParams params = ParamsOf(peer.port(), kBlocking);
  params.write_timeout = 100;
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  // 18 bytes each; some 20 kB fill a pseudo-terminal. The last one waits for
  // 100 ms and 10 ms a byte.
  DocumentHeader header = {};
  Clock::duration time{};
  int32_t result = 0;
  for (int i = 0; i < 10000 && result == 0; ++i) {
    time = TimeOf([&] { result = Ioctl(QUIL_DOCUMENT_HEADER, &header); });
  }
  EXPECT_EQ(result, -1);
  EXPECT_GE(time, milliseconds(280));
  EXPECT_LT(time, milliseconds(280 + 2000));
  EXPECT_EQ(peer.ReceiveFrame(), "\x1BP0;0;0;1;0$h\r8f\x1B\\");
}

class ThreadedSerialTest : public SerialFixture {
 protected:
  void SetUp() override {
    SerialFixture::SetUp();
    EnableLog();
    const SerialParams params = ParamsOf(peer_.port(), kThreaded);
    ASSERT_EQ(quil_open_serial_ex(&params), 1);
  }

  SerialPeer& peer() { return peer_; }

  // Sends frames until the line is full and some more, while nobody receives.
  // Returns what was sent.
  static std::string FillLine() {
    DocumentHeader header = {};
    header.line_count = 3;
    std::string lines;
    for (auto& line : header.lines) {
      const std::string text(199, 'x');
      Fill(text, line);
      lines += text + "\r";
    }
    std::string sent;
    for (int i = 0; i < 60; ++i) {
      header.header_integer = i;
      EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header), 0);
      const std::string start = "0;3;0;1;" + std::to_string(i) + "$h";
      sent += "\x1BP" + Summed(start + lines + "\r") + "\x1B\\";
    }
    return sent;
  }

 private:
  SerialPeer peer_;
};

TEST_F(ThreadedSerialTest, LogOfAConnection) {
  ASSERT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  folder().WaitForEntry("MSG WRITE ASYNC");
  EXPECT_EQ(peer().Receive(1), "\x10");
  peer().Send("\x74");
  DleStatus status = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), 0);
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(Log(),
            (Strings{"MSG Open port",
                     "MSG Port Open OK, try set connection params...",
                     "MSG Params: portname: " + peer().port() +
                         " baudrate: 9600 flowcontrol:Brak threaded:1",
                     "PC -> <DLE>", "MSG WRITE ASYNC", "PC <- t", "MSG READ 1",
                     "MSG READ desired len", "MSG Close port"}));
}

TEST_F(ThreadedSerialTest, MebibyteThatNobodyReads) {
  peer().Send(Packets(1048576) + "#E20/\\");
  ASSERT_TRUE(peer().WaitForUnread(0));
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, 20);
}

TEST_F(ThreadedSerialTest, ReplacedConnectionKeepsReading) {
  SerialPeer another;
  const SerialParams params = ParamsOf(another.port(), kThreaded);
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  ASSERT_EQ(quil_close(), 1);
  // More than a line holds that nobody reads.
  peer().Send(std::string(200000, 'x'));
  EXPECT_TRUE(peer().WaitForUnread(0));
}

TEST_F(ThreadedSerialTest, KeepsTheOrderWhenThePrinterStopsReading) {
  const std::string sent = FillLine();
  EXPECT_EQ(peer().Receive(sent.size()), sent);
}

TEST_F(ThreadedSerialTest, SendingWaitsAMomentForAWriterThatIsHeldUp) {
  FillLine();
  // Between the last two frames stand the waits for the queue.
  Strings log = Log();
  const auto is_frame = [](const std::string& entry) {
    return entry.starts_with("PC -> ");
  };
  const auto last = std::find_if(log.rbegin(), log.rend(), is_frame);
  const auto before = std::find_if(std::next(last), log.rend(), is_frame);
  EXPECT_EQ(Strings(std::next(last), before),
            Strings(20, "MSG OutQueue waiting"));
}

TEST_F(ThreadedSerialTest, PortThatIsHeldUpClosesWithinASecond) {
  FillLine();
  EXPECT_LT(TimeOf([] { EXPECT_EQ(quil_close(), 1); }), milliseconds(1000));
  EXPECT_EQ(Log().back(), "MSG Close port");
}

}  // namespace
}  // namespace quilon::testing
