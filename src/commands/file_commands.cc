// Sending files to the printer's memory.
#include <algorithm>
#include <array>
#include <string>

#include "commands/online_fdev.h"
#include "platform/files.h"

namespace quilon {

// A frame of a file of `size` bytes with one block of its bytes.
FrameBuilder OnlineFDev::FileFrame(int32_t continued, int64_t size,
                                   std::string_view name,
                                   std::span<const uint8_t> block) {
  return Frame()
      .Parameters(continued, "0")
      .Raw("@A")
      .NumberFields(size, 2 * block.size())
      .Raw(name)
      .Cr()
      .LowerHex(block)
      .Cr()
      .End();
}

int32_t OnlineFDev::SendFile(const FileTransfer& record) {
  constexpr int32_t kFailed = -1;
  InputFile file(std::string(TextOf(record.path)).c_str());
  if (!file.is_open()) {
    return kFailed;
  }
  std::array<uint8_t, 1024> buffer = {};
  for (int64_t sent = 0; sent < file.size();) {
    const auto length = static_cast<size_t>(
        std::min(static_cast<int64_t>(buffer.size()), file.size() - sent));
    if (file.Read(buffer.data(), length) != length) {
      return kFailed;
    }
    Send(FileFrame(sent == 0 ? 0 : 1, file.size(), TextOf(record.name),
                   std::span(buffer).first(length)));
    sent += static_cast<int64_t>(length);

    SendEnq();
    EnqStatus status = {};
    ReadEnq(&status);
    if (status.last_command_ok == 0) {
      return kFailed;
    }
  }
  return 0;
}

int32_t OnlineFDev::SendEmptyFile(int32_t continued, std::string_view name) {
  return Send(FileFrame(continued, 0, name, {}));
}

}  // namespace quilon
