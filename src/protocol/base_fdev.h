// The printer as the protocol sees it: the connection, the frame that is being
// built, the packet that was read last, and the exchange of bytes between them.
#ifndef QUILON_PROTOCOL_BASE_FDEV_H_
#define QUILON_PROTOCOL_BASE_FDEV_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "quilon/records.h"
#include "src/comm/base_comm.h"
#include "src/protocol/frame_builder.h"
#include "src/protocol/reply.h"
#include "src/text/mazovia.h"

namespace quilon {

// Belongs to one thread at a time, but for the operations on the log and
// Interrupt, which any thread may call meanwhile.
//
// Operations that send return whether the connection took the frame. Operations
// that read return whether an answer came that has what was asked for; numbers
// in it that are none throw std::invalid_argument or std::out_of_range. All of
// them throw CallEnded after Interrupt.
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
  void StartLog(BaseComm* transport);

  // Makes `transport` the connection. An earlier one that is open is left so.
  void Attach(std::unique_ptr<BaseComm> transport);

  // Closes and drops the connection.
  void Close();

  bool connected() const { return transport_ != nullptr; }

  // Whether nothing can come from the connection any more, as far as is known.
  bool IsGone() const;

  // Ends the call that another thread has in progress; it may slip through one
  // that begins just now, so it is to be repeated until the call has ended. The
  // connection must be closed then.
  void Interrupt();

  // True from then on until the connection is closed.
  const std::atomic<bool>& interrupted() const { return interrupted_; }

  // Lets so much time pass.
  void Pause(uint32_t milliseconds) const;

  // `directory` has at most 255 bytes.
  void EnableLog(std::string_view directory);
  void DisableLog();

  // Writes a message entry and switches logging on for later connections.
  // Returns 1 when the entry reached a file.
  int32_t LogMessage(std::string_view text);

  // Writes a message entry while the connection's log is active.
  void LogDiagnostic(std::string_view text);

  // Whether anything came when the last packet was to be read.
  bool heard() const { return !reply_.empty(); }

  // Reads the next answer, whatever it is. Returns false when none comes.
  bool DropAnswer() { return ReadAnswer(); }

  // --- Settings -----------------------------------------------------------

  // Milliseconds of silence after which reading an answer ends.
  void set_reply_timeout(uint32_t milliseconds) {
    reply_timeout_ = static_cast<int32_t>(milliseconds);
  }
  void set_text_encoding(TextEncoding encoding) { text_encoding_ = encoding; }

  // --- Status and errors (status.cc) --------------------------------------

  bool SendDle() { return SendControlByte(0x10); }
  bool SendEnq() { return SendControlByte(0x05); }
  bool SendExtendedStatus() { return SendControlByte(0x1A); }
  bool SendErrorNumber();

  // Packets that the printer sent before the status byte are dropped.
  bool ReadDle(DleStatus* status);
  bool ReadEnq(EnqStatus* status);
  bool ReadExtendedStatus(ExtendedStatus* status);
  bool ReadErrorNumber(ErrorNumber* error);

  // Asks with DLE and ENQ for the printer's state and fills the record with it;
  // with the error number and message, too, when the last command was refused.
  // Returns whether the printer is ready and did not refuse the command.
  bool StatusCheck(LastErrorRecord* record);

  // Asks whether the last command was accepted. If not, asks for the error
  // number, fills the record with it and its message, and returns it; returns
  // `result` when all is well or the number has no message.
  int32_t ErrorQuery(int32_t result, LastErrorRecord* record);

 protected:
  // --- The exchange -------------------------------------------------------

  // Begins a frame in the command buffer.
  FrameBuilder Frame();

  // Sends the frame. A connection that never opened takes it, too, over TCP,
  // and loses it.
  bool Send(const FrameBuilder& frame);

  // The same, where a lost frame counts as not sent.
  bool Deliver(const FrameBuilder& frame);

  // Reads one byte, waiting for it as long as the reply time-out. Returns
  // whether one came.
  bool ReadByte(uint8_t* byte);

  // Reads up to the next "\", or until the printer is silent for the reply
  // time-out. Returns whether reply() holds at least one byte.
  bool ReadPacket();

  // Reads the next packet that does not contain "#Z". Returns false when the
  // printer falls silent before it.
  bool ReadAnswer();

  // Reads the next answer and takes the fields behind `mnemonic` from it; see
  // reply_fields.h. Fails without an answer or without the mnemonic.
  template <typename... Fields>
  bool ReadFields(std::string_view mnemonic, const Fields&... fields) {
    if (!ReadAnswer() || !reply_.SkipPast(mnemonic)) {
      return false;
    }
    TakeFields(fields...);
    return true;
  }

  // Takes the next fields from the answer that was read last.
  template <typename... Fields>
  void TakeFields(const Fields&... fields) {
    (fields(reply_), ...);
  }

  Reply& reply() { return reply_; }

 private:
  BaseComm::Written Transmit(const FrameBuilder& frame);
  bool SendControlByte(char byte);
  bool Receive();
  void LogTimeout(uint32_t start, uint32_t now);
  bool ReadPacketBytes();
  template <typename Predicate>
  bool ReadStatusByte(Predicate is_status, uint8_t* byte);
  void CheckInterrupted() const;

  std::unique_ptr<BaseComm> transport_;
  std::string command_buffer_;
  Reply reply_;
  char received_[2048];
  std::string_view unread_;  // of what was received
  bool gone_ = false;        // by the transport's last word
  std::atomic<bool> log_enabled_ = false;
  char log_directory_[CommLog::kPathCapacity] = {};
  int32_t reply_timeout_ = kDefaultReplyTimeout;
  TextEncoding text_encoding_ = TextEncoding::kCp1250;
  [[maybe_unused]] uint32_t init_argument_;  // kept for the application

  std::atomic<bool> interrupted_ = false;
  // Guards the directory, and the transport's place against threads that log
  // or interrupt.
  std::mutex mutex_;
};

}  // namespace quilon

#endif  // QUILON_PROTOCOL_BASE_FDEV_H_
