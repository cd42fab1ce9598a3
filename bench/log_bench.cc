// An entry of the communication log, against the bare writing of such a line.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "src/log/comm_log.h"

namespace {

constexpr std::string_view kFrame =
    "\x1BP0;0;0^lSer wedzony golka\rz mleka owczego\r0.75500000 kg\rC/38.90/"
    "29.37/5d\x1B\\";

// A folder of its own, deleted at the end.
class Folder {
 public:
  Folder() : path_(std::filesystem::temp_directory_path() / "quilon_bench") {
    std::filesystem::create_directory(path_);
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

void WriteLogEntry(benchmark::State& state) {
  const Folder folder;
  quilon::CommLog log;
  log.SetDirectory(folder.path());
  log.OpenLog();
  for ([[maybe_unused]] auto iteration : state) {
    if (log.WriteLogEntry(kFrame.data(), kFrame.size(), quilon::kLogSent) !=
        1) {
      state.SkipWithError("the log cannot be written");
    }
  }
}
BENCHMARK(WriteLogEntry);

void WriteBareEntry(benchmark::State& state) {
  const Folder folder;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
      std::fopen((folder.path() + "/bare.txt").c_str(), "w"), std::fclose);
  for ([[maybe_unused]] auto iteration : state) {
    using std::chrono::system_clock;
    const system_clock::time_point now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    const auto milliseconds =
        std::chrono::floor<std::chrono::milliseconds>(now.time_since_epoch())
            .count() %
        1000;
    std::tm local = {};
    localtime_r(&seconds, &local);
    std::fprintf(file.get(), "[%d-%02d-%02d %02d:%02d:%02d:%03d]PC -> %.*s\n",
                 local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                 local.tm_hour, local.tm_min, local.tm_sec,
                 static_cast<int>(milliseconds),
                 static_cast<int>(kFrame.size()), kFrame.data());
    std::fflush(file.get());
  }
}
BENCHMARK(WriteBareEntry);

}  // namespace
