#include "printer/fiscal/strictness.h"

#include <algorithm>
#include <array>
#include <type_traits>

#include "printer/fiscal/closing.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/identity.h"
#include "printer/fiscal/report.h"
#include "printer/protocol/frame.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

// The detail is a text, or a function that makes one.
template <typename Detail = std::string>
void Demand(const Device& device, bool kept, Rule rule,
            const Detail& detail = {}) {
  if (kept || !device.strict) {
    return;
  }
  if constexpr (std::is_invocable_v<Detail>) {
    throw Refusal(rule, detail());
  } else {
    throw Refusal(rule, detail);
  }
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos;
}

bool IsControl(char c) {
  constexpr unsigned char kFirstPrintable = 0x20;
  return static_cast<unsigned char>(c) < kFirstPrintable;
}

std::chrono::local_days DayOf(std::chrono::local_seconds moment) {
  return std::chrono::floor<std::chrono::days>(moment);
}

void CheckDay(const Device& device) {
  const auto& first_sale = device.books.day.first_sale;
  Demand(device, !first_sale || DayOf(*first_sale) == DayOf(device.Now()),
         Rule::kReportDue);
  Demand(device, device.books.report_count < kFiscalMemorySize,
         Rule::kMemoryFull);
  const Books& books = device.books;
  Demand(device,
         books.receipt_count < kProtectedMemorySize - books.invoice_count,
         Rule::kProtectedMemoryFull);
}

void CheckBuyerNumber(const Device& device,
                      const std::optional<std::string>& number) {
  Demand(device, !number || IsTaxNumber(*number), Rule::kBuyerNumber,
         number.value_or(""));
}

// Of an invoice. Who has no NIP may have a name only.
void CheckBuyer(const Device& device, const Document& document) {
  const std::vector<std::string>& buyer = document.buyer;
  const bool named = !std::all_of(buyer.begin(), buyer.end(), IsBlank);
  Demand(device, named || document.buyer_number, Rule::kBuyerMissing);
  CheckBuyerNumber(device, document.buyer_number);
  Demand(device, named, Rule::kBuyerName);
  constexpr size_t kMaxText = 80;
  for (const std::string& text : buyer) {
    Demand(device, CharacterCount(text) <= kMaxText, Rule::kBuyerText, text);
  }
}

// Of a cashier or a cash desk.
void CheckClientsNumber(const Device& device, int64_t number, Rule rule) {
  constexpr int32_t kMaxNumber = 999;
  Demand(device, number >= 0 && number <= kMaxNumber, rule,
         [&] { return std::to_string(number); });
}

void CheckSurcharge(const Device& device, const Adjustment& adjustment,
                    int64_t amount) {
  Demand(device, adjustment.AppliedTo(amount) <= 2 * amount, Rule::kSurcharge,
         [&] { return adjustment.Text(); });
}

}  // namespace

bool IsTaxNumber(const std::string& text) {
  std::string digits = text.starts_with("PL") ? text.substr(2) : text;
  std::erase_if(digits, [](char c) { return c == ' ' || c == '-'; });
  constexpr std::array<int, 9> kWeights = {6, 5, 7, 2, 3, 4, 5, 6, 7};
  if (digits.size() != kWeights.size() + 1 ||
      digits.find_first_not_of("0123456789") != std::string::npos) {
    return false;
  }
  int sum = 0;
  for (size_t i = 0; i < kWeights.size(); ++i) {
    sum += kWeights.at(i) * (digits[i] - '0');
  }
  constexpr int kModulus = 11;
  return sum % kModulus == digits.back() - '0';
}

void CheckTexts(const Device& device, std::string_view fields) {
  const bool plain = std::none_of(fields.begin(), fields.end(), [](char c) {
    return IsControl(c) && c != kCr;
  });
  Demand(device, plain, Rule::kText);
  constexpr size_t kMaxText = 1000;
  while (!fields.empty()) {
    const size_t end = std::min(fields.find(kCr), fields.size());
    Demand(device, end <= kMaxText, Rule::kTextLength);
    fields.remove_prefix(std::min(end + 1, fields.size()));
  }
}

void CheckOpening(const Device& device, const Document& document) {
  CheckDay(device);
  Demand(device, !IsBlank(document.owner), Rule::kNoHeader);
  if (document.series == Series::kInvoice) {
    CheckBuyer(device, document);
    Demand(device,
           !IsBlank(document.number_text) &&
               !device.invoice_numbers.contains(document.number_text),
           Rule::kInvoiceNumber, document.number_text);
  }
}

void CheckMarks(const Device& device, const Marks& marks) {
  CheckBuyerNumber(device, marks.buyer_number);
  if (marks.cash_desk) {
    CheckCashDesk(device, *marks.cash_desk);
  }
}

void CheckClient(const Device& device) {
  Demand(
      device,
      device.document->client == 0 || device.document->client == device.client,
      Rule::kOthersDocument);
}

void CheckAdjusted(const Device& device, AdjustmentMode mode) {
  Demand(device, mode != AdjustmentMode::kNone, Rule::kNoAdjustment);
}

void CheckSign(const Device& device, std::string_view quantity, int64_t value) {
  Demand(device, !quantity.starts_with('-') && value >= 0, Rule::kTakenBack);
}

void CheckItem(const Device& device, const Item& item) {
  constexpr size_t kMaxItems = 10'000;
  constexpr size_t kMaxName = 80;
  constexpr size_t kMaxUnit = 8;
  Demand(device, device.document->items < kMaxItems, Rule::kLineCount);
  for (const std::string* name : {&item.name, &item.second_name}) {
    Demand(device, CharacterCount(*name) <= kMaxName, Rule::kItemNameForm,
           *name);
  }
  Demand(device, !IsBlank(item.name), Rule::kItemNameForm);
  Demand(device, CharacterCount(item.unit) <= kMaxUnit, Rule::kUnit, item.unit);
  Demand(device, device.rates.at(item.rate) != kUnused, Rule::kUnusedRate,
         [&] { return std::string(1, LetterOfRate(item.rate)); });
  CheckSurcharge(device, item.adjustment, item.value);
  const auto known = device.goods.find(item.name);
  Demand(device, known == device.goods.end() || known->second == item.rate,
         Rule::kSecondRate, item.name);
  constexpr size_t kMaxGoods = 100'000;
  Demand(device, known != device.goods.end() || device.goods.size() < kMaxGoods,
         Rule::kGoodsFull);
}

void CheckFurtherEntry(const Device& device) {
  constexpr size_t kMost = 1000;
  const Document& document = *device.document;
  Demand(device, document.entries.size() - document.items < kMost,
         Rule::kNoteCount);
}

void CheckSubtotal(const Device& device, int64_t subtotal) {
  const int64_t sum = SumOf(device.document->sales);
  Demand(device, subtotal == sum, Rule::kSubtotal,
         [&] { return Compared(subtotal, sum); });
}

void CheckPayment(const Device& device, const Payment& payment) {
  const Document& document = *device.document;
  Demand(device, !document.entries.empty(), Rule::kPaymentBeforeLine,
         [&] { return AmountText(payment.amount); });
  Demand(device,
         SumOf(document.payments) < SumOf(document.sales) + document.deposits,
         Rule::kPaymentAfterAll, [&] { return AmountText(payment.amount); });
}

void CheckSeries(const Device& device, Series series) {
  Demand(device, device.document->series == series, Rule::kOtherSeries);
}

void CheckClosing(const Device& device, const Closing& closing) {
  const Document& document = *device.document;
  CheckSurcharge(device, closing.adjustment, closing.total);
  const int64_t said = SumOf(closing.payments);
  const int64_t recorded = SumOf(document.payments);
  Demand(device, said == 0 || recorded == 0 || said == recorded,
         Rule::kPaidDiffers, [&] { return Compared(said, recorded); });
}

void CheckClock(const Device& device, std::chrono::local_seconds moment) {
  constexpr std::chrono::hours kFurthest{2};
  Demand(device, !device.books.day.first_sale, Rule::kSalesBeforeClock);
  Demand(device,
         device.fiscal_memory.empty() ||
             moment >= device.fiscal_memory.back().made,
         Rule::kClockBeforeRecord);
  Demand(device, std::chrono::abs(moment - device.Now()) <= kFurthest,
         Rule::kClockTooFar);
}

void CheckRates(const Device& device, const Rates& rates) {
  Demand(device, !device.books.day.first_sale, Rule::kSalesBeforeRates);
  Demand(device, rates != device.rates, Rule::kSameRates);
  Demand(device, !device.books.day.rates_changed, Rule::kRatesTwice);
  Demand(device, device.rate_changes < kMaxRateChanges, Rule::kRateChanges);
}

void CheckOwner(const Device& device, const std::string& owner) {
  Demand(device, !device.books.day.first_sale, Rule::kSalesBeforeHeader);
  Demand(device, CharacterCount(owner) <= Paper::kWidth, Rule::kHeaderText,
         owner);
}

void CheckDailyReport(const Device& device) {
  Demand(device, device.books.day != Day{}, Rule::kNothingToReport);
  Demand(device, device.books.report_count < kFiscalMemorySize,
         Rule::kMemoryFull);
}

void CheckReportDay(const Device& device,
                    std::optional<std::chrono::local_days> day) {
  Demand(device, day == DayOf(device.Now()), Rule::kReportDate);
  Demand(device,
         device.fiscal_memory.empty() ||
             DayOf(device.fiscal_memory.back().made) != day,
         Rule::kReportedDay);
}

void CheckDays(const Device& device,
               std::optional<std::chrono::local_days> first,
               std::optional<std::chrono::local_days> last) {
  Demand(device, first && last, Rule::kReportDate);
  Demand(device, first <= last, Rule::kReportRange);
}

void CheckReportNumbers(const Device& device, int64_t first, int64_t last) {
  Demand(device, first <= last, Rule::kReportRange);
}

void CheckPeriod(const Device& device, const PeriodicReport& period) {
  Demand(device, period.first_report != 0, Rule::kNoReports);
}

void CheckDocumentNumbers(const Device& device, int64_t first, int64_t last) {
  Demand(device, first <= last, Rule::kReportRange);
  Demand(device,
         first >= 1 && last <= int64_t{device.books.receipt_count} +
                                   device.books.invoice_count,
         Rule::kDocumentNumber);
}

void CheckLogIn(const Device& device, int32_t number, const std::string& name) {
  const std::string& present = device.cashier.name;
  Demand(device, !IsBlank(name), Rule::kCashierName);
  CheckClientsNumber(device, number, Rule::kCashierNumber);
  Demand(device, present.empty() || present == name, Rule::kOtherCashier,
         [&] { return MazoviaToUtf8(present); });
}

void CheckLogOut(const Device& device, const std::string& name) {
  const std::string& present = device.cashier.name;
  Demand(device, !present.empty() && present == name, Rule::kOtherCashier,
         [&] { return MazoviaToUtf8(present); });
}

void CheckCashDesk(const Device& device, int64_t number) {
  CheckClientsNumber(device, number, Rule::kCashDesk);
}

void CheckShift(const Device& device, const std::string& shift) {
  Demand(device, !IsBlank(shift), Rule::kShiftText);
}

void CheckSlip(const Device& device, size_t further_lines) {
  constexpr size_t kMaxLines = 1000;
  Demand(device, device.slip_lines + further_lines <= kMaxLines,
         Rule::kSlipLines);
}

void CheckFileName(const Device& device, const std::string& name) {
  Demand(device,
         name.find_first_of("/\\") == std::string::npos &&
             std::none_of(name.begin(), name.end(), IsControl),
         Rule::kFileName, [&] { return MazoviaToUtf8(name); });
}

void CheckLogoIsNew(const Device& device, bool there_already) {
  Demand(device, !there_already, Rule::kLogoKept);
}

void CheckLogoIsThere(const Device& device, bool there) {
  Demand(device, there, Rule::kNoLogo);
}

void CheckLogoImage(const Device& device, const Logo& logo) {
  if (!logo.IsComplete()) {
    return;
  }
  Demand(device, logo.IsImage(), Rule::kLogoImage);
  Demand(device, logo.width() > 0 && logo.height() > 0, Rule::kEmptyLogo);
  Demand(device, logo.width() <= Logo::kMaxWidth, Rule::kWideLogo);
}

}  // namespace quilon::printer
