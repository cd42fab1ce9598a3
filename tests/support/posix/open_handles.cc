#include "tests/support/open_handles.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace quilon::testing {
namespace {

// A program that has started, and waits until the object is gone.
class WaitingProgram {
 public:
  WaitingProgram() {
    int from_program[2];
    if (pipe2(input_, O_CLOEXEC) != 0 || pipe2(from_program, O_CLOEXEC) != 0) {
      throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_adddup2(&streams, input_[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&streams, from_program[1], STDOUT_FILENO);
    char name[] = "cat";
    char* const arguments[] = {name, nullptr};
    const int failure =
        posix_spawnp(&id_, name, &streams, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&streams);
    close(input_[0]);
    close(from_program[1]);
    // What comes back shows that it has opened and closed all it needs.
    char echo = 'x';
    const bool started = failure == 0 && write(input_[1], &echo, 1) == 1 &&
                         read(from_program[0], &echo, 1) == 1;
    close(from_program[0]);
    if (!started) {
      throw std::runtime_error("no program");
    }
  }

  ~WaitingProgram() {
    close(input_[1]);
    waitpid(id_, nullptr, 0);
  }

  WaitingProgram(const WaitingProgram&) = delete;
  WaitingProgram& operator=(const WaitingProgram&) = delete;

  pid_t id() const { return id_; }

 private:
  int input_[2];
  pid_t id_ = 0;
};

}  // namespace

size_t CountOpenHandles() {
  return static_cast<size_t>(
      std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

std::multiset<std::string> InheritedHandles() {
  const WaitingProgram program;
  std::multiset<std::string> handles;
  for (const auto& entry : std::filesystem::directory_iterator(
           "/proc/" + std::to_string(program.id()) + "/fd")) {
    if (std::stoi(entry.path().filename()) > STDERR_FILENO) {
      handles.insert(std::filesystem::read_symlink(entry.path()));
    }
  }
  return handles;
}

}  // namespace quilon::testing
