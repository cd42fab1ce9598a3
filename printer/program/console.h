#ifndef PRINTER_PROGRAM_CONSOLE_H_
#define PRINTER_PROGRAM_CONSOLE_H_

namespace quilon::printer {

// A Windows console expects some old code page otherwise.
void UseUtf8Console();

// Call first of all. Afterwards writing where nobody reads any more only fails,
// and no file or socket takes the place of a standard stream that was closed
// and gets what is meant for that.
void SecureStandardStreams();

}  // namespace quilon::printer

#endif  // PRINTER_PROGRAM_CONSOLE_H_
