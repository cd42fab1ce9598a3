#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "printer/commands/handlers.h"
#include "printer/commands/note.h"
#include "printer/fiscal/closing.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/document_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

void CheckThatNoneIsOpen(const Device& device) {
  if (device.document) {
    throw Refusal(Rule::kDocumentOpen);
  }
  if (device.slip_open) {
    throw Refusal(Rule::kForbiddenNow);
  }
}

// Null when there is none of this number that is an image.
std::shared_ptr<const Raster> FindLogo(const Device& device, int32_t number) {
  const auto found = device.logos.find(number);
  const bool there = number != 0 && found != device.logos.end() &&
                     found->second.IsComplete() && found->second.IsImage();
  return there ? std::make_shared<Raster>(found->second.Image()) : nullptr;
}

void OpenDocument(Device& device, Document document) {
  const Marks marks = TakeMarks(document.series, document.header_lines);
  document.Add(marks);
  document.owner = device.owner;
  document.rates = device.rates;
  document.client = device.client;
  document.running_number = device.NextRunningNumber();
  document.begun = device.Now();
  document.logo = FindLogo(device, document.logo_number);
  CheckOpening(device, document);
  CheckMarks(device, marks);
  PrintHead(device.paper, document);
  device.document = std::move(document);
  device.last_document_closed = false;
  device.slip_attached = false;
}

// Of an invoice's buyer; a blank text is none.
std::optional<std::string> BuyerNumber(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos ? std::nullopt
                                                          : std::optional(text);
}

// Outside a document a note stands on the paper by itself.
std::string AddNote(Device& device, const Request& request) {
  Note note = NoteOf(request);
  if (device.document) {
    CheckFurtherEntry(device);
  }
  PrintEntry(device.paper, note);
  if (device.document) {
    device.document->Add(std::move(note));
  }
  return {};
}

}  // namespace

// variant ";" line count ";0;1;" logo "$h" lines, each text CR, final text
// CR
std::string BeginReceipt(Device& device, Request& request) {
  request.Integer(0, 0, 1);
  const int32_t count = request.Integer(1, 0, 3);
  request.Integer(2, 0, 0);
  request.Integer(3, 1, 1);
  const int32_t logo = request.Integer(4);
  const std::vector<std::string> texts = ReadShape(
      request.fields, std::string(static_cast<size_t>(count) + 1, 't'));
  CheckThatNoneIsOpen(device);
  OpenDocument(device, {.series = Series::kReceipt,
                        .logo_number = logo,
                        .header_lines = MazoviaToUtf8(texts)});
  return {};
}

// "1;" line count ";1;" integer ";" integer ";0;" integer ";0;0;" integer ";"
// logo "$h" document number or text CR, lines, five buyer texts, two closing
// texts, each CR
std::string BeginInvoice(Device& device, Request& request) {
  request.CheckIntegers();
  const auto count = static_cast<size_t>(request.Integer(1, 0, 8));
  request.Integer(2, 1, 1);
  constexpr size_t kBuyerTexts = 5;
  const std::vector<std::string> texts =
      ReadShape(request.fields, std::string(1 + count + kBuyerTexts + 2, 't'));
  CheckThatNoneIsOpen(device);
  const std::vector<std::string> converted = MazoviaToUtf8(texts);
  const auto lines = converted.begin() + 1;
  const auto buyer = lines + static_cast<ptrdiff_t>(count);
  const auto closing = buyer + kBuyerTexts;
  OpenDocument(device, {.series = Series::kInvoice,
                        .logo_number = request.Integer(10),
                        .header_lines = {lines, buyer},
                        .number_text = converted.front(),
                        .buyer_number = BuyerNumber(*buyer),
                        .buyer = {buyer + 1, closing},
                        .remarks = {closing, converted.end()}});
  return {};
}

// "0$e" [text CR [text CR]]
std::string GiveUpDocument(Device& device, Request& request) {
  CancelDocument(device, MazoviaToUtf8(request.values));
  return {};
}

// number ";" number "$Y" subtotal "/" amount "/" text CR
std::string TakeSubtotal(Device& device, Request& request) {
  request.CheckIntegers();
  CheckSubtotal(device, request.Number(0));
  return AddNote(device, request);
}

// Title, texts and amounts as the command's row says; they change no total
std::string TakeNote(Device& device, Request& request) {
  const bool closed = request.parameters.back().empty();
  request.CheckIntegers(0, request.parameters.size() - (closed ? 1 : 0));
  return AddNote(device, request);
}

// integer ";" integer ";" ... "@c": four integers, three texts, five integers;
// then up to eight texts, each CR
std::string NoteWithTexts(Device& device, Request& request) {
  constexpr size_t kFirstText = 4;
  constexpr size_t kLastText = 6;
  request.CheckIntegers(0, kFirstText);
  request.CheckIntegers(kLastText + 1, request.parameters.size());
  return AddNote(device, request);
}

// ["0" to "2" ";"] or ["3;" integer ";" integer ";"] "@e" text CR, and in mode
// 3 a number "/" for each integer that is not 0
std::string NoteElectronicDocument(Device& device, Request& request) {
  constexpr int32_t kWithNumbers = 3;
  std::string shape = "t";
  const size_t count = request.parameters.size();
  const bool with_numbers = count > 0 && request.Integer(0) == kWithNumbers;
  if (count != (count == 0 ? 0U : with_numbers ? 4U : 2U)) {
    throw Refusal(Rule::kFieldCount);
  }
  for (size_t i = 1; with_numbers && i <= 2; ++i) {
    shape += request.Integer(i) != 0 ? "i" : "";
  }
  request.shape = shape;
  request.values = ReadShape(request.fields, shape);
  return AddNote(device, request);
}

}  // namespace quilon::printer
