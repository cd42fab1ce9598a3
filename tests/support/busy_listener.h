// A TCP port that is listened on but has no room: the system drops what asks
// for a connection, and whoever asks goes on asking.
#ifndef QUILON_TESTS_SUPPORT_BUSY_LISTENER_H_
#define QUILON_TESTS_SUPPORT_BUSY_LISTENER_H_

#include <chrono>
#include <cstdint>
#include <future>
#include <memory>
#include <string>

namespace quilon::testing {

class BusyListener {
 public:
  BusyListener();
  ~BusyListener();
  BusyListener(const BusyListener&) = delete;
  BusyListener& operator=(const BusyListener&) = delete;

  uint16_t port() const;

  // From now on connections are taken, in the background, for `time`; then all
  // are closed. The future holds what came on them.
  std::future<std::string> HearFor(std::chrono::milliseconds time);

 private:
  struct Network;
  std::unique_ptr<Network> network_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_BUSY_LISTENER_H_
