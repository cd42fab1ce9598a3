// The byte channel to the printer.
#ifndef QUILON_COMM_BASE_COMM_H_
#define QUILON_COMM_BASE_COMM_H_

#include <cstdint>
#include <memory>

#include "src/log/comm_log.h"

namespace quilon {

// Belongs to one thread at a time, but for Interrupt and the log.
class BaseComm {
 public:
  // What became of bytes that were to be written.
  enum class Written {
    kNo,    // the connection did not take them, or not all
    kYes,   // it took them
    kLost,  // it never opened: nobody will ever see them
  };

  // What Read returns when it brings no byte.
  static constexpr int32_t kNothingYet = 0;
  static constexpr int32_t kGone = -1;  // and nothing will come any more

  BaseComm() = default;
  virtual ~BaseComm();
  BaseComm(const BaseComm&) = delete;
  BaseComm& operator=(const BaseComm&) = delete;

  virtual void Close() = 0;

  virtual bool IsOpen() const = 0;

  // Whether a frame went out only in part: whatever followed would be taken for
  // its rest. Nothing is written or read any more.
  virtual bool IsBroken() const { return false; }

  // Waits at most `patience` milliseconds for the first byte, or as long as the
  // port's own time-outs say, and takes up to `count` of those that are there.
  // Returns how many, kNothingYet, or kGone, for which it does not wait.
  virtual int32_t Read(void* buffer, int32_t count, uint32_t patience) = 0;

  virtual Written Write(const void* buffer, int32_t count) = 0;

  // Discards what the port has received, as far as the transport can. Returns
  // whether bytes that Read has already handed out are to be forgotten, too.
  virtual bool Purge() = 0;

  // Whether this is a forked child, and threads that serve the transport stayed
  // behind in its parent. It cannot be destroyed then: they may have held its
  // locks.
  virtual bool IsLeftBehind() const { return false; }

  // Makes a Write of another thread return early. Until the transport is
  // closed, it may be called again and again, by any thread.
  virtual void Interrupt() = 0;

  CommLog& log() { return log_; }

  // Keeps a transport whose place another one took: it stays open until the
  // process ends, and reachable, so that it does not count as lost memory.
  static void Abandon(std::unique_ptr<BaseComm> transport);

 private:
  CommLog log_;
  BaseComm* next_abandoned_ = nullptr;
};

}  // namespace quilon

#endif  // QUILON_COMM_BASE_COMM_H_
