// The exported functions.
#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <string_view>
#include <utility>

#include "api/dispatcher.h"
#include "api/driver.h"
#include "api/self_test.h"
#include "api/versions.h"
#include "comm/rs232_comm.h"
#include "comm/serial_setup.h"
#include "comm/tcpip_comm.h"
#include "comm/thread_rs232_comm.h"
#include "platform/clock.h"
#include "platform/tcp_socket.h"
#include "quilon/quilon.h"
#include "text/driver_name.h"

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

// No destructor runs when the library is unloaded: the system takes back what
// the driver still holds.
constinit quilon::Driver driver;

// Runs `body` with the device object. Returns `failure` without one, and when
// something is thrown.
template <typename Body>
int32_t WithDevice(int32_t failure, Body body) noexcept {
  return driver.device == nullptr
             ? failure
             : quilon::Contain(*driver.device, failure, body);
}

// Opens a connection and makes it the device's, even when it failed.
template <typename Transport, typename Params>
int32_t OpenTransport(const Params& params, OnlineFDev* device) {
  device->set_reply_timeout(params.reply_timeout);
  auto transport = std::make_unique<Transport>();
  device->StartLog(transport.get());
  const int32_t result = transport->OpenConnection(params, &driver.last_error);
  device->Attach(std::move(transport));
  return result;
}

int32_t OpenSerialTransport(const SerialParams& params) {
  return WithDevice(kFailed, [&params](OnlineFDev& device) {
    return quilon::IsThreaded(params)
               ? OpenTransport<quilon::ThreadRS232Comm>(params, &device)
               : OpenTransport<quilon::RS232Comm>(params, &device);
  });
}

}  // namespace

int32_t quil_init(uint32_t argument) {
  quilon::ClockMilliseconds();  // the driver's time begins here
  try {
    auto device = std::make_unique<OnlineFDev>(argument);
    delete std::exchange(driver.device, nullptr);
    driver.device = device.release();
  } catch (const std::exception&) {
    return kFailed;
  }
  quilon::TcpSocket::StartLibrary();
  return kDone;
}

int32_t quil_close() {
  return WithDevice(kFailed, [](OnlineFDev& device) { return device.Close(); });
}

int32_t quil_get_last_error(LastErrorRecord* record) {
  if (record == nullptr) {
    return kFailed;
  }
  *record = driver.last_error;
  return kDone;
}

int32_t quil_ioctrl(int32_t code, void* data, void* /*reserved*/,
                    uint32_t flags) {
  return WithDevice(-1, [=](OnlineFDev&) {
    return quilon::RunCommand(&driver, code, data, flags);
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
    return OpenTransport<quilon::TCPIPComm>(*params, &device);
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
  return WithDevice(kFailed, [text](OnlineFDev& device) {
    device.EnableLog(text);
    return kDone;
  });
}

int32_t quil_disable_log() {
  return WithDevice(kFailed, [](OnlineFDev& device) {
    device.DisableLog();
    return kDone;
  });
}

int32_t quil_log_msg(const char* text) {
  if (text == nullptr) {
    return kFailed;
  }
  return WithDevice(kFailed, [text](OnlineFDev& device) {
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
    *version = quilon::AskPrinterVersion(&driver);
    return 1;
  });
}

int32_t quil_auto_test() {
  return WithDevice(0, [](OnlineFDev&) {
    quilon::RunSelfTest(&driver, kDisplayMilliseconds);
    return 0;
  });
}
