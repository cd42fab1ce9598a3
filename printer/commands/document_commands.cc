#include <string>
#include <vector>

#include "printer/closing.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/mazovia.h"
#include "printer/numbers.h"
#include "printer/shape.h"

namespace quilon::printer {
namespace {

void open_document(Device& device, Series series) {
  if (device.document) {
    throw Refusal(kDocumentAlreadyOpen);
  }
  if (device.slip_open) {
    throw Refusal(kForbiddenNow);
  }
  device.document = Document{series};
  device.last_document_closed = false;
  device.slip_attached = false;
}

}  // namespace

// variant ";" line count ";0;1;" integer "$h" lines, each text CR, final text
// CR
std::string begin_receipt(Device& device, Request& request) {
  const std::int32_t variant = request.integer(0, 0, 1);
  const std::int32_t count = request.integer(1, 0, 3);
  request.integer(2, 0, 0);
  request.integer(3, 1, 1);
  request.integer(4);
  const std::vector<std::string> texts = read_shape(
      request.fields, std::string(static_cast<std::size_t>(count) + 1, 't'));
  open_document(device, Series::kReceipt);
  print_texts(device.paper, texts);
  device.paper.print_centered(variant == 0 ? "PARAGON FISKALNY"
                                           : "PARAGON FISKALNY (1)");
  return {};
}

// "1;" line count ";1;" integer ";" integer ";0;" integer ";0;0;" two integers
// "$h" document number or text CR, lines, five buyer texts, two closing texts,
// each CR
std::string begin_invoice(Device& device, Request& request) {
  request.check_integers();
  const auto count = static_cast<std::size_t>(request.integer(1, 0, 8));
  request.integer(2, 1, 1);
  constexpr std::size_t kBuyerTexts = 5;
  const std::vector<std::string> texts =
      read_shape(request.fields, std::string(1 + count + kBuyerTexts + 2, 't'));
  open_document(device, Series::kInvoice);
  const auto lines = texts.begin() + 1;
  const auto buyer = lines + static_cast<std::ptrdiff_t>(count);
  const auto closing = buyer + kBuyerTexts;
  Paper& paper = device.paper;
  print_texts(paper, {lines, buyer});
  paper.print_centered("FAKTURA " + mazovia_to_utf8(texts.front()));
  for (auto text = buyer; text != closing; ++text) {
    if (!text->empty()) {
      paper.print_pair("Nabywca", mazovia_to_utf8(*text));
    }
  }
  print_texts(paper, {closing, texts.end()});
  return {};
}

// "0$e" [text CR [text CR]]
std::string cancel_document(Device& device, Request& request) {
  device.paper.print_centered("ANULOWANO");
  print_texts(device.paper, request.values);
  device.paper.print_pair("", device.date_and_time());
  device.paper.tear_off({PrintoutKind::kCancelled});
  ++device.books.cancelled_count;
  device.last_document_closed = false;
  device.document.reset();
  return {};
}

// Title, texts and amounts as the command's row says; they change no total
std::string note(Device& device, Request& request) {
  const bool closed = request.parameters.back().empty();
  request.check_integers(0, request.parameters.size() - (closed ? 1 : 0));
  return print_note(device, request);
}

// integer ";" integer ";" ... "@c": four integers, three texts, five integers;
// then up to eight texts, each CR
std::string note_with_texts(Device& device, Request& request) {
  constexpr std::size_t kFirstText = 4;
  constexpr std::size_t kLastText = 6;
  request.check_integers(0, kFirstText);
  request.check_integers(kLastText + 1, request.parameters.size());
  return print_note(device, request);
}

// ["0" to "2" ";"] or ["3;" integer ";" integer ";"] "@e" text CR, and in mode
// 3 a number "/" for each integer that is not 0
std::string note_electronic_document(Device& device, Request& request) {
  constexpr std::int32_t kWithNumbers = 3;
  std::string shape = "t";
  const std::size_t count = request.parameters.size();
  const bool with_numbers = count > 0 && request.integer(0) == kWithNumbers;
  if (count != (count == 0 ? 0U : with_numbers ? 4U : 2U)) {
    throw Refusal(kWrongFieldCount);
  }
  for (std::size_t i = 1; with_numbers && i <= 2; ++i) {
    shape += request.integer(i) != 0 ? "i" : "";
  }
  request.shape = shape;
  request.values = read_shape(request.fields, shape);
  return print_note(device, request);
}

}  // namespace quilon::printer
