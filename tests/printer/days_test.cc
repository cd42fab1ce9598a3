// Random days: whatever is sold, the books, the totals that clients ask for,
// the blocks and the paper tell the same; whatever is refused changes nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

constexpr const char* kCancel = "0$e";

// "12.05"
std::string Wire(int64_t grosze) {
  const std::string fraction = std::to_string(grosze % 100);
  return std::to_string(grosze / 100) + "." + (fraction.size() < 2 ? "0" : "") +
         fraction;
}

// The name at the left and the amount or number at the right margin.
std::string Row(const std::string& name, const std::string& right,
                size_t name_width) {
  return name + std::string(Paper::kWidth - name_width - right.size(), ' ') +
         right;
}

std::string AmountRow(const std::string& name, int64_t grosze) {
  std::string text = Wire(grosze);
  std::replace(text.begin(), text.end(), '.', ',');
  return Row(name, text, name.size());
}

// What should be in the books of one series; kept apart from the printer.
struct Account {
  Totals totals{};
  int32_t count = 0;

  int64_t sum() const {
    int64_t all = 0;
    for (const int64_t total : totals) {
      all += total;
    }
    return all;
  }
};

class Days : public testing::Test, public Bench {
 protected:
  int64_t Random(int64_t least, int64_t most) {
    return std::uniform_int_distribution<int64_t>(least, most)(random_);
  }

  void Obeyed(const std::string& command) {
    ASSERT_EQ(Verdict(command), 0)
        << command << ": " << heard.back().reason.english;
  }

  void Open(bool invoice) {
    Obeyed(invoice
               ? "1;0;1;0;0;0;0;0;0;0;0$h" + std::to_string(++invoice_number_) +
                     "\r\rJan Nowak\r\r\r\r\r\r"
               : "0;0;0;1;0$h\r");
  }

  // One to five lines at one rate, at times with a discount of 10 percent on
  // all; paid in cash, at times with too much, or by card.
  void SellOrCancel() {
    const bool invoice = Random(0, 3) == 0;
    const auto rate = static_cast<size_t>(Random(0, 6));
    const std::string letter(1, static_cast<char>('A' + rate));
    int64_t total = 0;
    Open(invoice);
    for (int64_t left = Random(1, 5); left > 0; --left) {
      const int64_t price = Random(1, 99'999);
      const int64_t count = Random(1, 9);
      std::ostringstream item;
      item << "1;0;0^lTowar " << letter << left << '\r' << count << '\r'
           << letter << '/' << Wire(price) << '/' << Wire(price * count) << '/';
      Obeyed(item.str());
      total += price * count;
    }
    if (Random(0, 9) == 0) {
      Obeyed(kCancel);
      ++cancelled_;
      return;
    }
    const bool discount = total > 9 && Random(0, 2) == 0;
    // A tenth of the total, rounded half up.
    const int64_t sold = discount ? total - (total + 5) / 10 : total;
    const bool card = Random(0, 1) == 0;
    const int64_t paid = card ? sold : sold + Random(0, 500);
    Obeyed((card ? "7$d" : "6$d") + Wire(paid) + "/1\r\r");
    Obeyed(std::string("1;0;0;0;") + (discount ? "1" : "0") + ";0$e\r0/" +
           Wire(total) + (discount ? "/10/" : "/0/"));
    for (Account* account :
         {invoice ? &invoices_ : &receipts_, invoice ? &day_[1] : &day_[0]}) {
      account->totals.at(rate) += sold;
      ++account->count;
    }
    cash_ += card ? 0 : sold;
  }

  // The fields of an answer between "/".
  std::vector<std::string> Ask(const std::string& query) {
    std::istringstream answer(Hear(Bare(query)));
    std::vector<std::string> fields;
    for (std::string field; std::getline(answer, field, '/');) {
      fields.push_back(field);
    }
    return fields;
  }

  void ExpectTotals(const std::string& query, const Account& account) {
    constexpr size_t kReports = 8;
    constexpr size_t kCount = 16;
    const std::vector<std::string> told = Ask(query);
    ASSERT_EQ(told.size(), 26U);
    EXPECT_EQ(told[kReports], std::to_string(reports_));
    EXPECT_EQ(told[kCount], std::to_string(account.count));
    for (size_t rate = 0; rate < kRateCount; ++rate) {
      EXPECT_EQ(told[kCount + 1 + rate], Wire(account.totals.at(rate)));
    }
    EXPECT_EQ(told[kCount + 1 + kRateCount], Wire(account.sum()));
  }

  void ExpectAllTellTheSame() {
    ExpectTotals("23#s", receipts_);
    ExpectTotals("22#s", invoices_);
    const std::vector<std::string> counters = Ask("43$i");
    EXPECT_TRUE(counters.at(0).ends_with(std::to_string(receipts_.count)));
    EXPECT_EQ(counters.at(1), std::to_string(invoices_.count));
    EXPECT_EQ(counters.at(2), std::to_string(cancelled_));
    EXPECT_EQ(counters.at(3), std::to_string(reports_));
    EXPECT_EQ(device.books.receipts, receipts_.totals);
    EXPECT_EQ(device.books.invoices, invoices_.totals);
    EXPECT_EQ(device.cash, cash_);
  }

  void Report() {
    NewPaper();
    Obeyed("0#r");
    ++reports_;
    const std::vector<std::string> paper = NewPaper();
    EXPECT_THAT(paper,
                Contains(AmountRow("SUMA PLN", day_[0].sum() + day_[1].sum())));
    EXPECT_THAT(paper,
                Contains(Row("Paragony", std::to_string(day_[0].count), 8)));
    EXPECT_THAT(paper,
                Contains(Row("Faktury", std::to_string(day_[1].count), 7)));
    day_[0] = day_[1] = {};
  }

  void PlayDays(int days, int64_t most_documents) {
    for (int day = 0; day < days && !HasFatalFailure(); ++day) {
      for (int64_t n = Random(1, most_documents); n > 0; --n) {
        SellOrCancel();
      }
      Report();
      ExpectAllTellTheSame();
      now += std::chrono::days(1);
    }
    NewPaper();
    Obeyed("3$o");
    EXPECT_THAT(
        NewPaper(),
        Contains(AmountRow("SUMA PLN", receipts_.sum() + invoices_.sum())));
  }

 private:
  // The same days every time.
  std::mt19937 random_{20'240'131};  // NOLINT(cert-msc51-cpp)
  Account receipts_;
  Account invoices_;
  Account day_[2];  // of receipts and of invoices, since the last daily report
  int32_t cancelled_ = 0;
  int32_t reports_ = 0;
  int64_t cash_ = 0;
  int64_t invoice_number_ = 0;
};

TEST_F(Days, ADayOfManyDocumentsAddsUp) { PlayDays(1, 500); }

TEST_F(Days, AYearOfDaysAddsUp) { PlayDays(365, 5); }

TEST_F(Days, WhatIsRefusedChangesNothing) {
  const std::vector<std::string> commands = {
      "0;0;0;1;0$h\r",
      "1;0;1;0;0;0;0;0;0;0;0$h17\r1234563218\rJan\r\r\r\r\r\r",
      "1;1;0^lChleb\r2\rA/4.50/9/1/rabat\r",
      "1;0;0^lChleb\r2\rA/4.50/9/",
      "1$l7\r3\rP/0.50/1.50/",
      "6$d5/1\r\r",
      "1;2$Y9/2/podsuma\r",
      "1;0;0;0;0;0$e\r9/9/0/",
      "0;0;0;0;0;1;0;0;0$e\r\r\r\r9/0/",
      "0$e",
      "0#r",
      "24;1;31;12;6;0$c\r\r",
      "2$p\r\r2300/800/0/0/0/0/0/",
      "100;1$zSklep\r",
      "7#pJan\r\r",
      "0#qJan\r\r",
      "0#i5/",
      "0#d5/",
      "0;0;0;0;0;$w\r",
      "1;0;0;0$w\r",
      "0;0@A1/2/plik\r5c\r",
      "0;^F0/10/0/10/0008000180\r7/",
      "31;1;24;31;1;24;2#o",
      "@PR1/1/a\rb\r",
      "5#kranna\r\r"};
  const std::string letters = "0123456789;/\r.-AaHP $#^";
  int refused = 0;
  for (int i = 0; i < 3'000; ++i) {
    std::string command = commands.at(static_cast<size_t>(
        Random(0, static_cast<int64_t>(commands.size()) - 1)));
    for (int64_t changes = Random(0, 2); changes > 0; --changes) {
      const auto place = static_cast<size_t>(
          Random(0, static_cast<int64_t>(command.size()) - 1));
      command[place] = letters[static_cast<size_t>(
          Random(0, static_cast<int64_t>(letters.size()) - 1))];
    }
    const std::string before = Knowledge();
    NewPaper();
    if (Verdict(command) != 0) {
      ++refused;
      ASSERT_EQ(Knowledge(), before) << command;
      ASSERT_THAT(NewPaper(), IsEmpty()) << command;
    }
    if (Random(0, 199) == 0) {
      now += std::chrono::hours(11);
    }
  }
  // Neither all nor none.
  EXPECT_GT(refused, 300);
  EXPECT_LT(refused, 2'700);
}

}  // namespace
}  // namespace quilon::printer
