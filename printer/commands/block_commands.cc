// The information blocks of "$i". A block's number is all that the client
// sends; each has a form of its own.
#include <array>
#include <string>

#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/identity.h"

namespace quilon::printer {
namespace {

using Block = void (*)(const Device& device, Answer& answer);

// Nine numbers: receipts, invoices, cancelled, reports, two unused, fiscal
// mode, document open, error
void counters(const Device& device, Answer& answer) {
  const Books& books = device.books;
  answer.integer(books.receipt_count)
      .integer(books.invoice_count)
      .integer(books.cancelled_count)
      .integer(books.report_count)
      .integer(0)
      .integer(0)
      .integer(1)
      .integer(device.document ? 1 : 0)
      .integer(device.error);
}

void communication_port(const Device& /*device*/, Answer& answer) {
  answer.text("TCP");
}

// Five texts, four numbers
void owner(const Device& device, Answer& answer) {
  answer.text(kDeviceName)
      .text("Sklep wzorcowy")
      .text("ul. Prosta 1")
      .text("00-001 Warszawa")
      .text(kTaxNumber);
  answer.integer(device.books.receipt_count)
      .integer(device.books.invoice_count)
      .integer(device.books.report_count)
      .integer(device.drawer_openings);
}

// Three numbers, two texts, ten numbers, three texts
void fiscal_state(const Device& device, Answer& answer) {
  answer.integer(1)
      .integer(device.online ? 1 : 0)
      .integer(device.paper.out() ? 1 : 0);
  answer.text(kUniqueNumber).text(kTaxNumber);
  for (const std::int64_t rate : kRates) {
    answer.integer(rate);
  }
  answer.integer(device.books.receipt_count)
      .integer(device.books.invoice_count)
      .integer(device.books.report_count);
  answer.text(device.date_and_time())
      .text(kFirmwareVersion)
      .text(kSerialNumber);
}

// Four texts
void versions(const Device& /*device*/, Answer& answer) {
  answer.text(kDeviceName)
      .text(kFirmwareVersion)
      .text(kUniqueNumber)
      .text(kSerialNumber);
}

// A text and five numbers
void memories(const Device& device, Answer& answer) {
  answer.text(kUniqueNumber)
      .integer(kFiscalMemorySize)
      .integer(kFiscalMemorySize - device.books.report_count)
      .integer(kProtectedMemorySize)
      .integer(kProtectedMemorySize - device.books.receipt_count -
               device.books.invoice_count)
      .integer(0);
}

void drawer(const Device& device, Answer& answer) {
  answer.integer(device.drawer_openings);
}

// Six numbers
void printing(const Device& device, Answer& answer) {
  answer.integer(device.paper.out() ? 1 : 0)
      .integer(device.mechanism_error ? 1 : 0)
      .integer(Paper::kWidth)
      .integer(static_cast<std::int64_t>(device.paper.lines().size()))
      .integer(0)
      .integer(0);
}

void stored_files(const Device& device, Answer& answer) {
  answer.integer(static_cast<std::int64_t>(device.files.size()));
}

// Three numbers, two texts, ten numbers, five texts
void server_state(const Device& device, Answer& answer) {
  answer.integer(device.online ? 1 : 0).integer(0).integer(0);
  answer.text("127.0.0.1").text("serwer");
  for (int i = 0; i < 8; ++i) {
    answer.integer(i);
  }
  answer.integer(device.books.receipt_count).integer(device.books.report_count);
  answer.text(device.date_and_time())
      .text("-")
      .text("-")
      .text(kFirmwareVersion)
      .text(kSerialNumber);
}

// Ten numbers, a text with "/" and ";" allowed
void network(const Device& device, Answer& answer) {
  for (const int part : {127, 0, 0, 1, 255, 0, 0, 0}) {
    answer.integer(part);
  }
  answer.integer(device.online ? 1 : 0).integer(0).line("eth0; 127.0.0.1/8");
}

// Seven numbers: the totals' whole zlotys
void whole_totals(const Device& device, Answer& answer) {
  for (const std::int64_t total : device.books.receipts) {
    answer.integer(total / 100);
  }
}

// A number, two texts, two texts with "/" and ";" allowed, three numbers
void certificate(const Device& device, Answer& answer) {
  answer.integer(1)
      .text("CERT-1")
      .text(kSerialNumber)
      .line("CN=drukarka")
      .line(device.date_and_time())
      .integer(0)
      .integer(0)
      .integer(1);
}

struct Row {
  std::int32_t number;
  Block block;
};

constexpr std::array kBlocks = {
    Row{43, counters},     Row{50, communication_port},
    Row{53, owner},        Row{54, fiscal_state},
    Row{55, versions},     Row{56, memories},
    Row{57, drawer},       Row{58, printing},
    Row{59, stored_files}, Row{60, server_state},
    Row{61, network},      Row{62, whole_totals},
    Row{64, certificate},
};

}  // namespace

// number "$i" -> "$I" and the block
std::string tell_block(Device& device, Request& request) {
  const std::int32_t number = request.integer(0);
  for (const Row& row : kBlocks) {
    if (row.number == number) {
      Answer answer("$I");
      row.block(device, answer);
      return answer.finish();
    }
  }
  throw Refusal(kBadParameter);
}

}  // namespace quilon::printer
