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
  int32_t numbers1[4];    /**< The answer's first four numbers; the fifth is
                               dropped. */
  int32_t numbers2[4];    /**< Its sixth to ninth number. */
  int32_t amounts[7];     /**< Seven amounts, in hundredths. */
  int32_t number;         /**< The number between the amounts and the totals. */
  int32_t totals[7];      /**< Seven totals, in hundredths. */
  int32_t last_amount;    /**< The amount behind the totals, in hundredths. */
  char unique_number[14]; /**< The printer's unique number, at most 13
                               characters. */
  char reserved1[2];      /**< Padding. */
} Identity;
QUILON_SIZE(Identity, 112);
QUILON_OFFSET(Identity, totals, 64);
QUILON_OFFSET(Identity, unique_number, 96);

/** The printer's communication port: QUIL_READ_PORT. */
typedef struct PortInfo {
  int32_t block;  /**< Number of the information block, always 50. */
  char port[100]; /**< The port, as the printer names it. */
} PortInfo;
QUILON_SIZE(PortInfo, 104);
QUILON_OFFSET(PortInfo, port, 4);

/** The printer's fiscal memory: QUIL_READ_MEMORY. */
typedef struct MemoryInfo {
  char text1[6];      /**< First text of the answer. */
  char text2[26];     /**< Second text of the answer. */
  int64_t number1;    /**< First number of the answer. */
  int32_t number2;    /**< Second number of the answer. */
  int32_t free_space; /**< Free space in the fiscal memory. */
  int32_t capacity;   /**< Capacity of the fiscal memory. */
  char reserved1[4];  /**< Padding. */
} MemoryInfo;
QUILON_SIZE(MemoryInfo, 56);
QUILON_OFFSET(MemoryInfo, text2, 6);
QUILON_OFFSET(MemoryInfo, number1, 32);
QUILON_OFFSET(MemoryInfo, free_space, 44);
QUILON_OFFSET(MemoryInfo, capacity, 48);

/** The answer to QUIL_SEND_PROC. */
typedef struct ProcInfo {
  char text1[25];     /**< First text of the answer. */
  char text2[27];     /**< Second text of the answer. */
  int32_t numbers[2]; /**< The numbers behind them. */
} ProcInfo;
QUILON_SIZE(ProcInfo, 60);
QUILON_OFFSET(ProcInfo, text2, 25);
QUILON_OFFSET(ProcInfo, numbers, 52);

#endif /* QUILON_RECORDS_DEVICE_H_ */
