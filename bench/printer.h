// A printer that does no more than answer, after a time of its own.
#ifndef QUILON_BENCH_PRINTER_H_
#define QUILON_BENCH_PRINTER_H_

#include <atomic>
#include <chrono>
#include <string_view>

namespace quilon::bench {

inline constexpr std::string_view kDle = "\x10";
inline constexpr std::string_view kEnq = "\x05";

// What the printer answers to DLE and ENQ: online, the last command was good.
inline constexpr std::string_view kOnline = "t";
inline constexpr std::string_view kCommandOk = "d";

// What it answers to an identity request.
inline constexpr std::string_view kIdentityRequest = "\x1BP23#s\x1B\\";
inline constexpr std::string_view kIdentity =
    "\x1BP1#X1;2;3;4;5;5;6;7;8/0.09/10.00/11.11/0.12/13.00/14.00/15.00/16/"
    "17.17/18.00/19.00/20.00/21.00/22.22/23.00/24.00/ABC1234567890\x1B\\";

// One thread answers; any other may set and ask.
class Printer {
 public:
  using Duration = std::chrono::steady_clock::duration;

  // From now on every answer leaves so long after its request has come.
  void set_delay(Duration delay) { delay_ = delay; }

  // How long the last answer was really held back.
  Duration last_delay() const { return last_delay_; }

  // Takes what has just come and returns the answer to it when that is due;
  // nothing at once when it wants none. Requests are sent one by one, so an
  // answer is due at the end of what has come, if at all.
  std::string_view Answer(std::string_view received);

 private:
  std::atomic<Duration> delay_ = Duration(0);
  std::atomic<Duration> last_delay_ = Duration(0);
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_PRINTER_H_
