// The printer's memory as JSON, so that it survives a restart.
//
// Everything but the paper and the open document is kept. A document that was
// open when the printer was switched off is cancelled when its state comes
// back: counted so, and ended so on the paper.
#ifndef PRINTER_FISCAL_STATE_H_
#define PRINTER_FISCAL_STATE_H_

#include <string>

namespace quilon::printer {

struct Device;

std::string StateText(const Device& device);
// Throws std::runtime_error when the text is not such JSON.
void RestoreState(Device& device, const std::string& text);

// Leaves the device as a power cut does: it knows what its memory keeps. Paper,
// switches and faults stay as they are.
void SwitchOffAndOn(Device& device);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_STATE_H_
