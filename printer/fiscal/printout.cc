#include "printer/fiscal/printout.h"

namespace quilon::printer {

std::string_view NameOf(PrintoutKind kind) {
  switch (kind) {
    case PrintoutKind::kReceipt:
      return "receipt";
    case PrintoutKind::kInvoice:
      return "invoice";
    case PrintoutKind::kCancelled:
      return "cancelled";
    case PrintoutKind::kSlip:
      return "slip";
    case PrintoutKind::kReport:
      break;
  }
  return "report";
}

}  // namespace quilon::printer
