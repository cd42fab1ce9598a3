#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

int64_t CashAmount(const Request& request) {
  const int64_t amount = request.Number(0);
  if (amount <= 0 || amount > kMaxAmount) {
    throw Refusal(kBadCashAmount);
  }
  return amount;
}

}  // namespace

// number "#p" name CR code CR
std::string LogIn(Device& device, Request& request) {
  const int32_t number = request.Integer(0);
  PrintForm(device, request);
  device.cashier = {number, request.values[0], request.values[1]};
  return {};
}

// "1#p" with both texts logs in; without them -> "#P" name, code, number
std::string LogInOrTell(Device& device, Request& request) {
  if (request.values.size() == 2) {
    return LogIn(device, request);
  }
  if (!request.values.empty()) {
    throw Refusal(kWrongFieldCount);
  }
  const Cashier& cashier = device.cashier;
  return Answer("#P")
      .Text(cashier.name)
      .Text(cashier.code)
      .Integer(cashier.number)
      .Finish();
}

// "0#q" name CR code CR
std::string LogOut(Device& device, Request& request) {
  PrintForm(device, request);
  device.cashier = {};
  return {};
}

// number "#i" amount "/" [text CR [text CR]]
std::string PayIn(Device& device, Request& request) {
  const int64_t amount = CashAmount(request);
  if (device.cash + amount > kMaxAmount) {
    throw Refusal(kBadCashAmount);
  }
  PrintForm(device, request);
  device.cash += amount;
  return {};
}

// number "#d" amount "/" [text CR [text CR]]
std::string PayOut(Device& device, Request& request) {
  const int64_t amount = CashAmount(request);
  if (amount > device.cash) {
    throw Refusal(kCashTooLow);
  }
  PrintForm(device, request);
  device.cash -= amount;
  return {};
}

}  // namespace quilon::printer
