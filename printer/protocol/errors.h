// The error numbers with which the printer refuses a command, and the exception
// that carries one.
//
// A handler throws Refusal before it changes anything; the device then keeps
// the number for the "#n" query and shows "last command not OK" in its ENQ
// answer.
#ifndef PRINTER_PROTOCOL_ERRORS_H_
#define PRINTER_PROTOCOL_ERRORS_H_

#include <exception>

namespace quilon::printer {

enum Error : int {
  kNoError = 0,
  kBadChecksum = 2,
  kWrongFieldCount = 3,
  kBadParameter = 4,
  kBadClock = 5,
  kBadItemName = 16,
  kBadQuantity = 17,
  kBadRateLetter = 18,
  kBadPrice = 19,
  kWrongValue = 20,
  kBadPayment = 26,
  kWrongTotal = 27,
  kTotalOverflow = 28,
  kNoDocument = 29,
  kUnpaid = 30,
  kBadCashAmount = 34,
  kBadDeposit = 83,
  kDocumentAlreadyOpen = 1002,
  kBadAdjustment = 1004,
  kBadData = 1005,
  kCashTooLow = 1013,
  kUnsavedState = 1014,
  kUnknownCommand = 1022,
  kBufferOverflow = 1026,
  kForbiddenNow = 1031,
  kBusy = 1034,
  kBadLogo = 1035,
  kNoPaper = 1037,
  kPrintMechanism = 1086,
  kNoSpace = 1090,
  kNoItems = 1092,
};

class Refusal : public std::exception {
 public:
  explicit Refusal(int error) : error_(error) {}
  int error() const { return error_; }
  const char* what() const noexcept override { return "command refused"; }

 private:
  int error_;
};

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_ERRORS_H_
