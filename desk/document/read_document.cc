#include "desk/document/read_document.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <limits>

#include "desk/document/decimal.h"

namespace quilon::desk {
namespace {

using nlohmann::json;

// What the commands' records have room for.
constexpr size_t kNameLetters = 60;
constexpr size_t kSecondNameLetters = 34;
constexpr size_t kUnitLetters = 26;
constexpr size_t kAdjustmentLetters = 40;
constexpr size_t kNumberLetters = 58;
constexpr size_t kFooterLetters = 40;
constexpr size_t kFooterLines = 3;
constexpr size_t kSlipLetters = 64;
// What a report has room for.
constexpr size_t kCashDeskLetters = 8;
constexpr size_t kCashierLetters = 32;
constexpr size_t kMostLines = 10'000;
constexpr size_t kMostPayments = 32;

// The printer's totals come back in 32 bits: what grows by more could not be
// proved.
constexpr int64_t kMostTotal = std::numeric_limits<int32_t>::max();

void CheckAmount(const Reader& reader, const char* name, int64_t expected) {
  if (reader.Has(name) && reader.Decimal(name, kAmountDigits) != expected) {
    reader.Fail(name, std::string("it comes to ").append(AmountText(expected)));
  }
}

Adjustment ReadAdjustment(const Reader& reader) {
  const bool off = reader.Has("discount");
  if (off && reader.Has("surcharge")) {
    reader.Fail("surcharge", "there is a discount already");
  }
  if (!off && !reader.Has("surcharge")) {
    return {};
  }
  using Mode = Adjustment::Mode;
  const Reader given = reader.Object(off ? "discount" : "surcharge");
  given.AllowOnly({"percent", "amount", "name"});
  const bool percent = given.Has("percent");
  if (percent == given.Has("amount")) {
    throw Invalid(given.path(), "has to have either percent or amount");
  }
  Adjustment adjustment;
  adjustment.name = given.Printable("name", kAdjustmentLetters);
  adjustment.mode = percent ? (off ? Mode::kPercentOff : Mode::kPercentOn)
                            : (off ? Mode::kAmountOff : Mode::kAmountOn);
  const char* value = percent ? "percent" : "amount";
  adjustment.value = given.Decimal(value, kAmountDigits);
  constexpr int64_t kWhole = 10'000;
  if (adjustment.value == 0 || (percent && adjustment.value > kWhole)) {
    given.Fail(value, percent ? "has to be above 0, at most 100"
                              : "has to be above 0");
  }
  return adjustment;
}

// A fraction reaches the printer as a text of at most ten letters, or as a
// count of 10^-8 that loses the zeros at the fraction's begin.
bool FitsTheWire(int64_t quantity) {
  constexpr int64_t kUnit = 100'000'000;
  constexpr size_t kMostLetters = 10;
  const int64_t fraction = quantity % kUnit;
  return fraction == 0 || fraction * 10 >= kUnit ||
         QuantityText(quantity).size() <= kMostLetters;
}

Line ReadLine(const Reader& reader) {
  reader.AllowOnly({"name", "second_name", "quantity", "unit", "price", "rate",
                    "value", "discount", "surcharge"});
  Line line;
  line.name = reader.PrintableName("name", kNameLetters);
  line.second_name = reader.Printable("second_name", kSecondNameLetters);
  line.unit = reader.Printable("unit", kUnitLetters);
  line.quantity = reader.Decimal("quantity", kQuantityDigits);
  if (line.quantity == 0) {
    reader.Fail("quantity", "has to be above 0");
  }
  if (!FitsTheWire(line.quantity)) {
    reader.Fail("quantity", "has too many digits for the printer");
  }
  line.price = reader.Decimal("price", kAmountDigits);
  const std::string rate = reader.Text("rate");
  if (rate.size() != 1 || rate < "A" || rate > "G") {
    reader.Fail("rate", "has to be a letter from A to G");
  }
  line.rate = static_cast<size_t>(rate.front() - 'A');
  const auto value = ValueOf(line.quantity, line.price);
  if (!value || *value > kMostTotal) {
    reader.Fail("price", "the value is more than 21474836.47");
  }
  line.value = *value;
  CheckAmount(reader, "value", line.value);
  line.adjustment = ReadAdjustment(reader);
  if (line.Sold() < 0) {
    reader.Fail("discount", "is more than the value");
  }
  if (line.Sold() > kMostTotal) {
    reader.Fail("surcharge", "more than 21474836.47 is due");
  }
  return line;
}

PaymentForm ReadForm(const Reader& reader) {
  const std::string form = reader.Text("form");
  constexpr std::array<std::string_view, kPaymentForms> kNames = {
      "cash", "card", "other", "currency"};
  const auto* found = std::find(kNames.begin(), kNames.end(), form);
  if (found == kNames.end()) {
    reader.Fail("form", "has to be cash, card, other or currency");
  }
  return static_cast<PaymentForm>(found - kNames.begin());
}

void ReadPayments(const Reader& reader, Document& document) {
  const int64_t due = document.Total();
  int64_t paid = 0;
  int64_t cash = 0;
  for (const Reader& entry : reader.Objects("payments", kMostPayments)) {
    entry.AllowOnly({"form", "amount"});
    const Payment payment = {ReadForm(entry),
                             entry.Decimal("amount", kAmountDigits)};
    if (payment.amount == 0 || payment.amount > kMostTotal) {
      entry.Fail("amount", "has to be above 0, at most 21474836.47");
    }
    paid += payment.amount;
    cash += payment.form == PaymentForm::kCash ? payment.amount : 0;
    document.payments.push_back(payment);
  }
  if (document.payments.empty()) {
    CheckAmount(reader, "change", 0);
    return;
  }
  if (paid < due) {
    reader.Fail("payments",
                std::string("less than is due, ").append(AmountText(due)));
  }
  if (paid - due > cash) {
    reader.Fail("payments", "change is given of cash only");
  }
  CheckAmount(reader, "change", paid - due);
}

bool IsNip(const std::string& text) {
  constexpr std::array kWeights = {6, 5, 7, 2, 3, 4, 5, 6, 7};
  std::string digits = text;
  std::erase(digits, '-');
  std::erase(digits, ' ');
  if (digits.size() != kWeights.size() + 1 ||
      !std::all_of(digits.begin(), digits.end(),
                   [](char c) { return '0' <= c && c <= '9'; })) {
    return false;
  }
  int sum = 0;
  for (size_t i = 0; i < kWeights.size(); ++i) {
    sum += kWeights.at(i) * (digits[i] - '0');
  }
  constexpr int kModulus = 11;
  return sum % kModulus == digits.back() - '0';
}

Buyer ReadBuyer(const Reader& reader, Kind kind) {
  constexpr size_t kNipLetters = 14;
  constexpr size_t kNameAndAddress = 92;
  constexpr size_t kAddressLines = 4;
  const Reader given = reader.Object("buyer");
  Buyer buyer;
  if (kind == Kind::kInvoice) {
    given.AllowOnly({"nip", "name", "address"});
    buyer.name = given.PrintableName("name", kNameAndAddress);
    buyer.address =
        given.PrintableList("address", kAddressLines, kNameAndAddress);
  } else {
    given.AllowOnly({"nip"});
    given.Text("nip");
  }
  buyer.nip = given.Printable("nip", kNipLetters);
  if (given.Has("nip") && !IsNip(buyer.nip)) {
    given.Fail("nip", "is no NIP: ten digits, the last of which checks them");
  }
  return buyer;
}

void ReadLines(const Reader& reader, Document& document) {
  for (const Reader& line : reader.Objects("lines", kMostLines)) {
    document.lines.push_back(ReadLine(line));
  }
  if (document.lines.empty()) {
    reader.Fail("lines", "there has to be one");
  }
  document.adjustment = ReadAdjustment(reader);
  if (document.Total() < 0) {
    reader.Fail("discount", "is more than the sum of the lines");
  }
  if (SumOf(document.Sales()) > kMostTotal || document.Total() > kMostTotal) {
    reader.Fail("lines", "more than 21474836.47 is due");
  }
  CheckAmount(reader, "total", document.Total());
}

void ReadPlace(const Reader& reader, Document& document) {
  document.cash_desk = reader.Printable("cash_desk", kCashDeskLetters);
  document.cashier = reader.Printable("cashier", kCashierLetters);
}

void ReadSale(const Reader& reader, size_t header_lines, size_t header_letters,
              Document& document) {
  document.header =
      reader.PrintableList("header", header_lines, header_letters);
  ReadLines(reader, document);
  ReadPayments(reader, document);
  document.footer =
      reader.PrintableList("footer", kFooterLines, kFooterLetters);
  ReadPlace(reader, document);
}

void ReadReceipt(const Reader& reader, Document& document) {
  constexpr size_t kHeaderLines = 3;
  constexpr size_t kHeaderLetters = 199;
  reader.AllowOnly({"id", "kind", "header", "lines", "discount", "surcharge",
                    "total", "payments", "change", "footer", "cash_desk",
                    "cashier", "buyer"});
  ReadSale(reader, kHeaderLines, kHeaderLetters, document);
  if (reader.Has("buyer")) {
    document.buyer = ReadBuyer(reader, document.kind);
  }
}

void ReadInvoice(const Reader& reader, Document& document) {
  constexpr size_t kHeaderLines = 8;
  constexpr size_t kHeaderLetters = 60;
  reader.AllowOnly({"id", "kind", "header", "lines", "discount", "surcharge",
                    "total", "payments", "change", "footer", "cash_desk",
                    "cashier", "buyer", "number"});
  document.number = reader.PrintableName("number", kNumberLetters);
  ReadSale(reader, kHeaderLines, kHeaderLetters, document);
  document.buyer = ReadBuyer(reader, document.kind);
}

void ReadCancelledReceipt(const Reader& reader, Document& document) {
  reader.AllowOnly({"id", "kind", "lines", "discount", "surcharge", "total"});
  ReadLines(reader, document);
}

void ReadSlip(const Reader& reader, Document& document) {
  constexpr size_t kMostTexts = 1000;
  reader.AllowOnly({"id", "kind", "texts"});
  document.texts = reader.PrintableList("texts", kMostTexts, kSlipLetters);
  if (document.texts.empty()) {
    reader.Fail("texts", "there has to be one");
  }
}

// "2024-01-31", of this century.
bool IsDate(const std::string& text) {
  constexpr size_t kLength = 10;
  if (text.size() != kLength || text[4] != '-' || text[7] != '-') {
    return false;
  }
  const auto part = [&](size_t first, size_t count) {
    return ParseDecimal(std::string("1").append(text.substr(first, count)), 0);
  };
  const auto year = part(0, 4);
  const auto month = part(5, 2);
  const auto day = part(8, 2);
  if (!year || !month || !day) {
    return false;
  }
  const std::chrono::year_month_day date(
      std::chrono::year(static_cast<int>(*year - 10'000)),
      std::chrono::month(static_cast<unsigned>(*month - 100)),
      std::chrono::day(static_cast<unsigned>(*day - 100)));
  return date.ok() && text.starts_with("20");
}

void ReadDailyReport(const Reader& reader, Document& document) {
  reader.AllowOnly({"id", "kind", "date", "cash_desk", "cashier"});
  document.date = reader.Text("date", "");
  if (reader.Has("date") && !IsDate(document.date)) {
    reader.Fail("date", "has to be a day, as 2024-01-31");
  }
  ReadPlace(reader, document);
}

void ReadCash(const Reader& reader, Document& document) {
  reader.AllowOnly({"id", "kind", "amount", "cash_desk", "cashier"});
  document.amount = reader.Decimal("amount", kAmountDigits);
  if (document.amount == 0 || document.amount > kMostTotal) {
    reader.Fail("amount", "has to be above 0, at most 21474836.47");
  }
  ReadPlace(reader, document);
}

}  // namespace

std::string ReadId(const Reader& reader) {
  constexpr size_t kMostBytes = 100;
  std::string id = reader.Text("id");
  const bool plain = std::all_of(id.begin(), id.end(), [](char c) {
    return static_cast<unsigned char>(c) >= ' ' && c != '\x7F';
  });
  if (id.empty() || id.size() > kMostBytes || !plain) {
    reader.Fail("id", "has to be 1 to 100 bytes without control characters");
  }
  return id;
}

Document ReadDocument(const json& value) {
  const Reader reader(value);
  Document document;
  document.id = ReadId(reader);
  const auto kind = KindOf(reader.Text("kind"));
  if (!kind) {
    reader.Fail("kind", "is no kind of document");
  }
  document.kind = *kind;
  document.source = value.dump();
  switch (*kind) {
    case Kind::kReceipt:
      ReadReceipt(reader, document);
      break;
    case Kind::kInvoice:
      ReadInvoice(reader, document);
      break;
    case Kind::kCancelledReceipt:
      ReadCancelledReceipt(reader, document);
      break;
    case Kind::kSlip:
      ReadSlip(reader, document);
      break;
    case Kind::kDailyReport:
      ReadDailyReport(reader, document);
      break;
    case Kind::kCashIn:
    case Kind::kCashOut:
      ReadCash(reader, document);
      break;
  }
  return document;
}

}  // namespace quilon::desk
