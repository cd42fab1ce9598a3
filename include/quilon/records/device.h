/**
 * Records that the printer describes itself with.
 *
 * The device information (QUIL_READ_DEVICE_INFO) has the record PrinterVersion.
 */
#ifndef QUILON_RECORDS_DEVICE_H_
#define QUILON_RECORDS_DEVICE_H_

#include "quilon/records/layout.h"

/** The printer's identity and totals: QUIL_READ_IDENTITY, QUIL_READ_TOTALS.
 *  Amounts keep the low 32 bits of what the printer sent. */
typedef struct Identity {
  /** The first four numbers of the answer; the fifth is dropped.
   *  Virtual printer: fiscal mode, document open, last document closed, number
   *  of the last error. */
  int32_t numbers1[4];
  /** Its sixth to ninth number.
   *  Virtual printer: year, month, day, daily reports so far. */
  int32_t numbers2[4];
  /** The seven amounts behind these, in hundredths.
   *  Virtual printer: VAT rates A to G, an exempt one as 100 percent. */
  int32_t amounts[7];
  /** The number between the amounts and the totals.
   *  Virtual printer: documents of the series so far. */
  int32_t number;
  /** The seven totals, in hundredths: their sum is what the totals comparison
   *  compares.
   *  Virtual printer: totals of the VAT rates A to G, of receipts or of
   *  invoices. */
  int32_t totals[7];
  /** The amount behind the totals, in hundredths.
   *  Virtual printer: sum of the totals. */
  int32_t last_amount;
  /** The printer's unique number, at most 13 characters. */
  char unique_number[14];
  char reserved1[2];
} Identity;
QUILON_SIZE(Identity, 112);
QUILON_OFFSET(Identity, totals, 64);
QUILON_OFFSET(Identity, unique_number, 96);

/** The printer's communication port: QUIL_READ_PORT. */
typedef struct PortInfo {
  /** Number of the information block, always 50. */
  int32_t block;
  /** The port, as the printer names it. */
  char port[100];
} PortInfo;
QUILON_SIZE(PortInfo, 104);
QUILON_OFFSET(PortInfo, port, 4);

/** The printer's fiscal memory: QUIL_READ_MEMORY. */
typedef struct MemoryInfo {
  /** First text of the answer.
   *  Virtual printer: kind of the memory. */
  char text1[6];
  /** Second text of the answer.
   *  Virtual printer: unique number. */
  char text2[26];
  /** First number of the answer.
   *  Virtual printer: documents so far. */
  int64_t number1;
  /** Second number of the answer.
   *  Virtual printer: daily reports so far. */
  int32_t number2;
  /** Free space in the fiscal memory. */
  int32_t free_space;
  /** Capacity of the fiscal memory. */
  int32_t capacity;
  char reserved1[4];
} MemoryInfo;
QUILON_SIZE(MemoryInfo, 56);
QUILON_OFFSET(MemoryInfo, text2, 6);
QUILON_OFFSET(MemoryInfo, number1, 32);
QUILON_OFFSET(MemoryInfo, free_space, 44);
QUILON_OFFSET(MemoryInfo, capacity, 48);

/** The answer to QUIL_SEND_PROC. */
typedef struct ProcInfo {
  /** First text of the answer.
   *  Virtual printer: name of the process. */
  char text1[25];
  /** Second text of the answer.
   *  Virtual printer: state of the process. */
  char text2[27];
  /** The two numbers behind them.
   *  Virtual printer: progress and error of the process. */
  int32_t numbers[2];
} ProcInfo;
QUILON_SIZE(ProcInfo, 60);
QUILON_OFFSET(ProcInfo, text2, 25);
QUILON_OFFSET(ProcInfo, numbers, 52);

#endif /* QUILON_RECORDS_DEVICE_H_ */
