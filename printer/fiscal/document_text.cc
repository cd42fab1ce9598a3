#include "printer/fiscal/document_text.h"

#include "printer/fiscal/identity.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

std::string QuantityAndPrice(int64_t quantity, const std::string& unit,
                             int64_t price) {
  return "  " + QuantityText(quantity) + (unit.empty() ? "" : " ") + unit +
         " x " + AmountText(price);
}

std::string WithLetter(int64_t amount, size_t rate) {
  return AmountText(amount) + " " + LetterOfRate(rate);
}

// The value of a discount or surcharge, with its sign.
std::string ChangeText(int64_t before, int64_t after) {
  const int64_t change = after - before;
  return std::string(change < 0 ? "-" : "+")
      .append(AmountText(change < 0 ? -change : change));
}

void Print(Paper& paper, const Item& item) {
  paper.Print(item.name);
  if (!item.second_name.empty()) {
    paper.Print(item.second_name);
  }
  paper.PrintPair(QuantityAndPrice(item.quantity, item.unit, item.price),
                  WithLetter(item.value, item.rate));
  if (item.adjustment.mode != AdjustmentMode::kNone) {
    std::string name = "  " + item.adjustment.Text();
    if (!item.adjustment_text.empty()) {
      name.append(" ").append(item.adjustment_text);
    }
    paper.PrintPair(name, ChangeText(item.value, item.Sold()) + "  ");
    paper.PrintPair("", WithLetter(item.Sold(), item.rate));
  }
  if (!item.closing_text.empty()) {
    paper.Print("  " + item.closing_text);
  }
}

void Print(Paper& paper, const Deposit& deposit) {
  paper.Print("Kaucja " + std::to_string(deposit.number));
  paper.PrintPair(
      QuantityAndPrice(deposit.quantity, deposit.unit, deposit.price),
      AmountText(deposit.value) + "  ");
}

void Print(Paper& paper, const Note& note) {
  paper.PrintCentered(note.title);
  PrintFields(paper, note);
}

void PrintCentered(Paper& paper, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    if (!text.empty()) {
      paper.PrintCentered(text);
    }
  }
}

void PrintRates(Paper& paper, const Totals& sold, const Rates& rates) {
  const Totals tax = TaxesIn(sold, rates);
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    const int64_t gross = sold.at(rate);
    if (gross == 0) {
      continue;
    }
    const std::string letter(1, LetterOfRate(rate));
    if (rates.at(rate) == kExempt) {
      paper.PrintPair("SPRZEDAŻ ZWOLNIONA " + letter, AmountText(gross));
      continue;
    }
    paper.PrintPair("SPRZEDAŻ OPODATKOWANA " + letter, AmountText(gross));
    paper.PrintPair("PTU " + letter + " " + RateText(rates.at(rate)),
                    AmountText(tax.at(rate)));
  }
  paper.PrintPair("SUMA PTU", AmountText(SumOf(tax)));
}

std::string NameOf(PaymentForm form) {
  switch (form) {
    case PaymentForm::kCash:
      return "Gotówka";
    case PaymentForm::kCard:
      return "Karta";
    case PaymentForm::kOther:
      return "Inna forma";
    case PaymentForm::kCurrency:
      break;
  }
  return "Waluta";
}

void PrintPayments(Paper& paper, const Document& document) {
  for (const Payment& payment : document.payments) {
    std::string name = NameOf(payment.form);
    if (payment.number != 0) {
      name.append(" ").append(std::to_string(payment.number));
    }
    paper.PrintPair(name, AmountText(payment.amount));
  }
  const int64_t change = SumOf(document.payments) - document.Due();
  if (change > 0) {
    paper.PrintPair("Reszta", AmountText(change));
  }
}

// "Kasjer ... Anna"; where the cash desk has a number "Kasa 3 ... Kasjer Anna".
void PrintDesk(Paper& paper, const Document& document) {
  const std::string& cashier = document.cashier;
  if (document.cash_desk) {
    paper.PrintPair("Kasa " + std::to_string(*document.cash_desk),
                    cashier.empty() ? "" : "Kasjer " + cashier);
  } else if (!cashier.empty()) {
    paper.PrintPair("Kasjer", cashier);
  }
}

void PrintBuyerNumber(Paper& paper, const Document& document) {
  if (document.buyer_number) {
    paper.PrintPair("NIP nabywcy", *document.buyer_number);
  }
}

}  // namespace

std::string MomentText(std::chrono::local_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return Padded(static_cast<int>(date.year()), 4) + "-" +
         Padded(static_cast<unsigned>(date.month()), 2) + "-" +
         Padded(static_cast<unsigned>(date.day()), 2) + " " +
         Padded(time.hours().count(), 2) + ":" +
         Padded(time.minutes().count(), 2);
}

void PrintOwner(Paper& paper, const std::string& owner,
                const std::vector<std::string>& further_lines) {
  PrintCentered(paper, {owner});
  for (const std::string_view line : kAddress) {
    paper.PrintCentered(line);
  }
  PrintCentered(paper, further_lines);
  paper.PrintCentered(std::string("NIP ").append(kTaxNumber));
}

void PrintRunningNumber(Paper& paper, std::chrono::local_seconds moment,
                        int32_t number) {
  constexpr size_t kDigits = 6;
  paper.PrintPair(MomentText(moment), "wydruk " + Padded(number, kDigits));
}

void PrintHead(Paper& paper, const Document& document) {
  if (document.logo != nullptr) {
    paper.PrintPicture("[grafika " + std::to_string(document.logo_number) + "]",
                       document.logo);
  }
  PrintOwner(paper, document.owner, document.header_lines);
  PrintRunningNumber(paper, document.begun, document.running_number);
  if (document.series == Series::kReceipt) {
    paper.PrintCentered("PARAGON FISKALNY", LineStyle::kBold);
    return;
  }
  paper.PrintCentered(document.number_text.empty()
                          ? "FAKTURA"
                          : "FAKTURA " + document.number_text,
                      LineStyle::kBold);
  PrintBuyerNumber(paper, document);
  for (const std::string& text : document.buyer) {
    if (!text.empty()) {
      paper.PrintPair("Nabywca", text);
    }
  }
  PrintCentered(paper, document.remarks);
}

void PrintTotal(Paper& paper, int64_t gross) {
  paper.PrintPair("SUMA PLN", AmountText(gross), LineStyle::kDouble);
}

void PrintEntry(Paper& paper, const Entry& entry) {
  std::visit([&paper](const auto& kind) { Print(paper, kind); }, entry);
}

void PrintFields(Paper& paper, const Note& note) {
  int amounts = 0;
  for (const auto& field : note.fields) {
    if (const auto* amount = std::get_if<Note::Amount>(&field)) {
      paper.PrintPair("Kwota " + std::to_string(++amounts),
                      AmountText(*amount));
    } else {
      paper.Print(std::get<std::string>(field));
    }
  }
}

void PrintEnd(Paper& paper, const Document& document) {
  paper.PrintRule();
  const int64_t sum = SumOf(document.sales);
  const int64_t sold = SumOf(document.sold);
  if (document.adjustment.mode != AdjustmentMode::kNone) {
    paper.PrintPair("SUMA CZĘŚCIOWA", AmountText(sum));
    paper.PrintPair(document.adjustment.Text(), ChangeText(sum, sold));
  }
  PrintRates(paper, document.sold, document.rates);
  PrintTotal(paper, sold);
  if (document.deposits != 0) {
    paper.PrintPair("KAUCJE", AmountText(document.deposits));
    paper.PrintPair("DO ZAPŁATY", AmountText(document.Due()));
  }
  PrintPayments(paper, document);
  PrintCentered(paper, document.closing_texts);
  const bool receipt = document.series == Series::kReceipt;
  paper.PrintPair(
      (receipt ? "Paragon " : "Faktura ") + std::to_string(document.number),
      MomentText(document.ended));
  PrintDesk(paper, document);
  if (receipt) {
    PrintBuyerNumber(paper, document);
  }
  PrintLogo(paper);
}

void PrintCancellation(Paper& paper, const Document& document,
                       const std::vector<std::string>& texts) {
  paper.PrintRule();
  paper.PrintCentered(document.series == Series::kReceipt ? "PARAGON ANULOWANY"
                                                          : "FAKTURA ANULOWANA",
                      LineStyle::kBold);
  PrintCentered(paper, texts);
  paper.PrintPair("", MomentText(document.ended));
  PrintLogo(paper);
}

void PrintLogo(Paper& paper) {
  paper.PrintCentered(
      std::string(kVirtualLogo).append(" ").append(kUniqueNumber));
}

}  // namespace quilon::printer
