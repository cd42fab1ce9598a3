#include "src/comm/serial_setup.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "src/comm/last_error.h"

namespace quilon {
namespace {

constexpr uint8_t kXon = 0x11;
constexpr uint8_t kXoff = 0x13;
constexpr uint8_t kNoCharacter = 0xFF;

constexpr uint32_t kDtrControl = kLineDtrOn | kLineDtrHandshake;
constexpr uint32_t kRtsControl = kLineRtsOn | kLineRtsHandshake;
constexpr uint32_t kXonXoff = kLineXonXoffOutput | kLineXonXoffInput;

std::string_view PortName(const SerialParams& params) {
  const char* end =
      std::find(std::begin(params.port_name), std::end(params.port_name), '\0');
  return {params.port_name, end};
}

// Changes what `flow_control` says and leaves all else as the port had it.
// Returns the flow control's name.
const char* SetFlowControl(uint32_t flow_control, LineState* state) {
  if ((flow_control & QUIL_FLOW_HARDWARE) != 0) {
    state->flags &= ~(kLineDtrOn | kLineRtsOn | kXonXoff);
    state->flags |= kLineCtsOutput | kLineDsrOutput | kLineDtrHandshake |
                    kLineDsrSensitive | kLineRtsHandshake;
    return "Hardware";
  }
  if ((flow_control & QUIL_FLOW_XON_XOFF) != 0) {
    state->flags &= ~(kLineCtsOutput | kLineDsrOutput | kLineDsrSensitive |
                      kDtrControl | kRtsControl);
    state->flags |= kXonXoff;
    state->xon = kXon;
    state->xoff = kXoff;
    return "Xon/Xoff";
  }
  state->flags &= ~(kDtrControl | kRtsControl);
  state->xon = kNoCharacter;
  state->xoff = kNoCharacter;
  return "Brak";
}

void LogParams(const SerialParams& params, const char* flow_control,
               CommLog* log) {
  const std::string_view name = PortName(params);
  char text[255];
  const int length = std::snprintf(
      text, sizeof(text), "Params: portname: %.*s baudrate: %d flowcontrol:%s",
      static_cast<int>(name.size()), name.data(),
      static_cast<int32_t>(params.baud_rate), flow_control);
  if (IsThreaded(params)) {
    std::snprintf(text + length, sizeof(text) - static_cast<size_t>(length),
                  " threaded:%d", static_cast<int32_t>(params.threaded));
  }
  log->WriteIfActive(text, kLogStatus);
}

bool ConfigurePort(const SerialParams& params, SerialPort* port, CommLog* log) {
  LineState state = {};
  if (!port->GetLineState(&state)) {
    return false;
  }
  state.baud_rate = params.baud_rate;
  state.data_bits = static_cast<uint8_t>(params.data_bits);
  state.stop_bits = static_cast<uint8_t>(params.stop_bits);
  state.parity = static_cast<uint8_t>(params.parity);
  const uint8_t own_xon = state.xon;
  const uint8_t own_xoff = state.xoff;
  const char* flow_control = SetFlowControl(params.flow_control, &state);
  bool taken = port->SetLineState(state);
  if (!taken && state.xon == state.xoff) {
    // Some systems refuse two characters that are the same.
    state.xon = own_xon;
    state.xoff = own_xoff;
    taken = port->SetLineState(state);
  }
  if (!taken) {
    return false;
  }
  LogParams(params, flow_control, log);
  return port->SetTimeouts({.read_interval = 50,
                            .read_per_byte = 10,
                            .read_constant = 10,
                            .write_per_byte = 10,
                            .write_constant = params.write_timeout});
}

}  // namespace

bool IsThreaded(const SerialParams& params) { return params.threaded == 1; }

int32_t OpenSerialPort(const SerialParams& params, SerialPort* port,
                       CommLog* log, LastErrorRecord* last_error) {
  log->WriteIfActive("Open port", kLogStatus);
  if (!port->Open(PortName(params))) {
    const char* failure =
        IsThreaded(params) ? "Port Open ERROR" : "Port open ERROR";
    log->WriteIfActive(failure, kLogStatus);
    SetDriverError(failure, last_error);
    return 0;
  }
  log->WriteIfActive("Port Open OK, try set connection params...", kLogStatus);
  if (!ConfigurePort(params, port, log)) {
    port->Close();
    log->WriteIfActive("Param settings fail, closing port.", kLogStatus);
    return 0;
  }
  return 1;
}

}  // namespace quilon
