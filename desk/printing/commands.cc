#include "desk/printing/commands.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "desk/document/decimal.h"
#include "desk/document/reader.h"
#include "quilon/codes.h"

namespace quilon::desk {
namespace {

// The text fits: it was checked when it was read.
template <size_t kSize>
void Put(const std::string& text, char (&field)[kSize]) {
  std::memcpy(field, text.data(), std::min(text.size(), kSize - 1));
}

template <size_t kCount, size_t kSize>
void Put(const std::vector<std::string>& texts, char (&fields)[kCount][kSize]) {
  for (size_t i = 0; i < std::min(texts.size(), kCount); ++i) {
    Put(texts[i], fields[i]);
  }
}

// The texts of the closing beside its amounts.
struct ClosingTexts {
  std::string code_text;
  std::vector<std::string> footer;
  std::string header_end;
};

void Place(const TextPlace& place, const std::string& text, const char* path,
           ClosingTexts& texts) {
  using Where = TextPlace::Where;
  if (text.empty() || place.where == Where::kNowhere) {
    return;
  }
  constexpr size_t kCodeTextLetters = 32;
  constexpr size_t kFooterLetters = 40;
  constexpr size_t kFooterLines = 3;
  const std::string whole = std::string(place.before).append(text);
  if (place.where == Where::kFooter) {
    if (texts.footer.size() == kFooterLines || whole.size() > kFooterLetters) {
      throw Invalid(path, "the printer's footer has no room for it");
    }
    texts.footer.push_back(whole);
    return;
  }
  std::string& target =
      place.where == Where::kCodeText ? texts.code_text : texts.header_end;
  target += (target.empty() ? "" : " ") + whole;
  if (place.where == Where::kCodeText && target.size() > kCodeTextLetters) {
    throw Invalid(path, "the printer's code text has no room for it");
  }
}

ClosingTexts TextsOf(const Document& document, const Profile& profile) {
  ClosingTexts texts;
  texts.footer = document.footer;
  Place(profile.cash_desk, document.cash_desk, "/cash_desk", texts);
  Place(profile.cashier, document.cashier, "/cashier", texts);
  if (document.kind == Kind::kReceipt) {
    Place(profile.buyer_nip, document.buyer.nip, "/buyer/nip", texts);
  }
  return texts;
}

DocumentLine RecordOf(const Line& line, const Profile& profile) {
  constexpr int64_t kUnit = 100'000'000;
  DocumentLine record = {};
  record.integer2 =
      profile.line_adjustments.at(static_cast<size_t>(line.adjustment.mode));
  Put(line.name, record.name);
  Put(line.second_name, record.second_name);
  // A fraction goes as text: as a number it would lose zeros.
  record.quantity = line.quantity;
  const std::string quantity = QuantityText(line.quantity);
  if (line.quantity % kUnit != 0 &&
      quantity.size() < sizeof record.quantity_text) {
    Put(quantity, record.quantity_text);
  }
  record.rate_group[0] = static_cast<char>('A' + line.rate);
  Put(line.unit, record.unit);
  record.price = line.price;
  record.value = line.value;
  record.optional_amount = line.adjustment.value;
  Put(line.adjustment.name, record.optional_text);
  return record;
}

void AddLines(const Document& document, const Profile& profile,
              Commands& commands) {
  const int32_t code =
      document.kind == Kind::kInvoice ? QUIL_BUYER_LINE : QUIL_DOCUMENT_LINE;
  size_t number = 0;
  for (const Line& line : document.lines) {
    const std::string index = std::to_string(number);
    ++number;
    commands.opening.push_back(
        {std::string("line ").append(std::to_string(number)),
         std::string("/lines/").append(index), code, RecordOf(line, profile)});
  }
}

void AddPayments(const Document& document, const Profile& profile,
                 Commands& commands) {
  size_t number = 0;
  for (const Payment& payment : document.payments) {
    const PaymentCommand& command =
        profile.payments.at(static_cast<size_t>(payment.form));
    commands.opening.push_back(
        {std::string("payment ").append(std::to_string(number + 1)),
         std::string("/payments/").append(std::to_string(number)), command.code,
         ::Payment{.amount = payment.amount, .number = command.number}});
    ++number;
  }
}

int64_t PaidBy(const Document& document, const Profile& profile, int32_t code) {
  int64_t sum = 0;
  for (const Payment& payment : document.payments) {
    const size_t form = static_cast<size_t>(payment.form);
    sum += profile.payments.at(form).code == code ? payment.amount : 0;
  }
  return sum;
}

int64_t Paid(const Document& document) {
  int64_t sum = 0;
  for (const Payment& payment : document.payments) {
    sum += payment.amount;
  }
  return sum;
}

// Of the closings "$e" has no discount by amount, "$x" has all.
Command ClosingByAmount(const Document& document, const Profile& profile,
                        const ClosingTexts& texts) {
  DollarX end = {};
  end.comparison_mode = static_cast<int32_t>(document.adjustment.mode);
  end.total = SumOf(document.Sales());
  end.adjustment = document.adjustment.value;
  end.payments6_sum = PaidBy(document, profile, QUIL_PAYMENT_6);
  end.payments10_sum = PaidBy(document, profile, QUIL_PAYMENT_10);
  end.has_payments6 = end.payments6_sum > 0 ? 1 : 0;
  end.has_payments10 = end.payments10_sum > 0 ? 1 : 0;
  Put(texts.code_text, end.leading_text);
  Put(texts.footer, end.texts);
  return {"closing", "", QUIL_DOCUMENT_END_X, end};
}

Command ReceiptClosing(const Document& document, const Profile& profile,
                       const ClosingTexts& texts) {
  using Mode = Adjustment::Mode;
  const Mode mode = document.adjustment.mode;
  if (mode == Mode::kAmountOff || mode == Mode::kAmountOn) {
    return ClosingByAmount(document, profile, texts);
  }
  DocumentEnd end = {};
  end.adjustment_kind = mode == Mode::kPercentOff  ? 1
                        : mode == Mode::kPercentOn ? 2
                                                   : 0;
  end.adjustment = document.adjustment.value;
  end.paid = Paid(document);
  end.total = SumOf(document.Sales());
  end.extra_line_count = static_cast<int32_t>(texts.footer.size());
  Put(texts.code_text, end.code_text);
  Put(texts.footer, end.extra_lines);
  return {"closing", "", QUIL_DOCUMENT_END, end};
}

Command ReceiptHeader(const Document& document, const ClosingTexts& texts) {
  DocumentHeader header = {};
  header.line_count = static_cast<int32_t>(document.header.size());
  Put(document.header, header.lines);
  Put(texts.header_end, header.final_text);
  return {"header", "/header", QUIL_DOCUMENT_HEADER, header};
}

Commands ReceiptCommands(const Document& document, const Profile& profile) {
  const ClosingTexts texts = TextsOf(document, profile);
  Commands commands;
  commands.opening.push_back(ReceiptHeader(document, texts));
  AddLines(document, profile, commands);
  AddPayments(document, profile, commands);
  commands.closing = ReceiptClosing(document, profile, texts);
  return commands;
}

Commands CancelledReceiptCommands(const Document& document,
                                  const Profile& profile) {
  Commands commands;
  commands.opening.push_back(ReceiptHeader(document, {}));
  AddLines(document, profile, commands);
  commands.closing = {"cancelling", "", QUIL_DOCUMENT_SHORT_END,
                      DocumentShortEnd{}};
  return commands;
}

// Breaks a text at blanks into lines of at most `most` letters; what has no
// blank is broken anywhere. Takes the first line off.
std::string TakeLine(std::string& text, size_t most) {
  if (text.size() <= most) {
    return std::exchange(text, "");
  }
  const size_t blank = text.rfind(' ', most);
  const bool none = blank == std::string::npos || blank == 0;
  std::string line = text.substr(0, none ? most : blank);
  text.erase(0, none ? most : blank + 1);
  return line;
}

// Name and address, each from a field of its own on, broken where they have to.
void PutBuyer(const Document& document, const Profile& profile,
              BuyerHeader& header) {
  struct Field {
    char* text;
    size_t most;
  };
  const std::array<Field, 5> fields = {{
      {header.buyer_text1, sizeof header.buyer_text1 - 1},
      {header.buyer_text2, sizeof header.buyer_text2 - 1},
      {header.buyer_text3, sizeof header.buyer_text3 - 1},
      {header.buyer_text4, sizeof header.buyer_text4 - 1},
      {header.buyer_text5, sizeof header.buyer_text5 - 1},
  }};
  const auto put = [&](int number, const std::string& text) {
    std::memcpy(fields.at(static_cast<size_t>(number - 1)).text, text.data(),
                text.size());
  };
  put(profile.invoice_nip, document.buyer.nip);
  std::vector<std::string> texts = document.buyer.address;
  texts.insert(texts.begin(), document.buyer.name);
  auto text = texts.begin();
  for (const int number : profile.invoice_name_and_address) {
    if (text == texts.end()) {
      return;
    }
    put(number,
        TakeLine(*text, fields.at(static_cast<size_t>(number - 1)).most));
    text += text->empty() ? 1 : 0;
  }
  if (text != texts.end()) {
    throw Invalid("/buyer", "the printer has no room for name and address");
  }
}

Commands InvoiceCommands(const Document& document, const Profile& profile) {
  const ClosingTexts texts = TextsOf(document, profile);
  if (!texts.header_end.empty()) {
    throw Invalid("", "the profile's place header_end is for receipts only");
  }
  BuyerHeader header = {};
  header.line_count = static_cast<int32_t>(document.header.size());
  Put(document.header, header.lines);
  PutBuyer(document, profile, header);
  Put(document.number, header.number_text);
  BuyerEnd end = {};
  end.comparison_mode = static_cast<int32_t>(document.adjustment.mode);
  end.total = SumOf(document.Sales());
  end.adjustment = document.adjustment.value;
  end.extra_line_count = static_cast<int32_t>(texts.footer.size());
  Put(texts.code_text, end.code_text);
  Put(texts.footer, end.extra_lines);
  Commands commands;
  commands.opening.push_back({"header", "/buyer", QUIL_BUYER_HEADER, header});
  AddLines(document, profile, commands);
  AddPayments(document, profile, commands);
  commands.closing = {"closing", "", QUIL_BUYER_END, end};
  return commands;
}

Commands SlipCommands(const Document& document, const Profile& profile) {
  Commands commands;
  commands.opening.push_back(
      {"begin", "", QUIL_NONFISCAL_BEGIN,
       NonFiscalBegin{.first_parameter = profile.slip_number}});
  size_t number = 0;
  for (const std::string& text : document.texts) {
    NonFiscalLine line = {};
    line.parameter1 = profile.slip_number;
    Put(text, line.lines[0]);
    commands.opening.push_back(
        {std::string("line ").append(std::to_string(number + 1)),
         std::string("/texts/").append(std::to_string(number)),
         QUIL_NONFISCAL_LINE, line});
    ++number;
  }
  commands.closing = {"end", "", QUIL_NONFISCAL_END,
                      NonFiscalEnd{.second_parameter = profile.slip_number}};
  return commands;
}

Commands ReportCommands(const Document& document) {
  HashR report = {};
  if (!document.date.empty()) {
    Put(document.date.substr(8, 2), report.parameter1);
    Put(document.date.substr(5, 2), report.parameter2);
    Put(document.date.substr(2, 2), report.parameter3);
  }
  Put(document.cash_desk, report.text1);
  Put(document.cashier, report.text2);
  return {{}, {"daily report", "", QUIL_HASH_R, report}};
}

// The record's second text goes only behind a first one.
Commands CashCommands(const Document& document) {
  if (document.cash_desk.empty() && !document.cashier.empty()) {
    throw Invalid("/cash_desk", "has to be named where the cashier is");
  }
  HashAmount cash = {.amount = document.amount};
  Put(document.cash_desk, cash.text1);
  Put(document.cashier, cash.text2);
  const bool in = document.kind == Kind::kCashIn;
  return {{},
          {in ? "cash in" : "cash out", "/amount",
           in ? QUIL_HASH_I : QUIL_HASH_D, cash}};
}

}  // namespace

void* Command::data() {
  return std::visit(
      [](auto& one) -> void* {
        constexpr bool kNone =
            std::is_same_v<std::decay_t<decltype(one)>, std::monostate>;
        return kNone ? nullptr : static_cast<void*>(&one);
      },
      record);
}

Commands CommandsFor(const Document& document, const Profile& profile) {
  switch (document.kind) {
    case Kind::kReceipt:
      return ReceiptCommands(document, profile);
    case Kind::kInvoice:
      return InvoiceCommands(document, profile);
    case Kind::kCancelledReceipt:
      return CancelledReceiptCommands(document, profile);
    case Kind::kSlip:
      return SlipCommands(document, profile);
    case Kind::kDailyReport:
      return ReportCommands(document);
    case Kind::kCashIn:
    case Kind::kCashOut:
      break;
  }
  return CashCommands(document);
}

}  // namespace quilon::desk
