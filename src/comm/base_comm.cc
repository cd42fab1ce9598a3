#include "src/comm/base_comm.h"

namespace quilon {
namespace {

constinit BaseComm* abandoned = nullptr;

}  // namespace

BaseComm::~BaseComm() = default;

void BaseComm::Abandon(std::unique_ptr<BaseComm> transport) {
  if (transport != nullptr) {
    transport->next_abandoned_ = abandoned;
    abandoned = transport.release();
  }
}

}  // namespace quilon
