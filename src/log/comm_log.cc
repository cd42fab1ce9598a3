#include "src/log/comm_log.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "src/platform/clock.h"
#include "src/platform/files.h"
#include "src/text/driver_name.h"
#include "src/text/mazovia.h"

namespace quilon {
namespace {

constexpr size_t kLineCapacity = 4096;
constexpr size_t kMaxDataLength = 3996;
constexpr size_t kMaxRenderedPositions = 3997;
constexpr size_t kLongestRendering = 5;  // "<ENQ>"
constexpr std::string_view kTruncationMark = "  !!((log truncated))!!  ";

using Path = char[CommLog::kPathCapacity];

// Creates `directory` and the directories it lies in, except for the first
// piece: that is the drive.
void CreateDirectoryChain(const char* directory) {
  Path created;
  size_t length = 0;
  bool first_piece = true;
  for (const char* p = directory;; ++p) {
    if (*p != kPathSeparator && *p != '\0') {
      created[length++] = *p;
      continue;
    }
    // A piece that ends with the text gets its separator too, if it fits.
    if (length + 1 < sizeof(created)) {
      created[length++] = kPathSeparator;
    }
    created[length] = '\0';
    if (!first_piece) {
      CreateDirectoryAt(created);
    }
    first_piece = false;
    if (*p == '\0') {
      return;
    }
  }
}

// Writes the path of the log file that is begun now in `directory`. Returns
// false when it does not fit.
bool MakeFilePath(const char* directory, Path& path) {
  const LocalTime now = LocalTimeNow();
  const int length =
      std::snprintf(path, sizeof(path), "%s%c%d-%02d-%02d %02d`%02d`%02d.txt",
                    directory, kPathSeparator, now.year, now.month, now.day,
                    now.hour, now.minute, now.second);
  return length > 0 && static_cast<size_t>(length) < sizeof(path);
}

const char* DirectionMark(uint32_t kind) {
  if ((kind & kLogSent) != 0) {
    return "PC -> ";
  }
  return (kind & kLogReceived) != 0 ? "PC <- " : "MSG ";
}

// Writes the time and the mark of `kind`; returns how many characters.
size_t WritePrefix(uint32_t kind, char* line) {
  const LocalTime now = LocalTimeNow();
  return static_cast<size_t>(
      std::snprintf(line, kLineCapacity, "[%d-%02d-%02d %02d:%02d:%02d:%03d]%s",
                    now.year, now.month, now.day, now.hour, now.minute,
                    now.second, now.millisecond, DirectionMark(kind)));
}

char* Append(std::string_view text, char* out) {
  return std::copy(text.begin(), text.end(), out);
}

char* RenderByte(uint8_t byte, char* out) {
  switch (byte) {
    case 5:
      return Append("<ENQ>", out);
    case 10:
      return Append("<LF>", out);
    case 13:
      return Append("<CR>", out);
    case 16:
      return Append("<DLE>", out);
    case 27:
      return Append("<ESC>", out);
    default:
      break;
  }
  if ((byte >= 32 && byte <= 126) || IsPolishLetter(byte)) {
    *out = static_cast<char>(byte);
    return out + 1;
  }
  constexpr char kDigits[] = "0123456789ABCDEF";
  *out++ = '<';
  *out++ = kDigits[byte >> 4];
  *out++ = kDigits[byte & 15];
  *out++ = '>';
  return out;
}

}  // namespace

void CommLog::SetDirectory(std::string_view directory) {
  const std::lock_guard lock(mutex_);
  const size_t length = directory.copy(directory_, sizeof(directory_) - 1);
  directory_[length] = '\0';
}

void CommLog::OpenLog() {
  const std::lock_guard lock(mutex_);
  if (state_ == kNoFile) {
    if (BeginFile(directory_[0] != '\0' ? directory_ : kDefaultLogDirectory) ==
        0) {
      return;
    }
    WriteEntry(kDriverText, kLogStatus);
    WriteEntry(kSystemName, kLogStatus);
  }
  state_ = kActive;
}

void CommLog::Resume() {
  const std::lock_guard lock(mutex_);
  if (state_ != kNoFile) {
    state_ = kActive;
  }
}

void CommLog::SwitchOff() {
  const std::lock_guard lock(mutex_);
  state_ = file_.is_open() ? kSwitchedOff : kNoFile;
}

int32_t CommLog::OpenLogFile(const char* directory) {
  const std::lock_guard lock(mutex_);
  return BeginFile(directory);
}

int32_t CommLog::WriteLogEntry(const void* data, size_t length, uint32_t kind) {
  const std::lock_guard lock(mutex_);
  return WriteEntry({static_cast<const char*>(data), length}, kind);
}

int32_t CommLog::WriteIfActive(std::string_view text, uint32_t kind) {
  // Reading an answer comes here several times a byte: with the log off that
  // must cost next to nothing.
  if (state_ != kActive) {
    return 0;
  }
  const std::lock_guard lock(mutex_);
  return state_ == kActive ? WriteEntry(text, kind) : 0;
}

void CommLog::CloseLog() {
  const std::lock_guard lock(mutex_);
  if (state_ != kActive) {
    return;
  }
  WriteEntry("Close port", kLogStatus);
  file_.Close();
  state_ = kNoFile;
}

int32_t CommLog::BeginFile(const char* directory) {
  file_.Close();
  Path path;
  if (MakeFilePath(directory, path)) {
    CreateDirectoryChain(directory);
    file_.Create(path);
  } else {
    errno = ENAMETOOLONG;
  }
  if (!file_.is_open()) {
    std::printf("Blad otwierania logu komunikacyjnego %d\n", errno);
    return 0;
  }
  return 1;
}

int32_t CommLog::WriteEntry(std::string_view data, uint32_t kind) {
  if (data.empty() || !file_.is_open()) {
    return 0;
  }
  char line[kLineCapacity] = {};
  const size_t prefix_length = WritePrefix(kind, line);
  // The data is copied as a text: what follows a zero byte in it shows as zero
  // bytes too.
  std::strncpy(line + prefix_length, data.data(),
               std::min(data.size(), kMaxDataLength));

  char rendered[kMaxRenderedPositions * kLongestRendering +
                kTruncationMark.size() + 1];
  char* end = rendered;
  const size_t wanted = prefix_length + data.size();
  const size_t positions = std::min(wanted, kMaxRenderedPositions);
  for (size_t i = 0; i < positions; ++i) {
    end = RenderByte(static_cast<uint8_t>(line[i]), end);
  }
  if (wanted > positions) {
    end = Append(kTruncationMark, end);
  }
  *end++ = '\n';
  return file_.Write(rendered, static_cast<size_t>(end - rendered)) ? 1 : 0;
}

}  // namespace quilon
