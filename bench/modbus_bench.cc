// A well-kept library of the same kind, for comparison: 24 registers of a
// Modbus device read through libmodbus, and by bare send and recv.
#include <benchmark/benchmark.h>
#include <modbus/modbus.h>

#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "bench/compare.h"
#include "bench/connection.h"
#include "bench/one_processor.h"

namespace {

using quilon::bench::BareSocket;
using quilon::bench::Compare;

constexpr int kExchanges = 50;
constexpr char kRegisters = 24;
constexpr char kDataBytes = 2 * kRegisters;

using Context = std::unique_ptr<modbus_t, decltype(&modbus_free)>;

Context MakeContext(int port) {
  return {modbus_new_tcp("127.0.0.1", port), modbus_free};
}

// The device: serves one client on a thread of its own until the client goes.
class Device {
 public:
  Device() : context_(MakeContext(0)) {
    listening_ = modbus_tcp_listen(context_.get(), 1);
    sockaddr_in address = {};
    socklen_t length = sizeof(address);
    if (getsockname(listening_, reinterpret_cast<sockaddr*>(&address),
                    &length) != 0) {
      throw std::runtime_error("no device");
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~Device() {
    thread_.join();
    close(listening_);
  }
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;

  uint16_t port() const { return port_; }

 private:
  void Serve() {
    const std::unique_ptr<modbus_mapping_t, decltype(&modbus_mapping_free)>
        registers(modbus_mapping_new(0, 0, kRegisters, 0), modbus_mapping_free);
    modbus_tcp_accept(context_.get(), &listening_);
    std::array<uint8_t, MODBUS_TCP_MAX_ADU_LENGTH> request = {};
    for (int length = 0; length >= 0;
         length = modbus_receive(context_.get(), request.data())) {
      if (length > 0) {
        modbus_reply(context_.get(), request.data(), length, registers.get());
      }
    }
    modbus_close(context_.get());
  }

  Context context_;
  int listening_ = -1;
  uint16_t port_ = 0;
  std::thread thread_;
};

// The library, connected to a device.
class Library {
 public:
  Library() : context_(MakeContext(device_.port())) {
    if (modbus_connect(context_.get()) != 0) {
      throw std::runtime_error("no connection");
    }
  }
  ~Library() { modbus_close(context_.get()); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  bool ReadRegisters() {
    return modbus_read_registers(context_.get(), 0, kRegisters,
                                 registers_.data()) == kRegisters;
  }

 private:
  Device device_;
  Context context_;
  std::array<uint16_t, kRegisters> registers_ = {};
};

// The same messages as the library's, without it.
class BareReader {
 public:
  BareReader() : socket_(device_.port()) {}

  bool ReadRegisters() {
    ++transaction_;
    for (std::string* message : {&request_, &answer_}) {
      (*message)[0] = static_cast<char>(transaction_ >> 8);
      (*message)[1] = static_cast<char>(transaction_);
    }
    return socket_.Send(request_) && socket_.Receive(answer_);
  }

 private:
  Device device_;
  BareSocket socket_;
  uint16_t transaction_ = 0;
  // Unit 255 reads holding registers from 0 on; all are 0.
  std::string request_ = {0, 0, 0, 0, 0, 6, '\xFF', 3, 0, 0, 0, kRegisters};
  std::string answer_ =
      std::string{0, 0, 0, 0, 0, 3 + kDataBytes, '\xFF', 3, kDataBytes} +
      std::string(kDataBytes, '\0');
};

void CompareModbus(benchmark::State& state) {
  const quilon::bench::OneProcessor processor;
  BareReader bare;
  Library library;
  Compare(
      state, kExchanges, [&library] { return library.ReadRegisters(); },
      [&bare] { return bare.ReadRegisters(); });
}
BENCHMARK(CompareModbus)->UseManualTime();

}  // namespace
