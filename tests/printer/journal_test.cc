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
std::vector<std::string> told(const Journal& journal, std::uint64_t since = 0) {
  std::vector<std::string> texts;
  for (const Journal::News& news : journal.since(since)) {
    const bool short_one = news.kind == "line" || news.kind == "torn";
    texts.push_back(short_one ? news.kind + " " + news.json : news.kind);
  }
  return texts;
}

Printout printout(std::int64_t number) {
  Printout result;
  result.number = number;
  result.lines = {"line of " + std::to_string(number)};
  return result;
}

Exchange frame(const std::string& body) {
  Exchange exchange;
  exchange.event = {Event::Kind::kFrame, body};
  return exchange;
}

TEST(Journal, TellsTheNewsInOrder) {
  Journal journal;
  EXPECT_THAT(told(journal), IsEmpty());
  journal.on_status({});
  journal.on_line("a \"quoted\"\tline");
  journal.on_exchange(frame("0$e"));
  EXPECT_THAT(
      told(journal),
      ElementsAre("status", R"(line "a \"quoted\"\tline")", "exchange"));
  EXPECT_THAT(told(journal, 2), ElementsAre("exchange"));
  EXPECT_THAT(told(journal, 3), IsEmpty());
}

TEST(Journal, ReplacesTheLinesOfAPrintoutByTheWhole) {
  Journal journal;
  journal.on_line("one");
  journal.on_line("two");
  journal.on_printout(printout(1));
  journal.on_line("three");
  EXPECT_THAT(told(journal), ElementsAre("printout", "line \"three\""));
  ASSERT_TRUE(journal.printout(1).has_value());
  EXPECT_THAT(journal.printout(1)->lines, ElementsAre("line of 1"));
  EXPECT_FALSE(journal.printout(2).has_value());
}

TEST(Journal, TearsOffWhatIsFinished) {
  Journal journal;
  journal.on_printout(printout(1));
  journal.on_line("open");
  journal.tear_off();
  EXPECT_THAT(told(journal), ElementsAre("line \"open\"", "torn {}"));
  EXPECT_FALSE(journal.printout(1).has_value());
}

TEST(Journal, KeepsOnlyTheNewestStatus) {
  Journal journal;
  Status status;
  journal.on_status(status);
  status.online = false;
  journal.on_status(status);
  ASSERT_EQ(journal.since(0).size(), 1U);
  EXPECT_EQ(journal.since(0)[0].id, 2U);
  EXPECT_THAT(journal.since(0)[0].json, testing::HasSubstr("\"online\":false"));
}

TEST(Journal, ForgetsTheOldest) {
  Journal journal;
  for (int i = 1; i <= 1500; ++i) {
    journal.on_exchange(frame("0$e"));
    journal.on_line("x");
  }
  // 3000 pieces of news, of which the last 1000 of both kinds are kept.
  EXPECT_EQ(journal.since(0).size(), 2000U);
  EXPECT_EQ(journal.since(0).front().id, 1001U);
  for (int i = 1; i <= 250; ++i) {
    journal.on_printout(printout(i));
  }
  EXPECT_FALSE(journal.printout(50).has_value());
  EXPECT_TRUE(journal.printout(51).has_value());
  EXPECT_EQ(journal.since(0).size(), 1200U);
}

TEST(Journal, ShortensALongFrame) {
  Journal journal;
  journal.on_exchange(frame("2$d" + std::string(100'000, 'x')));
  EXPECT_LT(journal.since(0)[0].json.size(), 3000U);
  EXPECT_THAT(journal.since(0)[0].json, testing::HasSubstr("xxx …\""));
}

TEST(Journal, WakesItsListener) {
  Journal journal;
  int calls = 0;
  journal.set_listener([&] { ++calls; });
  journal.on_line("x");
  journal.tear_off();
  EXPECT_EQ(calls, 2);
  journal.set_listener({});
  journal.on_line("x");
  EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace quilon::printer
