// A TCP connection that the printer does not read: a cut frame is no frame, and
// nothing may follow it.
#include <chrono>
#include <memory>
#include <thread>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/time_limit.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// Sends numbered headers of some 600 bytes.
class Headers {
 public:
  Headers() {
    header_.line_count = 3;
    for (auto& line : header_.lines) {
      const std::string text(199, 'x');
      Fill(text, line);
      lines_ += text + "\r";
    }
  }

  // Sends the next one; returns quil_ioctrl's result.
  int32_t Send() {
    header_.header_integer = next_++;
    const std::string start =
        "0;3;0;1;" + std::to_string(header_.header_integer) + "$h";
    last_ = "\x1BP" + Summed(start + lines_ + "\r") + "\x1B\\";
    const int32_t result = Ioctl(QUIL_DOCUMENT_HEADER, &header_);
    if (result == 0) {
      sent_ += last_;
    }
    return result;
  }

  // Those whose calls succeeded, and the last one, whatever became of it.
  const std::string& sent() const { return sent_; }
  const std::string& last() const { return last_; }

 private:
  DocumentHeader header_ = {};
  std::string lines_;
  int32_t next_ = 1;
  std::string sent_;
  std::string last_;
};

class StalledConnectionTest : public DriverTest {
 protected:
  // A printer that does not read: sends until a call fails.
  void SendUntilFailure(Headers* headers) {
    int32_t result = 0;
    steady_clock::duration time{};
    for (int i = 0; i < 100000 && result == 0; ++i) {
      time = TimeOf([&] { result = headers->Send(); });
    }
    ASSERT_EQ(result, -1);
    // It waited for room in vain.
    EXPECT_GE(time, seconds(9));
    EXPECT_LT(time, seconds(13));
  }

  // Everything that came until the driver closed the connection.
  std::string Rest() { return peer().Receive(SIZE_MAX); }

 private:
  TimeLimit limit_{seconds(90)};
};

TEST_F(StalledConnectionTest, FrameThatIsCutFailsItsCall) {
  Headers headers;
  SendUntilFailure(&headers);
  EXPECT_EQ(quil_close(), 1);
  const std::string received = Rest();
  // Every call that succeeded handed over its frame whole; behind them stands
  // at most the beginning of the one that failed.
  EXPECT_GE(received.size(), headers.sent().size());
  EXPECT_TRUE((headers.sent() + headers.last()).starts_with(received));
  // The next connection is a sound one.
  Connect();
  ExpectNothingSent();
}

TEST_F(StalledConnectionTest, NothingFollowsTheFrameThatWasCut) {
  constexpr uint32_t kLongTimeout = 3000;
  Connect(kLongTimeout);
  Headers headers;
  SendUntilFailure(&headers);
  // The printer reads again: there is room, and the connection stays broken.
  std::string received = peer().Receive(headers.sent().size());
  DocumentShortEnd short_end = {};
  DocumentEnd end = {};
  DleStatus dle = {};
  EnqStatus enq = {};
  ErrorNumber error = {};
  const std::pair<int32_t, void*> commands[] = {
      {QUIL_SEND_DLE, nullptr},
      {QUIL_SEND_ENQ, nullptr},
      {QUIL_SEND_ERROR_NUMBER, nullptr},
      {QUIL_SEND_EXTENDED_STATUS, nullptr},
      {QUIL_DOCUMENT_SHORT_END, &short_end},
      {QUIL_DOCUMENT_END, &end},
      {QUIL_READ_DLE, &dle},
      {QUIL_READ_ENQ, &enq},
      {QUIL_READ_ERROR_NUMBER, &error}};
  for (const auto& [code, record] : commands) {
    SCOPED_TRACE(code);
    ExpectAtOnce([c = code, r = record] { EXPECT_EQ(Ioctl(c, r), -1); });
  }
  ExpectAtOnce(
      [] { EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1); });
  ExpectAtOnce([] {
    DocumentHeader header = {};
    EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, QUIL_COMPARE_TOTALS), -1);
  });
  PrinterVersion version = {};
  ExpectAtOnce([&] { EXPECT_EQ(quil_prn_version(&version), 1); });
  EXPECT_STREQ(version.name, "");
  const auto document = std::make_unique<WholeDocument>();
  ExpectAtOnce(
      [&] { EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document.get()), -1); });
  EXPECT_EQ(quil_close(), 1);
  received += Rest();
  EXPECT_TRUE((headers.sent() + headers.last()).starts_with(received))
      << "behind the cut frame: "
      << received.substr(std::min(headers.sent().size(), received.size()));
}

TEST_F(StalledConnectionTest, PrinterThatReadsAgainInTimeGetsEveryFrame) {
  constexpr size_t kEnough = size_t{8} << 20;  // more than any buffer holds
  std::string received;
  std::thread printer([&] {
    std::this_thread::sleep_for(seconds(2));
    received = peer().Receive(SIZE_MAX);
  });
  Headers headers;
  while (headers.sent().size() < kEnough && headers.Send() == 0) {
  }
  EXPECT_GE(headers.sent().size(), kEnough);
  EXPECT_EQ(quil_close(), 1);
  printer.join();
  EXPECT_TRUE(received == headers.sent());
}

}  // namespace
}  // namespace quilon::testing
