#include "desk/profile/settings.h"

#include <cstring>
#include <fstream>
#include <iterator>

#include "desk/document/reader.h"

namespace quilon::desk {
namespace {

using std::chrono::milliseconds;

template <size_t kSize>
void Copy(const Reader& reader, const char* name, char (&target)[kSize]) {
  const std::string text = reader.Printable(name, kSize - 1);
  if (text.empty()) {
    reader.Fail(name, "is missing");
  }
  std::memcpy(target, text.c_str(), text.size() + 1);
}

TcpParams ReadTcp(const Reader& reader) {
  constexpr int64_t kLastPort = 65'535;
  reader.AllowOnly({"address", "port"});
  TcpParams params = {};
  Copy(reader, "address", params.address);
  constexpr int64_t kUsualPort = 6001;
  params.port =
      static_cast<uint32_t>(reader.Integer("port", 1, kLastPort, kUsualPort));
  return params;
}

SerialParams ReadSerial(const Reader& reader) {
  constexpr int64_t kMostBaud = 4'000'000;
  constexpr int64_t kUsualBaud = 9600;
  constexpr uint32_t kWriteTimeout = 10'000;
  constexpr int32_t kDataBits = 8;
  reader.AllowOnly({"name", "baud", "threaded", "flow"});
  SerialParams params = {};
  Copy(reader, "name", params.port_name);
  params.baud_rate =
      static_cast<uint32_t>(reader.Integer("baud", 1, kMostBaud, kUsualBaud));
  params.data_bits = kDataBits;
  params.write_timeout = kWriteTimeout;
  params.threaded = reader.Flag("threaded", false) ? 1 : 0;
  const std::string flow = reader.Text("flow", "none");
  if (flow == "hardware") {
    params.flow_control = QUIL_FLOW_HARDWARE;
  } else if (flow == "xon_xoff") {
    params.flow_control = QUIL_FLOW_XON_XOFF;
  } else if (flow != "none") {
    reader.Fail("flow", "has to be none, hardware or xon_xoff");
  }
  return params;
}

Limits ReadLimits(const Reader& reader) {
  constexpr int64_t kHour = 3'600'000;
  constexpr int64_t kMostAttempts = 10;
  Limits limits;
  reader.AllowOnly({"reply_ms", "closing_ms", "call_ms", "attempts"});
  const auto time = [&](const char* name, milliseconds usual) {
    return milliseconds(reader.Integer(name, 1, kHour, usual.count()));
  };
  limits.reply = time("reply_ms", limits.reply);
  limits.closing = time("closing_ms", limits.closing);
  limits.call = time("call_ms", limits.call);
  limits.attempts =
      reader.Integer("attempts", 1, kMostAttempts, limits.attempts);
  return limits;
}

nlohmann::json ReadFile(const Reader& reader, const char* name) {
  std::ifstream file(reader.Text(name), std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  if (!file) {
    reader.Fail(name, "cannot be read");
  }
  return ParseText(text.c_str());
}

}  // namespace

Settings ReadSettings(const nlohmann::json& value) {
  const Reader reader(value);
  reader.AllowOnly({"printer", "journal", "profile", "limits", "log"});
  Settings settings;
  const Reader printer = reader.Object("printer");
  printer.AllowOnly({"tcp", "serial"});
  if (printer.Has("tcp") == printer.Has("serial")) {
    throw Invalid(printer.path(), "has to have either tcp or serial");
  }
  if (reader.Has("limits")) {
    settings.limits = ReadLimits(reader.Object("limits"));
  }
  const auto reply = static_cast<uint32_t>(settings.limits.reply.count());
  if (printer.Has("tcp")) {
    TcpParams params = ReadTcp(printer.Object("tcp"));
    params.reply_timeout = reply;
    settings.printer = params;
  } else {
    SerialParams params = ReadSerial(printer.Object("serial"));
    params.reply_timeout = reply;
    settings.printer = params;
  }
  settings.journal = reader.Text("journal");
  if (settings.journal.empty()) {
    reader.Fail("journal", "has to name a file");
  }
  settings.log = reader.Text("log", "");
  if (!reader.Has("profile")) {
    settings.profile = ReadProfile(ParseText(UsualProfile()));
    return settings;
  }
  try {
    settings.profile = ReadProfile(ReadFile(reader, "profile"));
  } catch (const Invalid& invalid) {
    reader.Fail(
        "profile",
        invalid.path.empty()
            ? std::string(invalid.what())
            : std::string(invalid.path).append(" ").append(invalid.what()));
  }
  return settings;
}

}  // namespace quilon::desk
