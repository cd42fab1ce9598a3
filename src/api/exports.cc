// The exported functions.
#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <string_view>
#include <utility>

#include "quilon/quilon.h"
#include "src/api/dispatcher.h"
#include "src/api/driver.h"
#include "src/api/self_test.h"
#include "src/api/versions.h"
#include "src/comm/rs232_comm.h"
#include "src/comm/serial_setup.h"
#include "src/comm/tcpip_comm.h"
#include "src/comm/thread_rs232_comm.h"
#include "src/platform/process.h"
#include "src/platform/tcp_socket.h"
#include "src/text/driver_name.h"

namespace {

using quilon::OnlineFDev;

constexpr int32_t kFailed = 0;
constexpr int32_t kDone = 1;
constexpr uint32_t kDefaultReplyTimeout = OnlineFDev::kDefaultReplyTimeout;
constexpr uint32_t kDefaultWriteTimeout = 10000;
// A longer port name is cut to this many characters when it comes alone.
constexpr size_t kMaxPortName = 9;
// A longer log message shows no more than this many characters.
constexpr size_t kMaxMessageLength = 4096;
// How long the self-test shows the versions on the customer display.
constexpr uint32_t kDisplayMilliseconds = 4000;

// What the process has one of. No destructor runs when the library is unloaded:
// the system takes back what the driver still holds.
quilon::Driver& TheDriver() noexcept {
  alignas(quilon::Driver) static char place[sizeof(quilon::Driver)];
  static quilon::Driver* const driver = new (place) quilon::Driver;
  return *driver;
}

// A call from outside, as long as it lasts.
class Call {
 public:
  Call() : entered_(TheDriver().gate.Enter()) {}
  ~Call() {
    if (entered_) {
      TheDriver().gate.Leave();
    }
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  bool entered() const { return entered_; }

 private:
  bool entered_;
};

// Runs `body` with the device object, unless another thread has a call in
// progress. Returns `failure` then, without a device, and when something is
// thrown.
template <typename Body>
int32_t WithDevice(int32_t failure, Body body) noexcept {
  const Call call;
  return call.entered() && TheDriver().device != nullptr
             ? quilon::Contain(*TheDriver().device, failure, body)
             : failure;
}

// The same for the log, which any thread may use at any time.
template <typename Body>
int32_t WithLog(Body body) noexcept {
  const std::lock_guard lock(TheDriver().mutex);
  return TheDriver().device == nullptr
             ? kFailed
             : quilon::Contain(*TheDriver().device, kFailed, body);
}

// Makes `device`, which may be null, the driver's. Returns the one before.
OnlineFDev* Exchange(OnlineFDev* device) {
  const std::lock_guard lock(TheDriver().mutex);
  return std::exchange(TheDriver().device, device);
}

// Opens a connection and makes it the device's, even when it failed.
template <typename Transport, typename... Params>
int32_t OpenTransport(OnlineFDev* device, uint32_t reply_timeout,
                      const Params&... params) {
  device->set_reply_timeout(reply_timeout);
  auto transport = std::make_unique<Transport>();
  device->StartLog(transport.get());
  LastErrorRecord last_error = TheDriver().last_error.Get();
  const int32_t result = transport->OpenConnection(params..., &last_error);
  TheDriver().last_error.Set(last_error);
  device->Attach(std::move(transport));
  return result;
}

int32_t OpenSerialTransport(const SerialParams& params) {
  return WithDevice(kFailed, [&params](OnlineFDev& device) {
    return quilon::IsThreaded(params)
               ? OpenTransport<quilon::ThreadRS232Comm>(
                     &device, params.reply_timeout, params)
               : OpenTransport<quilon::RS232Comm>(&device, params.reply_timeout,
                                                  params);
  });
}

}  // namespace

int32_t quil_init(uint32_t argument) {
  const Call call;
  if (!call.entered()) {
    return kFailed;
  }
  try {
    auto device = std::make_unique<OnlineFDev>(argument);
    if (OnlineFDev* const earlier = Exchange(device.release())) {
      delete earlier;
    } else {
      quilon::CallInForkedChildren([] { TheDriver().gate.Reset(); });
    }
  } catch (const std::exception&) {
    return kFailed;
  }
  quilon::TcpSocket::StartLibrary();
  return kDone;
}

int32_t quil_close() {
  TheDriver().gate.EnterToClose([] {
    WithLog([](OnlineFDev& device) {
      device.Interrupt();
      return kDone;
    });
  });
  const bool any_device = TheDriver().device != nullptr;
  if (any_device) {
    TheDriver().device->Close();
  }
  TheDriver().gate.Leave();
  return any_device ? kDone : kFailed;
}

int32_t quil_get_last_error(LastErrorRecord* record) {
  if (record == nullptr) {
    return kFailed;
  }
  *record = TheDriver().last_error.Get();
  return kDone;
}

int32_t quil_ioctrl(int32_t code, void* data, void* /*reserved*/,
                    uint32_t flags) {
  return WithDevice(-1, [=](OnlineFDev&) {
    return quilon::RunCommand(&TheDriver(), code, data, flags);
  });
}

int32_t quil_open_serial(const char* port_name, uint32_t baud_rate,
                         uint32_t threaded) {
  if (port_name == nullptr) {
    return kFailed;
  }
  SerialParams params = {};
  std::strncpy(params.port_name, port_name, kMaxPortName);
  params.baud_rate = baud_rate;
  params.data_bits = 8;
  params.reserved1 = 100;
  params.write_timeout = kDefaultWriteTimeout;
  params.threaded = threaded;
  params.reply_timeout = kDefaultReplyTimeout;
  return OpenSerialTransport(params);
}

int32_t quil_open_serial_ex(const SerialParams* params) {
  return params == nullptr ? kFailed : OpenSerialTransport(*params);
}

int32_t quil_open_tcpip(const char* address, uint32_t port) {
  if (address == nullptr) {
    return kFailed;
  }
  TcpParams params = {};
  std::strncpy(params.address, address, sizeof(params.address) - 1);
  params.port = port;
  params.reply_timeout = kDefaultReplyTimeout;
  return quil_open_tcpip_ex(&params);
}

int32_t quil_open_tcpip_ex(const TcpParams* params) {
  if (params == nullptr) {
    return kFailed;
  }
  return WithDevice(kFailed, [params](OnlineFDev& device) {
    return OpenTransport<quilon::TCPIPComm>(&device, params->reply_timeout,
                                            *params, device.interrupted());
  });
}

int32_t quil_enable_log(const char* directory) {
  if (directory == nullptr) {
    return kFailed;
  }
  const std::string_view text(
      directory, strnlen(directory, quilon::CommLog::kPathCapacity));
  if (text.size() == quilon::CommLog::kPathCapacity) {
    return kFailed;
  }
  return WithLog([text](OnlineFDev& device) {
    device.EnableLog(text);
    return kDone;
  });
}

int32_t quil_disable_log() {
  return WithLog([](OnlineFDev& device) {
    device.DisableLog();
    return kDone;
  });
}

int32_t quil_log_msg(const char* text) {
  if (text == nullptr) {
    return kFailed;
  }
  return WithLog([text](OnlineFDev& device) {
    return device.LogMessage({text, strnlen(text, kMaxMessageLength)});
  });
}

int32_t quil_drv_version(DriverVersion* version) {
  if (version != nullptr) {
    *version = quilon::OwnVersion();
  }
  return 0;
}

int32_t quil_prn_version(PrinterVersion* version) {
  if (version == nullptr) {
    return 1;
  }
  *version = {};
  return WithDevice(1, [version](OnlineFDev&) {
    *version = quilon::AskPrinterVersion(&TheDriver());
    return 1;
  });
}

int32_t quil_auto_test() {
  return WithDevice(0, [](OnlineFDev&) {
    quilon::RunSelfTest(&TheDriver(), kDisplayMilliseconds);
    return 0;
  });
}
