// The printer as the protocol sees it: the connection, the frame that is being
// built, the packet that was read last, and the exchange of bytes between them.
#ifndef QUILON_PROTOCOL_BASE_FDEV_H_
#define QUILON_PROTOCOL_BASE_FDEV_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "comm/base_comm.h"
#include "protocol/frame_builder.h"
#include "protocol/reply.h"
#include "quilon/records.h"
#include "text/mazovia.h"

namespace quilon {

// Belongs to one thread at a time.
//
// Operations that send return the number of bytes written, less than 1 for none
// (0 without a connection). Operations that read return 1, and 0 or -1 when no
// answer came or it lacks what was asked for; numbers in it that are none throw
// std::invalid_argument or std::out_of_range.
class BaseFDev {
 public:
  static constexpr int32_t kDefaultReplyTimeout = 5000;

  explicit BaseFDev(uint32_t init_argument) : init_argument_(init_argument) {}
  virtual ~BaseFDev();
  BaseFDev(const BaseFDev&) = delete;
  BaseFDev& operator=(const BaseFDev&) = delete;

  // --- The connection and its log -----------------------------------------

  // Starts the log of a connection that is about to be opened, if logging is
  // on.
  void StartLog(BaseComm* transport) const;

  // Makes `transport` the connection. An earlier one is left open.
  void Attach(std::unique_ptr<BaseComm> transport);

  // Closes and drops the connection. Returns 1.
  int32_t Close();

  bool connected() const { return transport_ != nullptr; }

  // `directory` has at most 255 bytes.
  void EnableLog(std::string_view directory);
  void DisableLog();

  // Writes a message entry and switches logging on for later connections.
  // Returns 1 when the entry reached a file.
  int32_t LogMessage(std::string_view text);

  // Writes a message entry while the connection's log is active.
  void LogDiagnostic(std::string_view text);

  // --- Settings -----------------------------------------------------------

  // Milliseconds of silence after which reading an answer ends.
  void set_reply_timeout(uint32_t milliseconds) {
    reply_timeout_ = static_cast<int32_t>(milliseconds);
  }
  void set_text_encoding(TextEncoding encoding) { text_encoding_ = encoding; }

  // --- Status and errors (status.cc) --------------------------------------

  int32_t SendDle() { return SendControlByte(0x10); }
  int32_t SendEnq() { return SendControlByte(0x05); }
  int32_t SendExtendedStatus() { return SendControlByte(0x1A); }
  int32_t SendErrorNumber();

  // Packets that the printer sent before the status byte are dropped.
  int32_t ReadDle(DleStatus* status);
  int32_t ReadEnq(EnqStatus* status);
  int32_t ReadExtendedStatus(ExtendedStatus* status);
  int32_t ReadErrorNumber(ErrorNumber* error);

  // Asks with DLE and ENQ for the printer's state and fills the record with it;
  // with the error number and message, too, when the last command was refused.
  // Returns 0 when the printer is ready and accepted the command, else -1.
  int32_t StatusCheck(LastErrorRecord* record);

  // Asks whether the last command was accepted. If not, asks for the error
  // number, fills the record with it and its message, and returns it; returns
  // `result` when all is well or the number has no message.
  int32_t ErrorQuery(int32_t result, LastErrorRecord* record);

 protected:
  // --- The exchange -------------------------------------------------------

  // Begins a frame in the command buffer.
  FrameBuilder Frame();

  // Sends the frame up to its first zero byte.
  int32_t Send(const FrameBuilder& frame);

  // Reads one byte, waiting for it as long as the reply time-out. Returns 1, or
  // 0 when none came.
  int32_t ReadByte(uint8_t* byte);

  // Reads up to the next "\", or until the printer is silent for the reply
  // time-out. Returns whether reply() holds at least one byte.
  bool ReadPacket();

  // Reads the next packet that does not contain "#Z". Returns false when the
  // printer falls silent before it.
  bool ReadAnswer();

  // Reads the next answer and takes the fields behind `mnemonic` from it; see
  // reply_fields.h. Returns 1, or 0 without an answer or without the mnemonic.
  template <typename... Fields>
  int32_t ReadFields(std::string_view mnemonic, const Fields&... fields) {
    if (!ReadAnswer() || !reply_.SkipPast(mnemonic)) {
      return 0;
    }
    TakeFields(fields...);
    return 1;
  }

  // Takes the next fields from the answer that was read last.
  template <typename... Fields>
  void TakeFields(const Fields&... fields) {
    (fields(reply_), ...);
  }

  Reply& reply() { return reply_; }

 private:
  int32_t SendControlByte(char byte);
  bool ReadPacketBytes();
  template <typename Predicate>
  bool ReadStatusByte(Predicate is_status, uint8_t* byte);

  std::unique_ptr<BaseComm> transport_;
  std::string command_buffer_;
  Reply reply_;
  bool log_enabled_ = false;
  char log_directory_[CommLog::kPathCapacity] = {};
  int32_t reply_timeout_ = kDefaultReplyTimeout;
  TextEncoding text_encoding_ = TextEncoding::kCp1250;
  [[maybe_unused]] uint32_t init_argument_;  // kept for the application
};

}  // namespace quilon

#endif  // QUILON_PROTOCOL_BASE_FDEV_H_
