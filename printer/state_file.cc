#include "printer/state_file.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include "printer/fiscal/state.h"

namespace quilon::printer {
namespace {

// On Windows a file that somebody reads cannot be replaced, and virus scanners
// read what is new; they are done soon.
bool Replace(const std::filesystem::path& path,
             const std::filesystem::path& fresh) {
  constexpr int kAttempts = 25;
  constexpr std::chrono::milliseconds kPause(20);
  std::error_code failure;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::filesystem::rename(fresh, path, failure);
    if (!failure) {
      return true;
    }
    std::this_thread::sleep_for(kPause);
  }
  return false;
}

}  // namespace

StateFile::StateFile(std::filesystem::path path) : path_(std::move(path)) {
  if (path_.empty()) {
    return;
  }
  std::filesystem::path beside = path_;
  beside += ".lock";
  lock_ = LockFile(beside);
  if (!lock_) {
    throw std::runtime_error("another printer keeps its state in " +
                             path_.string());
  }
}

void StateFile::Load(Device& device) {
  if (path_.empty() || !std::filesystem::exists(path_)) {
    return;
  }
  std::ifstream file(path_, std::ios::binary);
  RestoreState(device, {std::istreambuf_iterator<char>(file), {}});
}

bool StateFile::Save(const Device& device) {
  if (path_.empty()) {
    return true;
  }
  std::string text = StateText(device);
  if (text == saved_) {
    return true;
  }
  std::filesystem::path fresh = path_;
  fresh += ".new";
  std::ofstream file(fresh, std::ios::binary);
  file << text;
  file.close();
  if (!file || !Replace(path_, fresh)) {
    return false;
  }
  saved_ = std::move(text);
  return true;
}

}  // namespace quilon::printer
