#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/numbers.h"

namespace quilon::printer {

// form "$d" amount "/" number CR quantity CR. The quantity may be empty.
std::string pay(Device& device, Request& request) {
  Payment payment{};
  payment.form = request.integer(0);
  payment.amount = request.fields.amount(kBadPayment);
  payment.number = request.fields.integer('\r');
  payment.quantity = request.fields.text();
  request.fields.finish();
  constexpr std::size_t kMaxPayments = 1000;
  if (device.document->payments.size() == kMaxPayments || payment.amount <= 0 ||
      payment.amount > kMaxAmount ||
      device.document->paid() + payment.amount > kMaxAmount) {
    throw Refusal(kBadPayment);
  }
  if (!payment.quantity.empty() && payment.quantity != "0" &&
      parse_quantity(payment.quantity).empty()) {
    throw Refusal(kBadQuantity);
  }
  device.document->payments.push_back(std::move(payment));
  return {};
}

}  // namespace quilon::printer
