#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

int64_t CashAmount(const Device& device, const Request& request) {
  CheckCashDesk(device, request.Integer(0));
  const int64_t amount = request.Number(0);
  if (amount <= 0 || amount > kMaxAmount) {
    throw Refusal(Rule::kCashAmount);
  }
  return amount;
}

}  // namespace

// number "#p" name CR code CR
std::string LogIn(Device& device, Request& request) {
  const int32_t number = request.Integer(0);
  CheckLogIn(device, number, request.values[0]);
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
    throw Refusal(Rule::kFieldCount);
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
  CheckLogOut(device, request.values[0]);
  PrintForm(device, request);
  device.cashier = {};
  return {};
}

// number "#i" amount "/" [text CR [text CR]]
std::string PayIn(Device& device, Request& request) {
  const int64_t amount = CashAmount(device, request);
  if (device.cash + amount > kMaxAmount) {
    throw Refusal(device.strict ? Rule::kDrawerTooFull : Rule::kCashAmount);
  }
  PrintForm(device, request);
  device.cash += amount;
  device.books.day.paid_in += amount;
  return {};
}

// number "#d" amount "/" [text CR [text CR]]
std::string PayOut(Device& device, Request& request) {
  const int64_t amount = CashAmount(device, request);
  if (amount > device.cash) {
    throw Refusal(Rule::kDrawerTooEmpty,
                  AmountText(amount) + " > " + AmountText(device.cash));
  }
  PrintForm(device, request);
  device.cash -= amount;
  device.books.day.paid_out += amount;
  return {};
}

}  // namespace quilon::printer
