#include "printer/web/journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quilon::printer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// "kind json" of each; a printout's and an exchange's JSON is left out.
std::vector<std::string> Told(const Journal& journal, uint64_t since = 0) {
  std::vector<std::string> texts;
  for (const Journal::News& news : journal.Since(since)) {
    const bool short_one = news.kind == "line" || news.kind == "torn";
    texts.push_back(short_one ? news.kind + " " + news.json : news.kind);
  }
  return texts;
}

Printout NumberedPrintout(int64_t number) {
  Printout result;
  result.number = number;
  result.lines.push_back({"line of " + std::to_string(number)});
  return result;
}

Exchange Frame(const std::string& body) {
  Exchange exchange;
  exchange.event = {Event::Kind::kFrame, body};
  return exchange;
}

TEST(Journal, TellsTheNewsInOrder) {
  Journal journal;
  EXPECT_THAT(Told(journal), IsEmpty());
  journal.OnStatus({});
  journal.OnLine({"a \"quoted\"\tline"});
  journal.OnExchange(Frame("0$e"));
  EXPECT_THAT(
      Told(journal),
      ElementsAre("status", R"(line "a \"quoted\"\tline")", "exchange"));
  EXPECT_THAT(Told(journal, 2), ElementsAre("exchange"));
  EXPECT_THAT(Told(journal, 3), IsEmpty());
}

TEST(Journal, ReplacesTheLinesOfAPrintoutByTheWhole) {
  Journal journal;
  journal.OnLine({"one"});
  journal.OnLine({"two"});
  journal.OnPrintout(NumberedPrintout(1));
  journal.OnLine({"three"});
  EXPECT_THAT(Told(journal), ElementsAre("printout", "line \"three\""));
  ASSERT_TRUE(journal.FindPrintout(1).has_value());
  EXPECT_THAT(journal.FindPrintout(1)->lines,
              ElementsAre(testing::Field(&PaperLine::text, "line of 1")));
  EXPECT_FALSE(journal.FindPrintout(2).has_value());
}

TEST(Journal, TearsOffWhatIsFinished) {
  Journal journal;
  journal.OnPrintout(NumberedPrintout(1));
  journal.OnLine({"open"});
  journal.TearOff();
  EXPECT_THAT(Told(journal), ElementsAre("line \"open\"", "torn {}"));
  EXPECT_FALSE(journal.FindPrintout(1).has_value());
}

TEST(Journal, KeepsOnlyTheNewestStatus) {
  Journal journal;
  Status status;
  journal.OnStatus(status);
  status.online = false;
  journal.OnStatus(status);
  ASSERT_EQ(journal.Since(0).size(), 1U);
  EXPECT_EQ(journal.Since(0)[0].id, 2U);
  EXPECT_THAT(journal.Since(0)[0].json, testing::HasSubstr("\"online\":false"));
}

TEST(Journal, ForgetsTheOldest) {
  Journal journal;
  for (int i = 1; i <= 1500; ++i) {
    journal.OnExchange(Frame("0$e"));
    journal.OnLine({"x"});
  }
  // 3000 pieces of news, by turns an exchange and a line: of the exchanges the
  // last 500 are kept, of the lines the last 1000, from the 1002nd piece on.
  EXPECT_EQ(journal.Since(0).size(), 1500U);
  EXPECT_EQ(journal.Since(0).front().id, 1002U);
  for (int i = 1; i <= 250; ++i) {
    journal.OnPrintout(NumberedPrintout(i));
  }
  EXPECT_FALSE(journal.FindPrintout(50).has_value());
  EXPECT_TRUE(journal.FindPrintout(51).has_value());
  // A printout takes the lines away.
  EXPECT_EQ(journal.Since(0).size(), 700U);
}

TEST(Journal, ShortensALongFrame) {
  Journal journal;
  journal.OnExchange(Frame("2$d" + std::string(100'000, 'x')));
  EXPECT_LT(journal.Since(0)[0].json.size(), 3000U);
  EXPECT_THAT(journal.Since(0)[0].json, testing::HasSubstr("xxx …\""));
}

TEST(Journal, WakesItsListener) {
  Journal journal;
  int calls = 0;
  journal.set_listener([&] { ++calls; });
  journal.OnLine({"x"});
  journal.TearOff();
  EXPECT_EQ(calls, 2);
  journal.set_listener({});
  journal.OnLine({"x"});
  EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace quilon::printer
