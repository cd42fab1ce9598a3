// Answers that come late, in pieces, broken, endless or not at all.
#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class ExchangeTest : public DriverTest {
 protected:
  // Reads the error number while `peer_work` runs; returns quil_ioctrl's
  // result.
  template <typename Work>
  int32_t ReadNumberWhile(Work peer_work) {
    std::thread thread(peer_work);
    const auto start = steady_clock::now();
    const int32_t result = Ioctl(QUIL_READ_ERROR_NUMBER, &error_);
    elapsed_ = steady_clock::now() - start;
    thread.join();
    return result;
  }

  ErrorNumber error_ = {-7};
  steady_clock::duration elapsed_ = {};
};

TEST_F(ExchangeTest, SilenceEndsWithTheTimeOut) {
  const auto start = steady_clock::now();
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), -1);
  const auto elapsed = steady_clock::now() - start;
  EXPECT_GT(elapsed, milliseconds(kReplyTimeout));
  EXPECT_LT(elapsed, milliseconds(kReplyTimeout * 5));
}

TEST_F(ExchangeTest, TimeOutOfZeroEndsWithTheFirstPauses) {
  Connect(0);
  const auto start = steady_clock::now();
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), -1);
  EXPECT_LT(steady_clock::now() - start, milliseconds(kReplyTimeout * 5));
  // What is there already is read all the same.
  peer().Send("\x74");
  DleStatus dle = {};
  for (int i = 0; i < 1000 && dle.valid == 0; ++i) {
    Ioctl(QUIL_READ_DLE, &dle);
  }
  EXPECT_EQ(dle.valid, 1);
}

TEST_F(ExchangeTest, LargestTimeOutsAreNegativeAndDoNotHang) {
  Connect(0xFFFFFFFF);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), -1);
}

TEST_F(ExchangeTest, EveryByteStartsTheTimeOutAnew) {
  EXPECT_EQ(ReadNumberWhile([this] {
              for (const char byte : std::string("#E123/\\")) {
                std::this_thread::sleep_for(milliseconds(kReplyTimeout / 3));
                peer().Send({&byte, 1});
              }
            }),
            0);
  EXPECT_EQ(error_.number, 123);
  EXPECT_GT(elapsed_, milliseconds(kReplyTimeout * 2));
}

TEST_F(ExchangeTest, ReplyCutShortIsReadUpToWhereItEnds) {
  EXPECT_EQ(ReadNumberWhile([this] { peer().Send("#E12"); }), 0);
  EXPECT_EQ(error_.number, 12);
  EXPECT_GT(elapsed_, milliseconds(kReplyTimeout));
}

TEST_F(ExchangeTest, BytesBehindThePacketWaitForTheNextRead) {
  peer().Send("#E1/\\#E2/\\\x74#E3/\\");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 1);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 2);
  DleStatus dle = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &dle), 0);
  EXPECT_EQ(dle.online, 1);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 3);
}

TEST_F(ExchangeTest, GarbageFailsAndTheNextCommandWorks) {
  std::string garbage;
  for (int i = 0; i < 4096; ++i) {
    garbage += static_cast<char>(i * 7919 >> 3);
  }
  garbage += '\\';
  ASSERT_EQ(garbage.find("#Z"), std::string::npos);
  peer().Send(garbage);
  for (auto packets = std::count(garbage.begin(), garbage.end(), '\\');
       packets > 0; --packets) {
    EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), -1);
  }
  Reply("#E5/");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 5);
}

TEST_F(ExchangeTest, ZeroBytesInAReplyAreBytes) {
  using std::string_literals::operator""s;
  peer().Send("\0\0#E7\0/\\"s);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 7);
}

TEST_F(ExchangeTest, PrinterThatHangsUpFails) {
  EXPECT_EQ(ReadNumberWhile([this] { peer().Hangup(); }), -1);
  EXPECT_LT(elapsed_, milliseconds(kReplyTimeout * 5));
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  EXPECT_EQ(LastError().dle.valid, 0);
  // A document does not pass for printed: the second write at the latest finds
  // the connection broken.
  DocumentHeader header = {};
  Ioctl(QUIL_DOCUMENT_HEADER, &header);
  int32_t result = 0;
  for (int i = 0; i < 100 && result == 0; ++i) {
    result = Ioctl(QUIL_DOCUMENT_HEADER, &header);
  }
  EXPECT_EQ(result, -1);
  Connect();
  Reply("#E6/");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 6);
}

TEST_F(ExchangeTest, EndlessReplyIsGivenUpAtOneMebibyte) {
  constexpr size_t kMebibyte = 1048576;
  // The first reply ends where the driver gives it up, and the second begins.
  EXPECT_EQ(ReadNumberWhile([this] {
              peer().Send("#E1/" + std::string(kMebibyte - 4, 'x'));
              peer().Send("#E2/" + std::string(kMebibyte - 4, 'y'));
              peer().Send("#E3/\\");
            }),
            0);
  EXPECT_EQ(error_.number, 1);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 2);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 3);
}

TEST_F(ExchangeTest, ReplyOfExactlyOneMebibyteIsWhole) {
  constexpr size_t kMebibyte = 1048576;
  EXPECT_EQ(
      ReadNumberWhile([this] {
        peer().Send("#E1/" + std::string(kMebibyte - 5, 'x') + "\\#E2/\\");
      }),
      0);
  EXPECT_EQ(error_.number, 1);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error_), 0);
  EXPECT_EQ(error_.number, 2);
}

TEST_F(ExchangeTest, LateEnqAnswerPassesUpToTheFourthRead) {
  // A read takes the time-out; the answer comes during the third.
  peer().Send("\x74");
  std::thread printer([this] {
    EXPECT_EQ(peer().Receive(2), "\x10\x05");
    std::this_thread::sleep_for(milliseconds(kReplyTimeout * 5 / 2));
    peer().Send("\x64");
  });
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), 0);
  printer.join();
}

TEST_F(ExchangeTest, SilentEnqEndsAfterFiveReads) {
  peer().Send("\x74");
  const auto start = steady_clock::now();
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  const auto elapsed = steady_clock::now() - start;
  EXPECT_GT(elapsed, milliseconds(kReplyTimeout * 5));
  EXPECT_LT(elapsed, milliseconds(kReplyTimeout * 9));
  EXPECT_EQ(peer().Receive(2), "\x10\x05");  // ENQ was sent once
  ExpectNothingSent();
}

}  // namespace
}  // namespace quilon::testing
