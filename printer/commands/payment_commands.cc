#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {

// form "$d" amount "/" number CR quantity CR. The quantity may be empty.
std::string Pay(Device& device, Request& request) {
  Payment payment{};
  payment.form = static_cast<PaymentForm>(request.Integer(0));
  payment.amount = request.fields.Amount(Rule::kPayment);
  payment.number = request.fields.Integer('\r');
  payment.quantity = request.fields.Text();
  request.fields.Finish();
  constexpr size_t kMaxPayments = 1000;
  if (device.document->payments.size() == kMaxPayments || payment.amount <= 0 ||
      payment.amount > kMaxAmount ||
      SumOf(device.document->payments) + payment.amount > kMaxAmount) {
    throw Refusal(Rule::kPayment);
  }
  if (!payment.quantity.empty() && payment.quantity != "0" &&
      ParseQuantity(payment.quantity).empty()) {
    throw Refusal(Rule::kQuantity);
  }
  CheckPayment(device, payment);
  device.document->payments.push_back(std::move(payment));
  return {};
}

}  // namespace quilon::printer
