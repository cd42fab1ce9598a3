// The fixture of tests that go through the exported functions: a driver that is
// connected to a scripted peer.
#ifndef QUILON_TESTS_SUPPORT_DRIVER_TEST_H_
#define QUILON_TESTS_SUPPORT_DRIVER_TEST_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "quilon/quilon.h"
#include "tests/support/scripted_peer.h"

namespace quilon::testing {

// The reply time-out of the fixture's connection: long enough for a busy
// machine, short enough to wait for in a test.
inline constexpr uint32_t kReplyTimeout = 300;

// The bytes that check the status of a printer that is ready: answers to DLE
// and ENQ.
inline constexpr std::string_view kReady = "\x74\x64";

// Copies `text` into a char array of a record, without a NUL when it fills it.
template <size_t kCapacity>
void Fill(std::string_view text, char (&array)[kCapacity]) {
  ASSERT_LE(text.size(), kCapacity);
  std::fill(text.copy(array, kCapacity) + array, array + kCapacity, '\0');
}

// Fills the whole array, which then has no NUL, and returns what it holds.
template <size_t kCapacity>
std::string FillAll(char byte, char (&array)[kCapacity]) {
  std::fill(array, array + kCapacity, byte);
  return std::string(kCapacity, byte);
}

// Runs a command.
int32_t Ioctl(int32_t code, void* record = nullptr, uint32_t flags = 0);

LastErrorRecord LastError();

class DriverTest : public ::testing::Test {
 protected:
  // A fresh device, connected.
  void SetUp() override;
  void TearDown() override;

  // (Re)connects the driver to the peer with the given reply time-out.
  void Connect(uint32_t reply_timeout = kReplyTimeout);

  // Runs a sending command, expects success and returns its frame, without ESC
  // "P" and ESC "\".
  std::string FrameOf(int32_t code, void* record = nullptr);

  // As FrameOf, for a command that closes a document: the driver then asks for
  // the printer's state, which is that it is ready.
  std::string ClosingFrameOf(int32_t code, void* record);

  // Runs a command that sends a single byte, expects success and returns it.
  std::string ByteOf(int32_t code);

  // Sends `fields` to the driver as a reply: ESC "P", the fields, ESC "\".
  void Reply(std::string_view fields);

  // Fails unless everything that the driver sent was received.
  void ExpectNothingSent();

  ScriptedPeer& peer() { return peer_; }

 private:
  ScriptedPeer peer_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_DRIVER_TEST_H_
