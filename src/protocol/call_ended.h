// How a call ends that another thread closes the connection under.
#ifndef QUILON_PROTOCOL_CALL_ENDED_H_
#define QUILON_PROTOCOL_CALL_ENDED_H_

#include <exception>

namespace quilon {

// Thrown by whatever would wait for the printer or send to it. The call gives
// its failure value; nothing is logged.
class CallEnded : public std::exception {
 public:
  const char* what() const noexcept override { return "call ended"; }
};

}  // namespace quilon

#endif  // QUILON_PROTOCOL_CALL_ENDED_H_
