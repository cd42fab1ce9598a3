// The program's options.
#ifndef PRINTER_PROGRAM_COMMAND_LINE_H_
#define PRINTER_PROGRAM_COMMAND_LINE_H_

#include <string>

#include "printer/virtual_printer.h"

namespace quilon::printer {

struct CommandLine {
  VirtualPrinter::Options printer;
  // Empty when not wanted.
  std::string paper_file;
  std::string picture_folder;
  std::string pdf_folder;
  std::string json_folder;
  std::string log_file;
  std::string script_file;
  std::string web_address;
};

// Returns true when the program is to go on; otherwise the options were wrong
// or asked for help, all is said, and status is the program's exit status.
bool ReadCommandLine(int argc, char** argv, CommandLine& command_line,
                     int& status);

}  // namespace quilon::printer

#endif  // PRINTER_PROGRAM_COMMAND_LINE_H_
