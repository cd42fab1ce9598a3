// An application that has closed its standard streams, as services do.
#ifndef QUILON_TESTS_SUPPORT_CLOSED_STREAMS_H_
#define QUILON_TESTS_SUPPORT_CLOSED_STREAMS_H_

#include <unistd.h>

#include <cstdio>
#include <utility>
#include <vector>

namespace quilon::testing {

// Closes standard streams until the object is gone. What fails meanwhile cannot
// be said: keep it for later.
class ClosedStreams {
 public:
  explicit ClosedStreams(const std::vector<int>& streams = {
                             STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    std::fflush(nullptr);
    for (const int stream : streams) {
      saved_.emplace_back(stream, dup(stream));
    }
    for (const int stream : streams) {
      close(stream);
    }
  }

  ~ClosedStreams() {
    for (const auto& [stream, copy] : saved_) {
      dup2(copy, stream);
      close(copy);
    }
  }

  ClosedStreams(const ClosedStreams&) = delete;
  ClosedStreams& operator=(const ClosedStreams&) = delete;

  // How many standard streams are open.
  static int CountTaken() {
    int taken = 0;
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      const int copy = dup(stream);
      if (copy >= 0) {
        ++taken;
        close(copy);
      }
    }
    return taken;
  }

 private:
  std::vector<std::pair<int, int>> saved_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_CLOSED_STREAMS_H_
