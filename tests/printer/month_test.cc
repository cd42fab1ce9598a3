// A month of thirty days, each with its daily report, and its sum.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "printer/watch/value_json.h"
#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

std::chrono::local_seconds InApril(int day, int hour) {
  return std::chrono::local_days(std::chrono::year(2024) / 4 / 1) +
         std::chrono::days(day - 1) + std::chrono::hours(hour);
}

// "12.05" in grosze.
int64_t Grosze(const json& amount) {
  auto text = amount.get<std::string>();
  std::erase(text, '.');
  return std::stoll(text);
}

// "12.05"
std::string Wire(int64_t grosze) {
  const int64_t fraction = grosze % 100;
  return std::to_string(grosze / 100) + (fraction < 10 ? ".0" : ".") +
         std::to_string(fraction);
}

struct Month : testing::Test, Bench {
  Month() {
    device.paper.set_sinks(
        [this](const PaperLine& printed) { paper.push_back(printed.text); },
        [this](const Printout& printout) {
          value = json::parse(ValueJson(printout));
        });
  }

  void Obeyed(const std::string& command) {
    ASSERT_EQ(Verdict(command), 0)
        << command << ": " << heard.back().reason.english;
  }

  // At A so many rolls as the day has a number, at 1.23; at B bread for 1.00;
  // every tenth day cheese for 9.00 by invoice, at C; every fifth a receipt
  // that is given up.
  void Trade(int day) {
    const std::string number = std::to_string(day);
    const int64_t rolls = int64_t{123} * day;
    Obeyed("0;0;0;1;0$h\r");
    Obeyed("1;0;0^lRoll\r" + number + "\rA/1.23/" + Wire(rolls) + "/");
    Obeyed("1;0;0^lBread\r1\rB/1/1/");
    Obeyed("1;0;0;0;0;0$e\r0/" + Wire(rolls + 100) + "/0/");
    if (day % 10 == 0) {
      Obeyed("1;0;1;0;0;0;0;0;0;0;0$hFV " + number + "\r\rJan\r\r\r\r\r\r");
      Obeyed("1;0;0^lCheese\r2\rC/4.50/9/");
      Obeyed("1;0;0;0;0;0$e\r0/9/0/");
    }
    if (day % 5 == 0) {
      Obeyed("0;0;0;1;0$h\r");
      Obeyed("1;0;0^lBread\r1\rB/1/1/");
      Obeyed("0$e");
    }
  }

  std::vector<std::string> paper;
  json value;  // of the newest printout
};

TEST_F(Month, SumsUpItsDays) {
  int64_t total = 0;
  int64_t tax = 0;
  for (int day = 1; day <= 30; ++day) {
    now = InApril(day, 12);
    Trade(day);
    now = InApril(day, 22);
    Obeyed("0#r");
    ASSERT_EQ(value.at("report"), "daily");
    ASSERT_EQ(value.at("number"), day);
    total += Grosze(value.at("total"));
    tax += Grosze(value.at("tax"));
  }
  // 1 May is another month.
  now = InApril(31, 12);
  Trade(31);
  now = InApril(31, 22);
  Obeyed("0#r");

  // 1 + 2 + ... + 30 = 465 rolls are 571.95, in which 106.95 are tax: on each
  // day exactly 0.23 a roll. In 1.00 of bread are 0.07 of tax (0.0741), thirty
  // times 2.10, not the 2.22 that are in 30.00. In 9.00 of cheese are 0.43.
  EXPECT_EQ(total, 57195 + 3000 + 2700);
  EXPECT_EQ(tax, 10695 + 210 + 129);
  for (const char* report : {"1;4;24;30;4;24;2#o", "2#o1/30/"}) {
    paper.clear();
    Obeyed(report);
    EXPECT_EQ(value.at("report"), "periodic");
    EXPECT_EQ(Grosze(value.at("total")), total);
    EXPECT_EQ(Grosze(value.at("tax")), tax);
    EXPECT_THAT(paper, testing::IsSupersetOf({
                           "Raporty dobowe                    1 - 30",
                           "Netto A                           465,00",
                           "PTU A                             106,95",
                           "Netto B                            27,90",
                           "PTU B                               2,10",
                           "Netto C                            25,71",
                           "PTU C                               1,29",
                           "SUMA PTU                          110,34",
                           "SUMA PLN                          628,95",
                           "Paragony                              30",
                           "Faktury                                3",
                           "Anulowane                              6",
                       }));
  }
  // The totals for good know the first of May, too: 31 x 1.23 and 1.00.
  EXPECT_EQ(SumOf(device.books.receipts) + SumOf(device.books.invoices),
            total + 3813 + 100);
}

}  // namespace
}  // namespace quilon::printer
