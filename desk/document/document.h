// A document as a shop means it, read and found good. Texts are CP1250 and can
// be printed; units are those of decimal.h.
#ifndef QUILON_DESK_DOCUMENT_DOCUMENT_H_
#define QUILON_DESK_DOCUMENT_DOCUMENT_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quilon::desk {

enum class Kind {
  kReceipt,
  kInvoice,
  kCancelledReceipt,  // begun, and given up on purpose
  kSlip,
  kDailyReport,
  kCashIn,
  kCashOut,
};

// Whether it is sold something with it, once it is closed.
constexpr bool IsSale(Kind kind) {
  return kind == Kind::kReceipt || kind == Kind::kInvoice;
}

// "receipt", "cash_in" ...
std::string_view NameOf(Kind kind);
std::optional<Kind> KindOf(std::string_view name);

// A discount or a surcharge.
struct Adjustment {
  enum class Mode { kNone, kPercentOff, kPercentOn, kAmountOff, kAmountOn };

  Mode mode = Mode::kNone;
  int64_t value = 0;  // hundredths of a percent, or grosze
  std::string name{};

  // What is left of an amount, or what it comes to; may be below zero.
  int64_t AppliedTo(int64_t amount) const;
};

inline constexpr size_t kRates = 7;
// Grosze for each VAT rate, A to G.
using PerRate = std::array<int64_t, kRates>;

int64_t SumOf(const PerRate& amounts);

struct Line {
  std::string name;
  std::string second_name;
  std::string unit;
  size_t rate = 0;  // 0 is A
  int64_t quantity = 0;
  int64_t price = 0;
  int64_t value = 0;  // quantity times price
  Adjustment adjustment;

  int64_t Sold() const { return adjustment.AppliedTo(value); }
};

enum class PaymentForm { kCash, kCard, kOther, kCurrency };
inline constexpr size_t kPaymentForms = 4;

struct Payment {
  PaymentForm form;
  int64_t amount;
};

struct Buyer {
  std::string nip;  // as it is written, with or without dashes
  std::string name;
  std::vector<std::string> address;
};

struct Document {
  std::string id;
  Kind kind = Kind::kReceipt;
  std::string
      source;  // as JSON in one fixed form: the same document, the same text

  std::vector<std::string> header;
  std::vector<Line> lines;
  Adjustment adjustment;          // of the whole
  std::vector<Payment> payments;  // none: exactly what is due, in cash
  std::vector<std::string> footer;
  std::string cash_desk;
  std::string cashier;
  Buyer buyer;
  std::string number;              // of an invoice
  std::vector<std::string> texts;  // of a slip
  std::string date;                // of a daily report, "2024-01-31"
  int64_t amount = 0;              // of cash in and out

  // What the lines sell, before the adjustment of the whole.
  PerRate Sales() const;
  // What is due: their sum, after it.
  int64_t Total() const;
  // What the printer's totals have to grow by. An adjustment of the whole is
  // shared out in proportion; how a printer rounds the shares is its own.
  PerRate Sold() const;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_DOCUMENT_DOCUMENT_H_
