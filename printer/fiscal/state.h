// The printer's memory as JSON, so that it survives a restart.
//
// Everything but the paper and the open document is kept. A printer that is
// switched off with a document open cancels it: the next one begins with that
// document counted as cancelled.
#ifndef PRINTER_FISCAL_STATE_H_
#define PRINTER_FISCAL_STATE_H_

#include <string>

namespace quilon::printer {

struct Device;

std::string StateText(const Device& device);
// Throws std::runtime_error when the text is not such JSON.
void RestoreState(Device& device, const std::string& text);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_STATE_H_
