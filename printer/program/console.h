#ifndef PRINTER_PROGRAM_CONSOLE_H_
#define PRINTER_PROGRAM_CONSOLE_H_

namespace quilon::printer {

// A Windows console expects some old code page otherwise.
void UseUtf8Console();

}  // namespace quilon::printer

#endif  // PRINTER_PROGRAM_CONSOLE_H_
