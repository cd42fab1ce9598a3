// Documents of one and the same sale, in all the ways to print one, for tests
// that compare the driver's verdict with a printer's books.
#ifndef QUILON_TESTS_SUPPORT_SAMPLE_DOCUMENTS_H_
#define QUILON_TESTS_SUPPORT_SAMPLE_DOCUMENTS_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "printer/virtual_printer.h"

namespace quilon::testing {

// What the sale comes to, in grosze.
inline constexpr int64_t kSampleTotal = 910;

struct SampleDocument {
  std::string name;
  // Returns whether the driver says that the document was printed.
  std::function<bool()> print;
  // The driver asks for the totals until they are told: a printer that stopped
  // answering has to recover.
  bool insists;
};

const std::vector<SampleDocument>& SampleDocuments();

// Connects the driver, with the given reply time-out in milliseconds.
void ConnectTo(const printer::VirtualPrinter& printer, uint32_t reply_timeout);

// What the printer has booked, of both series.
int64_t Booked(const printer::VirtualPrinter& printer);

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_SAMPLE_DOCUMENTS_H_
