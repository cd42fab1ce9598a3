// A threaded port whose reader gets no memory once. A program of its own: it
// replaces the operator that allocates.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <new>
#include <thread>

#include "src/comm/thread_rs232_comm.h"
#include "tests/support/fake_serial_port.h"

namespace {

// The next allocation of another thread than the test's fails.
std::atomic<bool> next_fails = false;
thread_local bool is_test = false;

}  // namespace

void* operator new(size_t size) {
  if (next_fails && !is_test && next_fails.exchange(false)) {
    throw std::bad_alloc();
  }
  void* const memory = std::malloc(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t /*size*/) noexcept {
  std::free(memory);
}

namespace quilon::testing {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kPatience{5};

std::string Numbers(size_t size) {
  std::string text;
  for (int i = 0; text.size() < size; ++i) {
    text += std::to_string(i) + ' ';
  }
  text.resize(size);
  return text;
}

// Reads up to `count` bytes as they come.
std::string ReadAll(ThreadRS232Comm* transport, size_t count) {
  std::string bytes(count, '\0');
  size_t length = 0;
  for (const Clock::time_point deadline = Clock::now() + kPatience;
       length < count && Clock::now() < deadline;) {
    const int32_t read = transport->Read(
        &bytes[length], static_cast<int32_t>(count - length), 10);
    length += static_cast<size_t>(std::max(read, 0));
  }
  bytes.resize(length);
  return bytes;
}

TEST(ReaderAllocationTest, FailedAllocationLosesNothingInSilence) {
  is_test = true;
  SerialScript script;
  ThreadRS232Comm transport(MakeFakeSerialPort(&script));
  SerialParams params = {};
  params.threaded = 1;
  LastErrorRecord error = {};
  ASSERT_EQ(transport.OpenConnection(params, &error), 1);

  script.WaitForReader();
  next_fails = true;
  const std::string sent = Numbers(100000);
  script.Receive(sent);
  const std::string received = ReadAll(&transport, sent.size());
  ASSERT_FALSE(next_fails) << "the reader allocates nothing";
  EXPECT_TRUE(sent.starts_with(received));
  // Either the reader goes on, or the port says that it is gone.
  if (received != sent) {
    EXPECT_EQ(transport.Write("x", 1), BaseComm::Written::kNo)
        << "the port looks open and is deaf after " << received.size()
        << " bytes";
  }
}

}  // namespace
}  // namespace quilon::testing
