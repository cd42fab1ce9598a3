// The frames of the self-test, without the time for which it shows the versions
// on the display.
#include "src/api/self_test.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/checksum.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

std::string Frame(const std::string& body) { return "\x1BP" + body + "\x1B\\"; }

// A printer in memory: what it answers to which request, what it was sent and
// how often it was read from.
struct Printer {
  std::map<std::string, std::string> answers;
  std::vector<std::string> frames;
  int read_count = 0;
};

class PrinterComm final : public BaseComm {
 public:
  explicit PrinterComm(Printer* printer) : printer_(*printer) {}

  void Close() override {}
  bool IsOpen() const override { return true; }

  int32_t Read(void* buffer, int32_t count, uint32_t /*patience*/) override {
    ++printer_.read_count;
    const size_t length =
        unread_.copy(static_cast<char*>(buffer), static_cast<size_t>(count));
    unread_.erase(0, length);
    return static_cast<int32_t>(length);
  }

  Written Write(const void* buffer, int32_t count) override {
    printer_.frames.emplace_back(static_cast<const char*>(buffer),
                                 static_cast<size_t>(count));
    const auto answer = printer_.answers.find(printer_.frames.back());
    if (answer != printer_.answers.end()) {
      unread_ += answer->second;
    }
    return Written::kYes;
  }

  bool Purge() override { return false; }
  void Interrupt() override {}

 private:
  Printer& printer_;
  std::string unread_;
};

class SelfTestTest : public ::testing::Test {
 protected:
  SelfTestTest() {
    driver_.device = &device_;
    device_.Attach(std::make_unique<PrinterComm>(&printer_));
    device_.set_reply_timeout(1);
  }

  void Answer(const std::string& request, const std::string& answer) {
    printer_.answers[Frame(request)] = Frame(answer);
  }

  // Runs the self-test and returns the frames that the printer was sent.
  std::vector<std::string> Run() {
    RunSelfTest(&driver_, 0);
    return std::exchange(printer_.frames, {});
  }

  Printer printer_;
  OnlineFDev device_{0};
  Driver driver_;
};

// What differs in the frames of the self-test: texts in the printer's code
// page.
struct Told {
  std::string port;
  std::string name;
  std::string version;
  std::string unique_number;
  std::string capacity = "0";
  std::string free_space = "0";
};

std::vector<std::string> FramesOf(const Told& told) {
  const auto line = [](const std::string& text) {
    return Frame(Summed("200;0;0;0;0;0;0$w" + text + "\r"));
  };
  return {
      Frame("23#s"),
      Frame("50$i"),
      Frame("#v"),
      Frame("210#s"),
      Frame("2$d\f\r\nWersja sterownika: \r\nQUILON DLL 1.450\r\n"
            "Wersja urz\x86"
            "dzenia: \r\n" +
            told.name + " " + told.version + "\r\n"),
      Frame("3$d"),
      // "0;200;0;0;0;" has six "0", five ";" and a "2": FF ^ 3B = C4, ^ 32 =
      // F6, ^ 24 '$' = D2, ^ 77 'w' = A5, ^ 0D = A8.
      Frame("0;200;0;0;0;$w\ra8"),
      line("Wydruk testowy"),
      line("Wersja sterownika: QUILON DLL 1.450"),
      line("Port komunikacyjny: " + told.port),
      line("Nazwa urz\x86"
           "dzenia: " +
           told.name),
      line("Wersja: " + told.version),
      line("Numer unikatowy:  " + told.unique_number),
      line("Pojemno\x9E\x8D PM:  " + told.capacity),
      line("Ilo\x9E\x8D wolnego miejsca w PM:  " + told.free_space),
      // "1;200;0;0" has a "1", three ";", a "2" and four "0": FF ^ 31 = CE, ^
      // 3B = F5, ^ 32 = C7, ^ 24 '$' = E3, ^ 77 'w' = 94.
      Frame("1;200;0;0$w94"),
  };
}

constexpr char kIdentity[] =
    "#X1;2;3;4;5;6;7;8;9/0.00/0.00/0.00/0.00/0.00/0.00/0.00/16/0.00/0.00/0.00/"
    "0.00/0.00/0.00/0.00/0.00/ABC1234567890";

TEST_F(SelfTestTest, PrintsWhatThePrinterTells) {
  Answer("23#s", kIdentity);
  Answer("50$i", "$ICOM1/");
  Answer("#v", "#RPrinter One/2.01");
  Answer("210#s", "#Xone/two/3/4/-1830/2147483647/");
  const Told told = {"COM1",          "Printer One", "2.01",
                     "ABC1234567890", "2147483647",  "-1830"};
  EXPECT_EQ(Run(), FramesOf(told));

  // Its own texts are CP1250 whatever the application's are.
  device_.set_text_encoding(TextEncoding::kUtf8);
  EXPECT_EQ(Run(), FramesOf(told));
}

TEST_F(SelfTestTest, TakesEveryStepWithASilentPrinter) {
  EXPECT_EQ(Run(), FramesOf({}));
}

TEST_F(SelfTestTest, WaitsForASilentPrinterFourTimes) {
  // A time-out of -1 ms is over when the clock has not moved yet: each wait
  // looks once.
  device_.set_reply_timeout(static_cast<uint32_t>(-1));
  Run();
  EXPECT_EQ(printer_.read_count, 4);

  constexpr int kReplyTimeout = 200;
  device_.set_reply_timeout(kReplyTimeout);
  const auto start = steady_clock::now();
  Run();
  const auto elapsed = steady_clock::now() - start;
  EXPECT_GE(elapsed, milliseconds(4 * kReplyTimeout));
  // A wait for each of the sixteen frames would take 3200 ms.
  EXPECT_LT(elapsed, milliseconds(4 * kReplyTimeout + 2000));
}

TEST_F(SelfTestTest, BrokenAnswersStopNothing) {
  Answer("23#s", "#Xnone");
  Answer("50$i", "$I");
  Answer("#v", "#Z");
  Answer("210#s", "#Xone/two/none/4/5/6/");
  // The port's text is what stands up to the end of its packet.
  EXPECT_EQ(Run(), FramesOf({.port = "\x1B\\"}));
}

TEST_F(SelfTestTest, OneAnswerIsEnoughForItsLine) {
  Answer("210#s", "#Xone/two/3/4/5/6/");
  EXPECT_EQ(Run(), FramesOf({.capacity = "6", .free_space = "5"}));
}

TEST_F(SelfTestTest, LongTextsAreCut) {
  Answer("#v", "#R" + std::string(99, 'n') + "/" + std::string(9, 'v'));
  std::vector<std::string> expected =
      FramesOf({.name = std::string(99, 'n'), .version = "vvvvvvvvv"});
  // A line holds 64 characters, and "Nazwa urządzenia: " are 18 of them.
  expected[10] =
      Frame(Summed("200;0;0;0;0;0;0$wNazwa urz\x86"
                   "dzenia: " +
                   std::string(46, 'n') + "\r"));
  EXPECT_EQ(Run(), expected);
}

TEST_F(SelfTestTest, WithoutConnectionNothingHappens) {
  device_.Close();
  EXPECT_EQ(Run(), std::vector<std::string>());
}

}  // namespace
}  // namespace quilon::testing
