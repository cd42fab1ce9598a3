// DLE and ENQ, asked and answered.
#ifndef QUILON_BENCH_STATUS_H_
#define QUILON_BENCH_STATUS_H_

#include "bench/printer.h"
#include "quilon/quilon.h"

namespace quilon::bench {

inline bool AskDleThroughDriver() {
  DleStatus dle = {};
  return quil_ioctrl(QUIL_SEND_DLE, nullptr, nullptr, 0) == 0 &&
         quil_ioctrl(QUIL_READ_DLE, &dle, nullptr, 0) == 0 && dle.online == 1;
}

inline bool AskStatusThroughDriver() {
  EnqStatus enq = {};
  return AskDleThroughDriver() &&
         quil_ioctrl(QUIL_SEND_ENQ, nullptr, nullptr, 0) == 0 &&
         quil_ioctrl(QUIL_READ_ENQ, &enq, nullptr, 0) == 0 &&
         enq.last_command_ok == 1;
}

template <typename Client>
bool AskDle(Client& client) {
  return client.Send(kDle) && client.Receive(kOnline);
}

template <typename Client>
bool AskEnq(Client& client) {
  return client.Send(kEnq) && client.Receive(kCommandOk);
}

template <typename Client>
bool AskStatus(Client& client) {
  return AskDle(client) && AskEnq(client);
}

}  // namespace quilon::bench

#endif  // QUILON_BENCH_STATUS_H_
