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
  int32_t numbers[6]; /**< The parameters. */
  char texts[2][256]; /**< Two texts, converted. */
} DollarC;
QUILON_SIZE(DollarC, 536);
QUILON_OFFSET(DollarC, texts, 24);

/** QUIL_DOLLAR_P, and the fields of QUIL_DOLLAR_CAPITAL_P. */
typedef struct DollarP {
  int32_t number;     /**< The parameter of "$p"; "$P" does not send it. */
  char texts[2][256]; /**< Two texts, converted; "$P" does not send them. */
  int32_t values[7];  /**< The fields behind the mnemonic; "$P" sends the first
                           six. */
} DollarP;
QUILON_SIZE(DollarP, 544);
QUILON_OFFSET(DollarP, texts, 4);
QUILON_OFFSET(DollarP, values, 516);

/** QUIL_DOLLAR_CAPITAL_P. */
typedef struct DollarCapitalP {
  DollarP fields;        /**< The fields behind the mnemonic. */
  int32_t parameters[7]; /**< The parameters before it. Nothing separates the
                              last two: the printer reads them as one. */
} DollarCapitalP;
QUILON_SIZE(DollarCapitalP, 572);
QUILON_OFFSET(DollarCapitalP, parameters, 544);

/** QUIL_SET_USB and QUIL_READ_USB. The long texts stand in the command and in
 *  the answer in the order first, third, second, fourth. */
typedef struct UsbSettings {
  int32_t number;         /**< Parameter of the command; not read. */
  char long_texts[4][5];  /**< Four texts. */
  int32_t numbers[2];     /**< The numbers behind them. */
  char short_texts[4][4]; /**< Four more texts. */
} UsbSettings;
QUILON_SIZE(UsbSettings, 48);
QUILON_OFFSET(UsbSettings, long_texts, 4);
QUILON_OFFSET(UsbSettings, numbers, 24);
QUILON_OFFSET(UsbSettings, short_texts, 32);

/** QUIL_SET_CERT. */
typedef struct CertSettings {
  int32_t numbers[3]; /**< The first three fields. */
  char text[4096];    /**< The last field. */
} CertSettings;
QUILON_SIZE(CertSettings, 4108);
QUILON_OFFSET(CertSettings, text, 12);

/** QUIL_SET_EMF and QUIL_READ_EMF. */
typedef struct EmfSettings {
  int32_t sends_value1; /**< Parameter of the command; `value1` is sent when
                             this is not 0. Not read. */
  int32_t sends_value2; /**< Parameter of the command; `value2` is sent when
                             this is not 0. Not read. */
  char text[204];       /**< The text; at most 200 characters are read. */
  int32_t value1;       /**< First value. */
  int32_t value2;       /**< Second value. */
} EmfSettings;
QUILON_SIZE(EmfSettings, 220);
QUILON_OFFSET(EmfSettings, text, 8);
QUILON_OFFSET(EmfSettings, value1, 212);

#endif /* QUILON_RECORDS_CONFIG_H_ */
