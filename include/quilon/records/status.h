/**
 * Records of the printer's state: DLE, ENQ, the extended status, the error
 * number, and the process-wide last error.
 */
#ifndef QUILON_RECORDS_STATUS_H_
#define QUILON_RECORDS_STATUS_H_

#include "quilon/records/layout.h"

/** The printer's answer to DLE, a byte 0x70 to 0x77: is it able to print? */
typedef struct DleStatus {
  /** 1: the printer is online, bit 2 of the answer. */
  int32_t online;
  /** 1: no paper, bit 1 of the answer. */
  int32_t paper_out;
  /** 1: mechanism failure, bit 0 of the answer. */
  int32_t printer_error;
  /** 1: an answer to DLE was decoded. */
  int32_t valid;
} DleStatus;
QUILON_SIZE(DleStatus, 16);

/** The printer's answer to ENQ, a byte 0x60 to 0x6F: what became of the last
 *  command? */
typedef struct EnqStatus {
  /** Bit 3 of the answer, 1 or 0. The driver only tells it.
   *  Virtual printer: fiscal mode. */
  int32_t flag3;
  /** 1: the last command was accepted, bit 2 of the answer. */
  int32_t last_command_ok;
  /** Bit 1 of the answer, 1 or 0. The driver takes it for "a document is open".
   *  Virtual printer: document open. */
  int32_t flag1;
  /** Bit 0 of the answer, 1 or 0. The driver takes it for "the last document
   *  was closed".
   *  Virtual printer: last document closed. */
  int32_t flag0;
} EnqStatus;
QUILON_SIZE(EnqStatus, 16);

/** The printer's answer to the byte 0x1A. */
typedef struct ExtendedStatus {
  /** The three decimal numbers of the answer.
   *  Virtual printer: number of the last error, receipts so far, invoices so
   *  far. */
  int32_t numbers[3];
  /** Thirteen flags, each 1 or 0. flags[0] to flags[7] are bits 7 to 0 of the
   *  fourth status byte, flags[8] is bit 7 of the third, flags[9] and flags[10]
   *  are bits 7 and 6 of the second, flags[11] and flags[12] bits 7 and 6 of
   *  the first.
   *  Virtual printer: fiscal mode, document open, last document closed, last
   *  command obeyed, unused, paper out, mechanism error, online, five
   *  unused. */
  int32_t flags[13];
} ExtendedStatus;
QUILON_SIZE(ExtendedStatus, 64);

/** The number of the printer's last error. */
typedef struct ErrorNumber {
  /** The number of the error, 0 for none. */
  int32_t number;
} ErrorNumber;
QUILON_SIZE(ErrorNumber, 4);

/** The process-wide last error, as quil_get_last_error copies it out. */
typedef struct LastErrorRecord {
  /** The printer's error number; 0 for none, and while no query asked for it; 1
   *  when the driver itself failed and says why in `message`. */
  int32_t error_code;
  /** 0. */
  int32_t reserved1;
  /** Polish text in CP1250, NUL-terminated; empty when the number has none. */
  char message[200];
  /** The DLE status of the last status check. */
  DleStatus dle;
  /** 0. */
  int32_t reserved2[16];
  /** The ENQ status of the last status check. */
  EnqStatus enq;
} LastErrorRecord;
QUILON_SIZE(LastErrorRecord, 304);
QUILON_OFFSET(LastErrorRecord, message, 8);
QUILON_OFFSET(LastErrorRecord, dle, 208);
QUILON_OFFSET(LastErrorRecord, enq, 288);

#endif /* QUILON_RECORDS_STATUS_H_ */
