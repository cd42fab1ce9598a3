// The byte channel to the printer.
#ifndef QUILON_COMM_BASE_COMM_H_
#define QUILON_COMM_BASE_COMM_H_

#include <cstdint>
#include <memory>

#include "log/comm_log.h"

namespace quilon {

// Belongs to one thread at a time, except where a transport says otherwise.
class BaseComm {
 public:
  BaseComm() = default;
  virtual ~BaseComm();
  BaseComm(const BaseComm&) = delete;
  BaseComm& operator=(const BaseComm&) = delete;

  // Does nothing and returns 0: every transport is opened by a routine of its
  // own, which takes its parameters.
  virtual int32_t Open() = 0;

  // Returns 1 when the port was closed, else 0.
  virtual int32_t Close() = 0;

  // Reads up to `count` bytes without waiting for more than a moment. Returns
  // how many came; none: 0, or less from a transport that says so.
  virtual int32_t Read(void* buffer, int32_t count) = 0;

  // Writes `count` bytes. Returns how many were written.
  virtual int32_t Write(const void* buffer, int32_t count) = 0;

  // Discards what was received and not yet read, as far as the transport can.
  virtual int32_t Purge();

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
