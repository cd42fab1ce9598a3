#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/numbers.h"

namespace quilon::printer {
namespace {

std::int64_t cash_amount(const Request& request) {
  const std::int64_t amount = request.number(0);
  if (amount <= 0 || amount > kMaxAmount) {
    throw Refusal(kBadCashAmount);
  }
  return amount;
}

}  // namespace

// number "#p" name CR code CR
std::string log_in(Device& device, Request& request) {
  const std::int32_t number = request.integer(0);
  print_form(device, request);
  device.cashier = {number, request.values[0], request.values[1]};
  return {};
}

// "1#p" with both texts logs in; without them -> "#P" name, code, number
std::string log_in_or_tell(Device& device, Request& request) {
  if (request.values.size() == 2) {
    return log_in(device, request);
  }
  if (!request.values.empty()) {
    throw Refusal(kWrongFieldCount);
  }
  const Cashier& cashier = device.cashier;
  return Answer("#P")
      .text(cashier.name)
      .text(cashier.code)
      .integer(cashier.number)
      .finish();
}

// "0#q" name CR code CR
std::string log_out(Device& device, Request& request) {
  print_form(device, request);
  device.cashier = {};
  return {};
}

// number "#i" amount "/" [text CR [text CR]]
std::string pay_in(Device& device, Request& request) {
  const std::int64_t amount = cash_amount(request);
  if (device.cash + amount > kMaxAmount) {
    throw Refusal(kBadCashAmount);
  }
  print_form(device, request);
  device.cash += amount;
  return {};
}

// number "#d" amount "/" [text CR [text CR]]
std::string pay_out(Device& device, Request& request) {
  const std::int64_t amount = cash_amount(request);
  if (amount > device.cash) {
    throw Refusal(kCashTooLow);
  }
  print_form(device, request);
  device.cash -= amount;
  return {};
}

}  // namespace quilon::printer
