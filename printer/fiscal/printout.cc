#include "printer/fiscal/printout.h"

#include "printer/fiscal/document.h"

namespace quilon::printer {

const Document& Printout::booked() const {
  static const Document kNothing{};
  return document != nullptr && document->number != 0 ? *document : kNothing;
}

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
