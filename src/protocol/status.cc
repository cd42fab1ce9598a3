// The single-byte status requests, the error number, and the checks made of
// them.
#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "src/comm/last_error.h"
#include "src/protocol/base_fdev.h"
#include "src/protocol/error_table.h"
#include "src/protocol/reply_fields.h"

namespace quilon {
namespace {

bool IsDleStatus(uint8_t byte) { return byte >= 0x70 && byte <= 0x77; }
bool IsEnqStatus(uint8_t byte) { return byte >= 0x60 && byte <= 0x6F; }

int32_t Bit(int32_t value, int bit) { return (value >> bit) & 1; }

}  // namespace

bool BaseFDev::SendErrorNumber() {
  return Send(Frame().Raw("#n").EndWithoutChecksum());
}

// Reads one byte; when it is no status byte, drops packets until a status byte
// follows one or a packet without "P" comes. Returns false when the printer
// falls silent; `byte` is then not to be used.
template <typename Predicate>
bool BaseFDev::ReadStatusByte(Predicate is_status, uint8_t* byte) {
  if (!ReadByte(byte)) {
    return false;
  }
  if (is_status(*byte)) {
    return true;
  }
  if (!ReadPacket()) {
    return false;
  }
  while (reply_.SkipPast("P")) {
    ReadByte(byte);
    if (is_status(*byte)) {
      return true;
    }
    if (!ReadPacket()) {
      return false;
    }
  }
  return true;
}

bool BaseFDev::ReadDle(DleStatus* status) {
  uint8_t byte = 0;
  if (!ReadStatusByte(IsDleStatus, &byte)) {
    return false;
  }
  const bool decoded = IsDleStatus(byte);
  status->online = decoded ? Bit(byte, 2) : 0;
  status->paper_out = decoded ? Bit(byte, 1) : 0;
  status->printer_error = decoded ? Bit(byte, 0) : 0;
  if (decoded) {
    status->valid = 1;
  }
  return true;
}

bool BaseFDev::ReadEnq(EnqStatus* status) {
  uint8_t byte = 0;
  if (!ReadStatusByte(IsEnqStatus, &byte)) {
    return false;
  }
  *status = {Bit(byte, 3), Bit(byte, 2), Bit(byte, 1), Bit(byte, 0)};
  return true;
}

bool BaseFDev::ReadExtendedStatus(ExtendedStatus* status) {
  if (!ReadAnswer()) {
    return false;
  }
  reply_.SkipPast("@s");
  for (int32_t& number : status->numbers) {
    number = reply_.Int32Field();
  }
  // A pair that is no number repeats the one before it.
  int32_t pair = 1;
  const auto next_pair = [this, &pair] {
    pair = reply_.HexPair().value_or(pair);
    return pair;
  };
  next_pair();
  status->flags[11] = Bit(pair, 7);
  status->flags[12] = Bit(pair, 6);
  next_pair();
  status->flags[9] = Bit(pair, 7);
  status->flags[10] = Bit(pair, 6);
  next_pair();
  status->flags[8] = Bit(pair, 7);
  next_pair();
  for (int i = 0; i < 8; ++i) {
    status->flags[i] = Bit(pair, 7 - i);
  }
  return true;
}

bool BaseFDev::ReadErrorNumber(ErrorNumber* error) {
  return ReadFields("#E", Int(error->number));
}

bool BaseFDev::StatusCheck(LastErrorRecord* record) {
  record->dle = {};
  std::fill(std::begin(record->reserved2), std::end(record->reserved2), 0);
  record->enq = {};
  const auto fail = [this](std::string_view text) {
    LogMessage(text);
    return false;
  };

  SendDle();
  if (!ReadDle(&record->dle)) {
    return fail("Error read DLE");
  }
  if (record->dle.printer_error == 1) {
    return fail("Error DLE isPrinterErr = 1");
  }
  if (record->dle.paper_out == 1) {
    return fail("Error DLE isPaperOut = 1");
  }
  if (record->dle.online == 0) {
    return fail("Error DLE IsOnline = 0");
  }

  SendEnq();
  // Five reads at the most, and an answer to the fifth comes too late: that is
  // how long applications have always been made to wait.
  for (int retries = 3;; --retries) {
    const bool answered = ReadEnq(&record->enq);
    if (!answered) {
      LogMessage("Error read ENQ, retry...");
    }
    if (retries < 0) {
      return false;
    }
    if (answered) {
      break;
    }
  }
  if (record->enq.last_command_ok != 0 || record->enq.flag1 != 1) {
    return true;
  }

  LogMessage("Error ENQ lastCommandOK = 0");
  SendErrorNumber();
  ErrorNumber error = {};
  try {
    ReadErrorNumber(&error);
  } catch (const std::logic_error& none) {
    LogDiagnostic(none.what());
  }
  record->error_code = error.number;
  FillErrorText(record);
  return false;
}

int32_t BaseFDev::ErrorQuery(int32_t result, LastErrorRecord* record) {
  SendEnq();
  EnqStatus status = {};
  ReadEnq(&status);
  if (status.last_command_ok != 0) {
    return result;
  }
  SendErrorNumber();
  if (ReadAnswer()) {
    // Here, other than for a query of its own, "#E" may be missing.
    reply_.SkipPast("#E");
    record->error_code = reply_.Int32Field();
  }
  FillErrorText(record);
  if (record->message[0] == '\0') {
    return result;
  }
  LogMessage(std::string("Blad! ") + record->message);
  return record->error_code;
}

}  // namespace quilon
