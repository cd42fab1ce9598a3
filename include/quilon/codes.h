/**
 * The commands of quil_ioctrl, one constant a code.
 *
 * "Direction: send" sends one frame or byte and does not wait for an answer;
 * "read" collects the answer to a command sent before; "local" exchanges
 * nothing with the printer. "Record" is the type that `data` points to.
 */
#ifndef QUILON_CODES_H_
#define QUILON_CODES_H_

enum QuilCode {
  /** Asks with the byte DLE whether the printer is able to print.
   *  Direction: send. Record: none. */
  QUIL_SEND_DLE = 2,
  /** Reads the answer to QUIL_SEND_DLE; packets that stand before it are
   *  dropped. Fails when the printer stays silent.
   *  Direction: read. Record: DleStatus. */
  QUIL_READ_DLE = 3,
  /** Asks with the byte ENQ what became of the last command.
   *  Direction: send. Record: none. */
  QUIL_SEND_ENQ = 4,
  /** Reads the answer to QUIL_SEND_ENQ; packets that stand before it are
   *  dropped. Fails when the printer stays silent.
   *  Direction: read. Record: EnqStatus. */
  QUIL_READ_ENQ = 5,
  /** Asks for the printer's name and firmware version ("#v").
   *  Direction: send. Record: none. */
  QUIL_SEND_DEVICE_INFO = 6,
  /** Reads the answer to QUIL_SEND_DEVICE_INFO ("#R").
   *  Direction: read. Record: PrinterVersion. */
  QUIL_READ_DEVICE_INFO = 7,
  /** Asks for the printer's identity ("23#s").
   *  Direction: send. Record: none. */
  QUIL_SEND_IDENTITY = 8,
  /** Reads the answer to QUIL_SEND_IDENTITY ("#X").
   *  Direction: read. Record: Identity. */
  QUIL_READ_IDENTITY = 9,
  /** Asks for the number of the printer's last error.
   *  Direction: send. Record: none. */
  QUIL_SEND_ERROR_NUMBER = 10,
  /** Reads the answer to QUIL_SEND_ERROR_NUMBER.
   *  Direction: read. Record: ErrorNumber. */
  QUIL_READ_ERROR_NUMBER = 11,
  /** Asks for information block 50, the communication port ("50$i").
   *  Direction: send. Record: none. */
  QUIL_SEND_PORT = 14,
  /** Reads the answer to QUIL_SEND_PORT ("$I").
   *  Direction: read. Record: PortInfo. */
  QUIL_READ_PORT = 15,
  /** Asks for the state of the fiscal memory ("210#s").
   *  Direction: send. Record: none. */
  QUIL_SEND_MEMORY = 16,
  /** Reads the answer to QUIL_SEND_MEMORY ("#X").
   *  Direction: read. Record: MemoryInfo. */
  QUIL_READ_MEMORY = 17,
  /** Chooses by its number which totals the printer tells, before
   *  QUIL_SEND_IDENTITY (0) or QUIL_SEND_TOTALS (1) ("$r").
   *  Direction: send. Record: SingleNumber. */
  QUIL_SET_TOTALS_MODE = 25,
  /** Asks for the printer's totals ("22#s").
   *  Direction: send. Record: none. */
  QUIL_SEND_TOTALS = 26,
  /** Reads the answer to QUIL_SEND_TOTALS or QUIL_SEND_IDENTITY ("#X").
   *  Direction: read. Record: Identity. */
  QUIL_READ_TOTALS = 27,
  /** Asks for the extended status with the byte 0x1A.
   *  Direction: send. Record: none. */
  QUIL_SEND_EXTENDED_STATUS = 30,
  /** Reads the answer to QUIL_SEND_EXTENDED_STATUS.
   *  Direction: read. Record: ExtendedStatus. */
  QUIL_READ_EXTENDED_STATUS = 31,
  /** Does nothing and succeeds; with QUIL_CHECK_STATUS a pure status check.
   *  Direction: local. Record: none. */
  QUIL_NOTHING = 32,

  /** Sends "#r".
   *  Direction: send. Record: HashR. */
  QUIL_HASH_R = 100,
  /** Sends "#k".
   *  Direction: send. Record: HashK. */
  QUIL_HASH_K = 101,
  /** Sends "8;4;4#f", texts and amounts.
   *  Direction: send. Record: HashF. */
  QUIL_HASH_F = 102,
  /** Sends "#o" with six texts as parameters.
   *  Direction: send. Record: HashO. */
  QUIL_HASH_O_TEXTS = 103,
  /** Sends "#o" with two fields behind it.
   *  Direction: send. Record: HashO. */
  QUIL_HASH_O_FIELDS = 104,
  /** Sends "$o" with texts.
   *  Direction: send. Record: DollarOTexts. */
  QUIL_DOLLAR_O_TEXTS = 105,
  /** Sends "$o" with two numbers.
   *  Direction: send. Record: DollarONumbers. */
  QUIL_DOLLAR_O_NUMBERS = 106,
  /** Sends "3$o".
   *  Direction: send. Record: none. */
  QUIL_DOLLAR_O_3 = 107,
  /** Sends "0#t".
   *  Direction: send. Record: HashT. */
  QUIL_HASH_T = 108,
  /** Sends "@PR".
   *  Direction: send. Record: AtPr. */
  QUIL_AT_PR = 109,
  /** Sends "@PMR".
   *  Direction: send. Record: AtPmr. */
  QUIL_AT_PMR = 110,
  /** Sends "#m", texts and amounts.
   *  Direction: send. Record: HashM. */
  QUIL_HASH_M = 111,
  /** Sends "#i" and an amount.
   *  Direction: send. Record: HashAmount. */
  QUIL_HASH_I = 112,
  /** Sends "#d" and an amount.
   *  Direction: send. Record: HashAmount. */
  QUIL_HASH_D = 113,

  /** Opens a fiscal document ("$h").
   *  Direction: send. Record: DocumentHeader. */
  QUIL_DOCUMENT_HEADER = 200,
  /** Prints a line of the document ("$l" or "^l").
   *  Direction: send. Record: DocumentLine. */
  QUIL_DOCUMENT_LINE = 201,
  /** Closes the document ("$e").
   *  Direction: send. Record: DocumentEnd. */
  QUIL_DOCUMENT_END = 202,
  /** Ends the document in the short form ("0$e"), without totals.
   *  Direction: send. Record: DocumentShortEnd. */
  QUIL_DOCUMENT_SHORT_END = 203,
  /** Sends a payment ("6$d").
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_6 = 207,
  /** Sends a payment ("7$d").
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_7 = 208,
  /** Sends a payment ("10$d").
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_10 = 209,
  /** Sends a payment ("11$d").
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_11 = 210,

  /** Sends "#p".
   *  Direction: send. Record: HashP. */
  QUIL_HASH_P = 500,
  /** Sends "0#q".
   *  Direction: send. Record: HashP. */
  QUIL_HASH_Q = 501,
  /** Sends "1#p". The printer's "#P" answer is read by QUIL_READ_HASH_P.
   *  Direction: send. Record: none. */
  QUIL_HASH_P_1 = 502,
  /** Reads a "#P" answer. The next packet must be it: unlike other reading
   *  commands, this one passes over no "#Z" packet.
   *  Direction: read. Record: HashPAnswer. */
  QUIL_READ_HASH_P = 503,

  /** Begins a non-fiscal printout ("$w").
   *  Direction: send. Record: NonFiscalBegin. */
  QUIL_NONFISCAL_BEGIN = 600,
  /** Prints up to eight lines of it ("$w").
   *  Direction: send. Record: NonFiscalLine. */
  QUIL_NONFISCAL_LINE = 601,
  /** Ends it ("$w").
   *  Direction: send. Record: NonFiscalEnd. */
  QUIL_NONFISCAL_END = 602,

  /** Sends "$z" with 28 as first parameter.
   *  Direction: send. Record: SingleNumber. */
  QUIL_DOLLAR_Z_28 = 700,

  /** Texts in records are CP1250 from now on (as after quil_init).
   *  Direction: local. Record: none. */
  QUIL_TEXT_CP1250 = 800,
  /** Texts in records are UTF-8 from now on; one that is not valid UTF-8 is
   *  still taken as CP1250. A character that CP1250 lacks is sent as "?".
   *  Direction: local. Record: none. */
  QUIL_TEXT_UTF8 = 801
};

#endif /* QUILON_CODES_H_ */
