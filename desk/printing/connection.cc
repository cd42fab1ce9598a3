#include "desk/printing/connection.h"

#include <algorithm>
#include <thread>

#include "desk/document/printable.h"

namespace quilon::desk {

std::string LastMessage() {
  LastErrorRecord error = {};
  quil_get_last_error(&error);
  return FromCp1250(error.message);
}

Connection::Connection(const Settings& settings)
    : settings_(settings), watchdog_([] { quil_close(); }) {
  quil_init(0);
  if (!settings.log.empty()) {
    quil_enable_log(settings.log.c_str());
  }
}

Connection::~Connection() { quil_close(); }

void Connection::Wait(std::chrono::milliseconds time) const {
  std::this_thread::sleep_until(std::min(Clock::now() + time, deadline_));
}

int32_t Connection::Run(int32_t code, void* record, uint32_t flags) {
  int32_t result = -1;
  if (!out_of_time()) {
    watchdog_.Watch(deadline_);
    result = quil_ioctrl(code, record, nullptr, flags);
    watchdog_.CallOff();
  }
  clean_ = clean_ && result >= 0;
  return result;
}

bool Connection::Ask(int32_t question, void* parameters, int32_t answer,
                     void* record) {
  return clean_ && Run(question, parameters) == 0 && Run(answer, record) == 0;
}

bool Connection::Clean() {
  if (clean_) {
    return true;
  }
  if (opened_) {
    // What the printer still says to the old connection is said to nobody.
    quil_close();
    Wait(settings_.limits.reply);
  }
  if (out_of_time()) {
    return false;
  }
  opened_ = true;
  watchdog_.Watch(deadline_);
  const auto* tcp = std::get_if<TcpParams>(&settings_.printer);
  clean_ = (tcp != nullptr ? quil_open_tcpip_ex(tcp)
                           : quil_open_serial_ex(std::get_if<SerialParams>(
                                 &settings_.printer))) == 1;
  watchdog_.CallOff();
  return clean_;
}

}  // namespace quilon::desk
