// Sending files to the printer's memory.
#include <algorithm>
#include <array>
#include <string>

#include "src/commands/online_fdev.h"
#include "src/platform/files.h"

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

bool OnlineFDev::SendFile(const FileTransfer& record) {
  InputFile file(std::string(TextOf(record.path)).c_str());
  if (!file.is_open()) {
    return false;
  }
  std::array<uint8_t, 1024> buffer = {};
  for (int64_t sent = 0; sent < file.size();) {
    const auto length = static_cast<size_t>(
        std::min(static_cast<int64_t>(buffer.size()), file.size() - sent));
    if (file.Read(buffer.data(), length) != length) {
      return false;
    }
    Send(FileFrame(sent == 0 ? 0 : 1, file.size(), TextOf(record.name),
                   std::span(buffer).first(length)));
    sent += static_cast<int64_t>(length);

    SendEnq();
    EnqStatus status = {};
    ReadEnq(&status);
    if (status.last_command_ok == 0) {
      return false;
    }
  }
  return true;
}

bool OnlineFDev::SendEmptyFile(int32_t continued, std::string_view name) {
  return Deliver(FileFrame(continued, 0, name, {}));
}

}  // namespace quilon
