// Obeys what a client sends: frames, which are looked up in the command table,
// and control bytes, which ask for the status.
#ifndef PRINTER_COMMANDS_EXECUTOR_H_
#define PRINTER_COMMANDS_EXECUTOR_H_

#include <string>
#include <string_view>
#include <vector>

#include "printer/protocol/refusal.h"

namespace quilon::printer {

struct Device;

struct Outcome {
  std::string answer;    // with ESC "P" and ESC "\"; empty: there is none
  int error = kNoError;  // with which a frame was refused
  Reason reason{};       // why it was
  std::vector<std::string> faults{};  // that happened meanwhile, as ordered
};

// Executes one frame, given without ESC "P" and ESC "\".
Outcome ExecuteFrame(Device& device, std::string_view body);

// The answer to DLE, ENQ or SUB.
std::string AnswerControl(const Device& device, char byte);

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_EXECUTOR_H_
