// A fiscal document as a value: what its commands brought, and what its closing
// made of it. Texts are UTF-8, amounts in grosze, quantities in 10^-8.
#ifndef PRINTER_FISCAL_DOCUMENT_H_
#define PRINTER_FISCAL_DOCUMENT_H_

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "printer/fiscal/adjustment.h"
#include "printer/fiscal/books.h"
#include "printer/fiscal/marks.h"
#include "printer/fiscal/raster.h"

namespace quilon::printer {

struct Item {
  std::string name;
  std::string second_name;
  std::string unit;
  size_t rate = 0;
  int64_t quantity = 0;
  int64_t price = 0;
  int64_t value = 0;      // quantity times price
  Adjustment adjustment;  // of the value
  std::string adjustment_text;
  std::string closing_text;

  // What is sold of it; throws as Adjustment::AppliedTo.
  int64_t Sold() const { return adjustment.AppliedTo(value); }
};

// Packaging: paid with the document, but no part of its sale.
struct Deposit {
  int32_t number = 0;
  std::string unit;
  int64_t quantity = 0;
  int64_t price = 0;
  int64_t value = 0;
};

// Further information, which changes no total.
struct Note {
  using Amount = int64_t;
  std::string title;
  std::vector<std::variant<std::string, Amount>> fields;
};

using Entry = std::variant<Item, Deposit, Note>;

// By the number that the payment command has for it.
enum class PaymentForm { kCash = 6, kCard = 7, kOther = 10, kCurrency = 11 };

struct Payment {
  PaymentForm form;
  int32_t number;  // the client's own number of the payment
  int64_t amount;
  std::string quantity;
};

int64_t SumOf(const std::vector<Payment>& payments);
// In one form only.
int64_t SumOf(const std::vector<Payment>& payments, PaymentForm form);

struct Document {
  Series series;
  std::string owner{};  // of the printer, at that time
  Rates rates = kUsualRates;
  int64_t client = 0;       // who has it open; 0: anybody, the client is gone
  int32_t logo_number = 0;  // 0: none
  std::shared_ptr<const Raster> logo{};
  std::vector<std::string> header_lines{};
  std::string number_text{};                  // that the client gave an invoice
  std::optional<std::string> buyer_number{};  // NIP
  std::vector<std::string> buyer{};           // name and address
  std::vector<std::string> remarks{};
  int32_t running_number = 0;  // of all printouts
  std::chrono::local_seconds begun{};

  std::vector<Entry> entries{};
  std::vector<Payment> payments{};

  // Of the entries.
  Totals sales{};
  size_t items = 0;
  int64_t deposits = 0;

  // Known once it is closed.
  int32_t number = 0;  // of its series
  std::chrono::local_seconds ended{};
  std::string cashier{};
  std::optional<int64_t> cash_desk{};
  Adjustment adjustment{};  // of the whole document
  Totals sold{};            // after it
  std::vector<std::string> closing_texts{};

  void Add(Item item);
  void Add(Deposit deposit);
  void Add(const Marks& marks);
  void Add(Note note) { entries.emplace_back(std::move(note)); }

  // What the client has to pay for what was sold, and for deposits.
  int64_t Due() const { return SumOf(sold) + deposits; }
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_DOCUMENT_H_
