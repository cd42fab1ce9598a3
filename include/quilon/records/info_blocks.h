/**
 * Records of the information blocks ("$I") that QUIL_SEND_INFO_BLOCK asks for.
 * Each is named by the code that reads it. A slot that a code drops is not
 * written.
 */
#ifndef QUILON_RECORDS_INFO_BLOCKS_H_
#define QUILON_RECORDS_INFO_BLOCKS_H_

#include "quilon/records/layout.h"

/** QUIL_READ_INFO_43. */
typedef struct InfoBlock43 {
  /** The nine numbers of the answer; the fifth and sixth are dropped.
   *  Virtual printer: receipts, invoices, cancelled documents and daily reports
   *  so far, two unused, fiscal mode, document open, number of the last
   *  error. */
  int32_t numbers[9];
} InfoBlock43;
QUILON_SIZE(InfoBlock43, 36);

/** QUIL_READ_INFO_53. */
typedef struct InfoBlock53 {
  /** First text of the answer.
   *  Virtual printer: name of the device. */
  char first_text[60];
  /** The four texts behind it.
   *  Virtual printer: name of the shop, street, town, tax number. */
  char texts[4][100];
  /** The four numbers at the end.
   *  Virtual printer: receipts, invoices and daily reports so far, drawer
   *  openings. */
  int32_t numbers[4];
} InfoBlock53;
QUILON_SIZE(InfoBlock53, 476);
QUILON_OFFSET(InfoBlock53, texts, 60);
QUILON_OFFSET(InfoBlock53, numbers, 460);

/** QUIL_READ_INFO_54. */
typedef struct InfoBlock54 {
  /** The first three numbers of the answer.
   *  Virtual printer: always 1, online, paper out. */
  int32_t numbers1[3];
  /** The two texts behind them.
   *  Virtual printer: unique number, tax number. */
  char texts1[2][30];
  /** The ten numbers behind these; the fifth and seventh are dropped.
   *  Virtual printer: VAT rates A to G, receipts, invoices and daily reports so
   *  far. */
  int32_t numbers2[10];
  /** The three texts at the end.
   *  Virtual printer: date and time, firmware version, serial number. */
  char texts2[3][20];
} InfoBlock54;
QUILON_SIZE(InfoBlock54, 172);
QUILON_OFFSET(InfoBlock54, texts1, 12);
QUILON_OFFSET(InfoBlock54, numbers2, 72);
QUILON_OFFSET(InfoBlock54, texts2, 112);

/** QUIL_READ_INFO_55. */
typedef struct InfoBlock55 {
  /** The four texts of the answer.
   *  Virtual printer: name of the device, firmware version, unique number,
   *  serial number. */
  char texts[4][20];
} InfoBlock55;
QUILON_SIZE(InfoBlock55, 80);

/** QUIL_READ_INFO_56. */
typedef struct InfoBlock56 {
  /** First text of the answer.
   *  Virtual printer: unique number. */
  char text[20];
  /** The five numbers behind it.
   *  Virtual printer: size and free records of the fiscal memory, size and free
   *  KiB of the protected memory, unused. */
  int32_t numbers[5];
} InfoBlock56;
QUILON_SIZE(InfoBlock56, 40);
QUILON_OFFSET(InfoBlock56, numbers, 20);

/** QUIL_READ_INFO_60. */
typedef struct InfoBlock60 {
  /** The first three numbers of the answer.
   *  Virtual printer: online, two unused. */
  int32_t numbers1[3];
  /** The text behind them.
   *  Virtual printer: address of the server. */
  char text1[30];
  /** The text behind this, at most 19 characters.
   *  Virtual printer: name of the server. */
  char text2[22];
  /** The ten numbers behind it; the seventh and ninth are dropped.
   *  Virtual printer: 0 to 7, receipts and daily reports so far. */
  int32_t numbers2[10];
  /** The five texts at the end.
   *  Virtual printer: date and time, two unused, firmware version, serial
   *  number. */
  char texts[5][20];
} InfoBlock60;
QUILON_SIZE(InfoBlock60, 204);
QUILON_OFFSET(InfoBlock60, text1, 12);
QUILON_OFFSET(InfoBlock60, text2, 42);
QUILON_OFFSET(InfoBlock60, numbers2, 64);
QUILON_OFFSET(InfoBlock60, texts, 104);

/** QUIL_READ_INFO_61. */
typedef struct InfoBlock61 {
  /** The ten numbers of the answer; the sixth and tenth are dropped.
   *  Virtual printer: four numbers of the network address, four of its mask,
   *  online, unused. */
  int32_t numbers[10];
  /** The text behind them, up to its CR.
   *  Virtual printer: name of the network connection. */
  char text[30];
  char reserved1[2];
} InfoBlock61;
QUILON_SIZE(InfoBlock61, 72);
QUILON_OFFSET(InfoBlock61, text, 40);

/** QUIL_READ_INFO_64. */
typedef struct InfoBlock64 {
  /** First number of the answer.
   *  Virtual printer: always 1. */
  int32_t number;
  /** The text behind it.
   *  Virtual printer: name of the certificate. */
  char text1[19];
  /** The text behind this.
   *  Virtual printer: serial number. */
  char text2[14];
  /** Third text, up to its CR.
   *  Virtual printer: holder of the certificate. */
  char text3[16];
  /** Fourth text, up to its CR, at most 20 characters.
   *  Virtual printer: date and time. */
  char text4[23];
  /** The three numbers at the end.
   *  Virtual printer: two unused, always 1. */
  int32_t numbers[3];
} InfoBlock64;
QUILON_SIZE(InfoBlock64, 88);
QUILON_OFFSET(InfoBlock64, text1, 4);
QUILON_OFFSET(InfoBlock64, text2, 23);
QUILON_OFFSET(InfoBlock64, text3, 37);
QUILON_OFFSET(InfoBlock64, text4, 53);
QUILON_OFFSET(InfoBlock64, numbers, 76);

#endif /* QUILON_RECORDS_INFO_BLOCKS_H_ */
