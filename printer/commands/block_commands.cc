// The information blocks of "$i". A block's number is all that the client
// sends; each has a form of its own.
#include <array>
#include <string>

#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/identity.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/mazovia.h"

namespace quilon::printer {
namespace {

using Block = void (*)(const Device& device, Answer& answer);

// Nine numbers: receipts, invoices, cancelled, reports, two unused, fiscal
// mode, document open, error
void Counters(const Device& device, Answer& answer) {
  const Books& books = device.books;
  answer.Integer(books.receipt_count)
      .Integer(books.invoice_count)
      .Integer(books.cancelled_count)
      .Integer(books.report_count)
      .Integer(0)
      .Integer(0)
      .Integer(1)
      .Integer(device.document ? 1 : 0)
      .Integer(device.error);
}

void CommunicationPort(const Device& /*device*/, Answer& answer) {
  answer.Text("TCP");
}

// Five texts, four numbers
void Owner(const Device& device, Answer& answer) {
  answer.Text(kDeviceName)
      .Text(Utf8ToMazovia(device.owner))
      .Text(kAddress[0])
      .Text(kAddress[1])
      .Text(kTaxNumber);
  answer.Integer(device.books.receipt_count)
      .Integer(device.books.invoice_count)
      .Integer(device.books.report_count)
      .Integer(device.drawer_openings);
}

// Three numbers, two texts, ten numbers, three texts
void FiscalState(const Device& device, Answer& answer) {
  answer.Integer(1)
      .Integer(device.online ? 1 : 0)
      .Integer(device.paper.out() ? 1 : 0);
  answer.Text(kUniqueNumber).Text(kTaxNumber);
  for (const int64_t rate : device.rates) {
    answer.Integer(rate);
  }
  answer.Integer(device.books.receipt_count)
      .Integer(device.books.invoice_count)
      .Integer(device.books.report_count);
  answer.Text(device.DateAndTime()).Text(kFirmwareVersion).Text(kSerialNumber);
}

// Four texts
void Versions(const Device& /*device*/, Answer& answer) {
  answer.Text(kDeviceName)
      .Text(kFirmwareVersion)
      .Text(kUniqueNumber)
      .Text(kSerialNumber);
}

// A text and five numbers
void Memories(const Device& device, Answer& answer) {
  answer.Text(kUniqueNumber)
      .Integer(kFiscalMemorySize)
      .Integer(kFiscalMemorySize - device.books.report_count)
      .Integer(kProtectedMemorySize)
      .Integer(kProtectedMemorySize - device.books.receipt_count -
               device.books.invoice_count)
      .Integer(0);
}

void Drawer(const Device& device, Answer& answer) {
  answer.Integer(device.drawer_openings);
}

// Six numbers
void Printing(const Device& device, Answer& answer) {
  answer.Integer(device.paper.out() ? 1 : 0)
      .Integer(device.mechanism_error ? 1 : 0)
      .Integer(Paper::kWidth)
      .Integer(static_cast<int64_t>(device.paper.lines().size()))
      .Integer(0)
      .Integer(0);
}

void StoredFiles(const Device& device, Answer& answer) {
  answer.Integer(static_cast<int64_t>(device.files.size()));
}

// Three numbers, two texts, ten numbers, five texts
void ServerState(const Device& device, Answer& answer) {
  answer.Integer(device.online ? 1 : 0).Integer(0).Integer(0);
  answer.Text("127.0.0.1").Text("serwer");
  for (int i = 0; i < 8; ++i) {
    answer.Integer(i);
  }
  answer.Integer(device.books.receipt_count).Integer(device.books.report_count);
  answer.Text(device.DateAndTime())
      .Text("-")
      .Text("-")
      .Text(kFirmwareVersion)
      .Text(kSerialNumber);
}

// Ten numbers, a text with "/" and ";" allowed
void Network(const Device& device, Answer& answer) {
  for (const int part : {127, 0, 0, 1, 255, 0, 0, 0}) {
    answer.Integer(part);
  }
  answer.Integer(device.online ? 1 : 0).Integer(0).Line("eth0; 127.0.0.1/8");
}

// Seven numbers: the totals' whole zlotys
void WholeTotals(const Device& device, Answer& answer) {
  for (const int64_t total : device.books.receipts) {
    answer.Integer(total / 100);
  }
}

// A number, two texts, two texts with "/" and ";" allowed, three numbers
void Certificate(const Device& device, Answer& answer) {
  answer.Integer(1)
      .Text("CERT-1")
      .Text(kSerialNumber)
      .Line("CN=drukarka")
      .Line(device.DateAndTime())
      .Integer(0)
      .Integer(0)
      .Integer(1);
}

struct Row {
  int32_t number;
  Block block;
};

constexpr std::array kBlocks = {
    Row{43, Counters},    Row{50, CommunicationPort}, Row{53, Owner},
    Row{54, FiscalState}, Row{55, Versions},          Row{56, Memories},
    Row{57, Drawer},      Row{58, Printing},          Row{59, StoredFiles},
    Row{60, ServerState}, Row{61, Network},           Row{62, WholeTotals},
    Row{64, Certificate},
};

}  // namespace

// number "$i" -> "$I" and the block
std::string TellBlock(Device& device, Request& request) {
  const int32_t number = request.Integer(0);
  for (const Row& row : kBlocks) {
    if (row.number == number) {
      Answer answer("$I");
      row.block(device, answer);
      return answer.Finish();
    }
  }
  throw Refusal(Rule::kParameter);
}

}  // namespace quilon::printer
