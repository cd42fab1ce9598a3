#include "printer/fiscal/document.h"

#include <numeric>
#include <utility>

namespace quilon::printer {

void Document::Add(Item item) {
  sales.at(item.rate) += item.Sold();
  ++items;
  entries.emplace_back(std::move(item));
}

void Document::Add(Deposit deposit) {
  deposits += deposit.value;
  entries.emplace_back(std::move(deposit));
}

void Document::Add(const Marks& marks) {
  buyer_number = marks.buyer_number ? marks.buyer_number : buyer_number;
  cash_desk = marks.cash_desk ? marks.cash_desk : cash_desk;
}

int64_t SumOf(const std::vector<Payment>& payments) {
  return std::accumulate(
      payments.begin(), payments.end(), int64_t{0},
      [](int64_t sum, const Payment& payment) { return sum + payment.amount; });
}

int64_t SumOf(const std::vector<Payment>& payments, PaymentForm form) {
  return std::accumulate(payments.begin(), payments.end(), int64_t{0},
                         [form](int64_t sum, const Payment& payment) {
                           return sum +
                                  (payment.form == form ? payment.amount : 0);
                         });
}

}  // namespace quilon::printer
