/**
 * Records of configuration commands.
 *
 * Texts are sent as they are, unless their comment says that they are
 * converted to the printer's code page. A text whose length the printer does
 * not fix has 256 bytes.
 */
#ifndef QUILON_RECORDS_CONFIG_H_
#define QUILON_RECORDS_CONFIG_H_

#include "quilon/records/layout.h"

/** QUIL_DOLLAR_C. */
typedef struct DollarC {
  /** The six parameters.
   *  Virtual printer: year, month, day, hour, minute, second. */
  int32_t numbers[6];
  /** Two texts, converted.
   *  Virtual printer: cash register, cashier. */
  char texts[2][256];
} DollarC;
QUILON_SIZE(DollarC, 536);
QUILON_OFFSET(DollarC, texts, 24);

/** QUIL_DOLLAR_P, and the fields of QUIL_DOLLAR_CAPITAL_P. */
typedef struct DollarP {
  /** The only parameter of "$p"; "$P" does not send it.
   *  Virtual printer: number of VAT rates in use. */
  int32_t number;
  /** Two texts, converted; "$P" does not send them. */
  char texts[2][256];
  /** The seven fields behind the texts; "$P" sends the first six.
   *  Virtual printer: VAT rates from A on in hundredths of a percent, 10000
   *  for an exempt one. */
  int32_t values[7];
} DollarP;
QUILON_SIZE(DollarP, 544);
QUILON_OFFSET(DollarP, texts, 4);
QUILON_OFFSET(DollarP, values, 516);

/** QUIL_DOLLAR_CAPITAL_P. */
typedef struct DollarCapitalP {
  /** Its `values` are sent behind the mnemonic. */
  DollarP fields;
  /** Parameters two to eight. Nothing separates the last two: the printer reads
   *  them as one. */
  int32_t parameters[7];
} DollarCapitalP;
QUILON_SIZE(DollarCapitalP, 572);
QUILON_OFFSET(DollarCapitalP, parameters, 544);

/** QUIL_SET_USB and QUIL_READ_USB. The long texts stand in the command and in
 *  the answer in the order first, third, second, fourth. */
typedef struct UsbSettings {
  /** The only parameter of the command; not read. */
  int32_t number;
  /** Four texts, sent and read in the order first, third, second, fourth. */
  char long_texts[4][5];
  /** Two numbers behind them. */
  int32_t numbers[2];
  /** Four texts behind these. */
  char short_texts[4][4];
} UsbSettings;
QUILON_SIZE(UsbSettings, 48);
QUILON_OFFSET(UsbSettings, long_texts, 4);
QUILON_OFFSET(UsbSettings, numbers, 24);
QUILON_OFFSET(UsbSettings, short_texts, 32);

/** QUIL_SET_CERT. */
typedef struct CertSettings {
  /** The first three fields. */
  int32_t numbers[3];
  /** The last field. */
  char text[4096];
} CertSettings;
QUILON_SIZE(CertSettings, 4108);
QUILON_OFFSET(CertSettings, text, 12);

/** QUIL_SET_EMF and QUIL_READ_EMF. */
typedef struct EmfSettings {
  /** Not 0: `value1` is sent. Also the first parameter; not read. */
  int32_t sends_value1;
  /** Not 0: `value2` is sent. Also the second parameter; not read. */
  int32_t sends_value2;
  /** The first field; at most 200 characters are read. */
  char text[204];
  /** Number behind the text. */
  int32_t value1;
  /** Number behind this. */
  int32_t value2;
} EmfSettings;
QUILON_SIZE(EmfSettings, 220);
QUILON_OFFSET(EmfSettings, text, 8);
QUILON_OFFSET(EmfSettings, value1, 212);

#endif /* QUILON_RECORDS_CONFIG_H_ */
