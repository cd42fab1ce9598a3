/**
 * Records of the printer's state: DLE, ENQ, the extended status, the error
 * number, and the process-wide last error.
 */
#ifndef QUILON_RECORDS_STATUS_H_
#define QUILON_RECORDS_STATUS_H_

#include "quilon/records/layout.h"

/** The printer's answer to DLE: is it able to print? */
typedef struct DleStatus {
  int32_t online;        /**< 1: the printer is online, bit 2 of the answer. */
  int32_t paper_out;     /**< 1: no paper, bit 1 of the answer. */
  int32_t printer_error; /**< 1: mechanism failure, bit 0 of the answer. */
  int32_t valid;         /**< 1: a DLE answer was decoded. */
} DleStatus;
QUILON_SIZE(DleStatus, 16);

/** The printer's answer to ENQ: what became of the last command? */
typedef struct EnqStatus {
  int32_t flag3;           /**< Bit 3 of the answer, 1 or 0. */
  int32_t last_command_ok; /**< Bit 2: 1 when the last command was accepted. */
  int32_t flag1;           /**< Bit 1 of the answer, 1 or 0. */
  int32_t flag0;           /**< Bit 0 of the answer, 1 or 0. */
} EnqStatus;
QUILON_SIZE(EnqStatus, 16);

/** The printer's answer to the byte 0x1A. */
typedef struct ExtendedStatus {
  int32_t numbers[3]; /**< The three decimal numbers, as the printer sent. */
  int32_t flags[13];  /**< Thirteen flags, each 1 or 0. flags[0] to flags[7]
                           are bits 7 to 0 of the fourth status byte, flags[8]
                           is bit 7 of the third, flags[9] and flags[10] are
                           bits 7 and 6 of the second, flags[11] and flags[12]
                           bits 7 and 6 of the first. */
} ExtendedStatus;
QUILON_SIZE(ExtendedStatus, 64);

/** The number of the printer's last error. */
typedef struct ErrorNumber {
  int32_t number; /**< The printer's error number, 0 for none. */
} ErrorNumber;
QUILON_SIZE(ErrorNumber, 4);

/** The process-wide last error, as quil_get_last_error copies it out. */
typedef struct LastErrorRecord {
  int32_t error_code;    /**< The printer's error number; 1 when the driver
                              itself failed and says why in `message`. */
  int32_t reserved1;     /**< 0. */
  char message[200];     /**< Polish text in CP1250, NUL-terminated; empty
                              when the number has none. */
  DleStatus dle;         /**< The DLE status of the last status check. */
  int32_t reserved2[16]; /**< 0. */
  EnqStatus enq;         /**< The ENQ status of the last status check. */
} LastErrorRecord;
QUILON_SIZE(LastErrorRecord, 304);
QUILON_OFFSET(LastErrorRecord, message, 8);
QUILON_OFFSET(LastErrorRecord, dle, 208);
QUILON_OFFSET(LastErrorRecord, enq, 288);

#endif /* QUILON_RECORDS_STATUS_H_ */
