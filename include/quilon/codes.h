/**
 * The commands of quil_ioctrl, one constant a code.
 *
 * "Direction: send" sends one frame or byte and does not wait for an answer;
 * "read" collects the answer to a command sent before; "local" exchanges
 * nothing with the printer. "Record" is the type that `data` points to.
 *
 * A command whose purpose only the printer's own manual tells is named by its
 * mnemonic in the protocol: DOLLAR_C is "$c", CARET_B_1 is "1^b", QUESTION_E is
 * "?e". A command that reads fails when the printer is silent, its answer has
 * not the mnemonic, or a number in it is none; packets with "#Z" before the
 * answer are passed over. Fields read before a failure keep what was read. A
 * code with "SEND_" asks for what the one with "READ_" collects.
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
  /** Asks for the printer's identity and totals ("23#s").
   *  Direction: send. Record: none. */
  QUIL_SEND_IDENTITY = 8,
  /** Reads the answer to QUIL_SEND_IDENTITY ("#X").
   *  Direction: read. Record: Identity. */
  QUIL_READ_IDENTITY = 9,
  /** Asks for the number of the printer's last error ("#n").
   *  Direction: send. Record: none. */
  QUIL_SEND_ERROR_NUMBER = 10,
  /** Reads the answer to QUIL_SEND_ERROR_NUMBER ("#E").
   *  Direction: read. Record: ErrorNumber. */
  QUIL_READ_ERROR_NUMBER = 11,
  /** Asks for the printer's clock ("#c").
   *  Direction: send. Record: none. */
  QUIL_SEND_CLOCK = 12,
  /** Reads the answer to QUIL_SEND_CLOCK ("#C").
   *  Direction: read. Record: SixNumbers. */
  QUIL_READ_CLOCK = 13,
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
  /** Sends "#LOG" with a number.
   *  Direction: send. Record: SingleNumber. */
  QUIL_SEND_LOG = 18,
  /** Reads the number of a "#LOG" answer; the text before it is dropped.
   *  Direction: read. Record: SingleNumber. */
  QUIL_READ_LOG = 19,
  /** Sends "?PROC".
   *  Direction: send. Record: none. */
  QUIL_SEND_PROC = 20,
  /** Reads the answer to QUIL_SEND_PROC.
   *  Direction: read. Record: ProcInfo. */
  QUIL_READ_PROC = 21,
  /** Sends "$c": six parameters, two texts.
   *  Direction: send. Record: DollarC. */
  QUIL_DOLLAR_C = 22,
  /** Sends "$p": one parameter, two texts, seven values.
   *  Direction: send. Record: DollarP. */
  QUIL_DOLLAR_P = 23,
  /** Sends "1$P": seven parameters, six values.
   *  Direction: send. Record: DollarCapitalP. */
  QUIL_DOLLAR_CAPITAL_P = 24,
  /** Chooses by its number which totals the printer tells, before
   *  QUIL_SEND_IDENTITY (0) or QUIL_SEND_TOTALS (1) ("243;n$r").
   *  Direction: send. Record: SingleNumber. */
  QUIL_SET_TOTALS_MODE = 25,
  /** Asks for the printer's totals ("22#s").
   *  Direction: send. Record: none. */
  QUIL_SEND_TOTALS = 26,
  /** Reads the answer to QUIL_SEND_TOTALS or QUIL_SEND_IDENTITY ("#X").
   *  Direction: read. Record: Identity. */
  QUIL_READ_TOTALS = 27,
  /** Sends a command that the application wrote itself.
   *  Direction: send. Record: RawCommand. */
  QUIL_SEND_RAW = 28,
  /** Reads the next answer, whatever it is; packets with "#Z" before it are
   *  passed over.
   *  Direction: read. Record: RawAnswer. */
  QUIL_READ_RAW = 29,
  /** Asks for the extended status with the byte 0x1A.
   *  Direction: send. Record: none. */
  QUIL_SEND_EXTENDED_STATUS = 30,
  /** Reads the answer to QUIL_SEND_EXTENDED_STATUS.
   *  Direction: read. Record: ExtendedStatus. */
  QUIL_READ_EXTENDED_STATUS = 31,
  /** Does nothing and succeeds; with QUIL_CHECK_STATUS a pure status check.
   *  Direction: local. Record: none. */
  QUIL_NOTHING = 32,
  /** Sends "1;^F" with the record's number: a logo frame without data.
   *  Direction: send. Record: Logo. */
  QUIL_LOGO_FRAME_1 = 33,
  /** Sends the bitmap at the record's path to the printer, 64 bytes a frame
   *  ("0;^F"). Fails, with nothing sent, when the file is no such bitmap, or
   *  one of more than 32764 bytes of pixels or with its top row first. Whether
   *  the printer took the frames is not checked.
   *  Direction: send. Record: Logo. */
  QUIL_SEND_LOGO = 34,
  /** Sends "10;^F" with the record's number: a logo frame without data.
   *  Direction: send. Record: Logo. */
  QUIL_LOGO_FRAME_10 = 35,
  /** Reads the value and the checksum of a "^f" answer. Succeeds also when none
   *  came, and leaves the record as it was.
   *  Direction: read. Record: Logo. */
  QUIL_READ_LOGO = 36,
  /** Puts the checksum of the bitmap at the record's path into the record. The
   *  picture may take 6 bytes at the most, 4 of them for its size: for any
   *  other the checksum is "ffff". Fails in every case; the checksum is the
   *  result.
   *  Direction: local. Record: Logo. */
  QUIL_LOGO_CHECKSUM = 37,
  /** Sends "1^c" with a number and a converted text.
   *  Direction: send. Record: NumberAndText. */
  QUIL_CARET_C = 38,
  /** Sends the file at the record's path, 1024 bytes a frame ("@A"), and asks
   *  with ENQ after each frame whether the printer took it. An empty file
   *  succeeds with nothing sent. Fails when the file cannot be read to the size
   *  it had at first, or the printer refuses a frame or is silent; earlier
   *  frames then stay sent. A file of any size takes the same memory.
   *  Direction: send. Record: FileTransfer. */
  QUIL_SEND_FILE = 39,
  /** Sends one "@A" frame without data.
   *  Direction: send. Record: FileTransfer. */
  QUIL_SEND_EMPTY_FILE = 40,
  /** Sends "100;1$z" with a converted text.
   *  Direction: send. Record: SingleText. */
  QUIL_DOLLAR_Z = 41,
  /** Asks for the information block of the number ("$i").
   *  Direction: send. Record: SingleNumber. */
  QUIL_SEND_INFO_BLOCK = 42,
  /** Reads an information block of nine numbers ("$I").
   *  Direction: read. Record: InfoBlock43. */
  QUIL_READ_INFO_43 = 43,
  /** Sends "10$o" with two texts.
   *  Direction: send. Record: TwoTexts. */
  QUIL_DOLLAR_O_10 = 44,
  /** Sends "11$o" with two numbers.
   *  Direction: send. Record: TwoNumbers. */
  QUIL_DOLLAR_O_11 = 45,
  /** Sends "12;1$o".
   *  Direction: send. Record: none. */
  QUIL_DOLLAR_O_12 = 46,
  /** Reads an "#X" answer of three numbers and a text.
   *  Direction: read. Record: HashX. */
  QUIL_READ_HASH_X = 47,
  /** Sends "@PMI".
   *  Direction: send. Record: PmiCommand. */
  QUIL_AT_PMI = 48,
  /** Reads a "@PMD" answer.
   *  Direction: read. Record: PmdAnswer. */
  QUIL_READ_PMD = 49,
  /** Writes the part that all EPAR sets have ("@EPAR"): the texts and values.
   *  Direction: send. Record: EparSet. */
  QUIL_SET_EPAR_COMMON = 50,
  /** Asks for the EPAR set of the record's type ("?EPAR"). A type other than 1,
   *  2 or 3 becomes 0, in the record too.
   *  Direction: send. Record: EparSet. */
  QUIL_SEND_EPAR = 51,
  /** Reads the answer to QUIL_SEND_EPAR. Unless the record's type is 0, it
   *  becomes the digit before "?EPAR"; fails when there is none.
   *  Direction: read. Record: EparSet. */
  QUIL_READ_EPAR = 52,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock53. */
  QUIL_READ_INFO_53 = 53,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock54. */
  QUIL_READ_INFO_54 = 54,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock55. */
  QUIL_READ_INFO_55 = 55,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock56. */
  QUIL_READ_INFO_56 = 56,
  /** Reads an information block of one number ("$I").
   *  Direction: read. Record: SingleNumber. */
  QUIL_READ_INFO_57 = 57,
  /** Reads an information block of six numbers ("$I").
   *  Direction: read. Record: SixNumbers. */
  QUIL_READ_INFO_58 = 58,
  /** Reads an information block of one number ("$I").
   *  Direction: read. Record: SingleNumber. */
  QUIL_READ_INFO_59 = 59,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock60. */
  QUIL_READ_INFO_60 = 60,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock61. */
  QUIL_READ_INFO_61 = 61,
  /** Reads an information block of seven numbers ("$I").
   *  Direction: read. Record: SevenNumbers. */
  QUIL_READ_INFO_62 = 62,
  /** Writes the EPAR set of the record's type ("@EPAR"). Type 1 has neither
   *  values nor a second text.
   *  Direction: send. Record: EparSet. */
  QUIL_SET_EPAR = 63,
  /** Reads an information block ("$I").
   *  Direction: read. Record: InfoBlock64. */
  QUIL_READ_INFO_64 = 64,
  /** Asks with "?SERW" and a number.
   *  Direction: send. Record: SingleNumber. */
  QUIL_SEND_SERW = 65,
  /** Reads the answer to QUIL_SEND_SERW.
   *  Direction: read. Record: NumberAndText. */
  QUIL_READ_SERW = 66,
  /** Writes the USB settings ("@usb").
   *  Direction: send. Record: UsbSettings. */
  QUIL_SET_USB = 67,
  /** Asks for the USB settings ("?usb").
   *  Direction: send. Record: none. */
  QUIL_SEND_USB = 68,
  /** Reads the answer to QUIL_SEND_USB.
   *  Direction: read. Record: UsbSettings. */
  QUIL_READ_USB = 69,
  /** Sends "1^b" with seven texts.
   *  Direction: send. Record: SevenTexts. */
  QUIL_CARET_B_1 = 70,
  /** Sends "?e".
   *  Direction: send. Record: none. */
  QUIL_SEND_QUESTION_E = 71,
  /** Reads the answer to QUIL_SEND_QUESTION_E.
   *  Direction: read. Record: TwoNumbers. */
  QUIL_READ_QUESTION_E = 72,
  /** Sends "$g" with two texts.
   *  Direction: send. Record: TwoTexts. */
  QUIL_DOLLAR_G = 73,
  /** Reads a "$G" answer.
   *  Direction: read. Record: NumberAndText. */
  QUIL_READ_DOLLAR_G = 74,
  /** Sends "$m".
   *  Direction: send. Record: none. */
  QUIL_DOLLAR_M = 75,
  /** Sends "0;n^b" with a parameter and seven texts.
   *  Direction: send. Record: NumberAndSevenTexts. */
  QUIL_CARET_B_0 = 76,
  /** Sends "12^t".
   *  Direction: send. Record: none. */
  QUIL_CARET_T_12 = 77,
  /** Reads a "^t" answer.
   *  Direction: read. Record: FiveTexts. */
  QUIL_READ_CARET_T = 78,
  /** Sends "#b" with a parameter and four texts.
   *  Direction: send. Record: NumberAndFourTexts. */
  QUIL_HASH_B = 79,
  /** Sends "#l" with a parameter.
   *  Direction: send. Record: SingleNumber. */
  QUIL_HASH_L = 80,
  /** Sends "@SERW" with a converted text and a number.
   *  Direction: send. Record: NumberAndText. */
  QUIL_SET_SERW = 81,
  /** Sends "@CERT" with three numbers and a text.
   *  Direction: send. Record: CertSettings. */
  QUIL_SET_CERT = 82,
  /** Writes the EMF settings ("@EMF").
   *  Direction: send. Record: EmfSettings. */
  QUIL_SET_EMF = 83,
  /** Asks for the EMF settings ("?EMF").
   *  Direction: send. Record: none. */
  QUIL_SEND_EMF = 84,
  /** Reads the answer to QUIL_SEND_EMF.
   *  Direction: read. Record: EmfSettings. */
  QUIL_READ_EMF = 85,
  /** Sends "!e" with four numbers.
   *  Direction: send. Record: ExclamationE. */
  QUIL_SEND_EXCLAMATION_E = 86,
  /** Reads the answer to QUIL_SEND_EXCLAMATION_E.
   *  Direction: read. Record: ExclamationE. */
  QUIL_READ_EXCLAMATION_E = 87,
  /** Sends "?EDB" with the first number as parameter and the next two as
   *  fields.
   *  Direction: send. Record: SixNumbers. */
  QUIL_SEND_EDB = 88,
  /** Reads the answer to QUIL_SEND_EDB by the record's first number. 0: three
   *  numbers into the second to the fourth. 1 or 2: the parameter before "?EDB"
   *  into the sixth, and when it is 0, three numbers into the second, third and
   *  fifth. Any other: nothing is stored.
   *  Direction: read. Record: SixNumbers. */
  QUIL_READ_EDB = 89,
  /** Sends "!EDB" with a number.
   *  Direction: send. Record: SingleNumber. */
  QUIL_EXCLAMATION_EDB = 90,
  /** Writes the EPNG settings ("@EPNG").
   *  Direction: send. Record: ThreeNumbers. */
  QUIL_SET_EPNG = 91,
  /** Asks for the EPNG settings ("?EPNG").
   *  Direction: send. Record: none. */
  QUIL_SEND_EPNG = 92,
  /** Reads the answer to QUIL_SEND_EPNG.
   *  Direction: read. Record: ThreeNumbers. */
  QUIL_READ_EPNG = 93,

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
   *  Direction: send. Record: PrCommand. */
  QUIL_AT_PR = 109,
  /** Sends "@PMR".
   *  Direction: send. Record: PmrCommand. */
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
  /** Closes the document ("$e"). Fails, whatever the flags, when the printer is
   *  not ready afterwards or says that the command was refused.
   *  Direction: send. Record: DocumentEnd. */
  QUIL_DOCUMENT_END = 202,
  /** Ends the document in the short form ("0$e"), without totals.
   *  Direction: send. Record: DocumentShortEnd. */
  QUIL_DOCUMENT_SHORT_END = 203,
  /** Sends "$n" within a document.
   *  Direction: send. Record: DollarN. */
  QUIL_DOLLAR_N = 204,
  /** Sends "$L" within a document.
   *  Direction: send. Record: DollarCapitalL. */
  QUIL_DOLLAR_CAPITAL_L = 205,
  /** Sends "$Y" within a document.
   *  Direction: send. Record: DollarCapitalY. */
  QUIL_DOLLAR_CAPITAL_Y = 206,
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
  /** Settles and closes the document with "$x". As QUIL_DOCUMENT_END it fails
   *  when the printer is not ready afterwards or says that the command was
   *  refused.
   *  Direction: send. Record: DollarX. */
  QUIL_DOCUMENT_END_X = 211,
  /** Sends "$b" within a document.
   *  Direction: send. Record: DollarB. */
  QUIL_DOLLAR_B = 212,
  /** Settles and closes the document with "$y". As QUIL_DOCUMENT_END it fails
   *  when the printer is not ready afterwards or says that the command was
   *  refused.
   *  Direction: send. Record: DollarY. */
  QUIL_DOCUMENT_END_Y = 213,
  /** Prints a whole document and proves by the totals that it was booked. A
   *  step that cannot be sent fails the call, but not before the others have
   *  been sent. While the printer does not tell its totals they are asked for
   *  again, without end.
   *  Direction: send. Record: WholeDocument. */
  QUIL_WHOLE_DOCUMENT = 214,
  /** Checks the totals once more against those that the last document must
   *  have led to. Always fails with QUIL_COMPARE_TOTALS, which forgets that
   *  document.
   *  Direction: read. Record: none. */
  QUIL_CHECK_TOTALS = 215,
  /** Sends "@z".
   *  Direction: send. Record: AtZ. */
  QUIL_AT_Z = 216,
  /** Prints a line of rate group "P" ("$l").
   *  Direction: send. Record: DocumentLineP. */
  QUIL_DOCUMENT_LINE_P = 217,
  /** Sends "@e".
   *  Direction: send. Record: AtE. */
  QUIL_AT_E = 218,
  /** Opens a fiscal document as QUIL_DOCUMENT_HEADER does, but with 1 as the
   *  first parameter ("$h").
   *  Direction: send. Record: DocumentHeader. */
  QUIL_DOCUMENT_HEADER_219 = 219,

  /** Opens a fiscal document with the buyer's data ("$h").
   *  Direction: send. Record: BuyerHeader. */
  QUIL_BUYER_HEADER = 300,
  /** Prints a line of the document, as QUIL_DOCUMENT_LINE does.
   *  Direction: send. Record: DocumentLine. */
  QUIL_BUYER_LINE = 301,
  /** Closes the document ("$e"). Fails as QUIL_DOCUMENT_END does.
   *  Direction: send. Record: BuyerEnd. */
  QUIL_BUYER_END = 302,
  /** Sends "@c".
   *  Direction: send. Record: AtC. */
  QUIL_AT_C = 303,
  /** Prints a whole document with a buyer and proves by the totals that it was
   *  booked, as QUIL_WHOLE_DOCUMENT does.
   *  Direction: send. Record: WholeBuyerDocument. */
  QUIL_WHOLE_BUYER_DOCUMENT = 304,
  /** Closes the document with the command of QUIL_DOCUMENT_END ("$e").
   *  Direction: send. Record: DocumentEnd. */
  QUIL_BUYER_PLAIN_END = 306,
  /** Closes the document with the command of QUIL_DOCUMENT_END_X ("$x").
   *  Direction: send. Record: DollarX. */
  QUIL_BUYER_END_X = 307,
  /** Opens a document as QUIL_BUYER_HEADER does ("$h").
   *  Direction: send. Record: BuyerHeader. */
  QUIL_BUYER_HEADER_308 = 308,

  /** Opens the cash drawer ("1$d").
   *  Direction: send. Record: none. */
  QUIL_OPEN_DRAWER = 400,
  /** Sends a text to the customer display ("n$d"), without a checksum.
   *  Direction: send. Record: DisplayText. */
  QUIL_DISPLAY = 401,
  /** Sends "#e" with a parameter.
   *  Direction: send. Record: HashE. */
  QUIL_HASH_E = 402,
  /** Reads the next packet, one with "#Z" too: what stands before and behind
   *  "#Z". Without "#Z" the text before it becomes empty, the other stays, and
   *  the command succeeds all the same.
   *  Direction: read. Record: HashE. */
  QUIL_READ_HASH_Z = 403,
  /** Sends "!d" with a parameter and a converted text.
   *  Direction: send. Record: DisplayText. */
  QUIL_EXCLAMATION_D = 404,

  /** Sends "#p".
   *  Direction: send. Record: HashP. */
  QUIL_HASH_P = 500,
  /** Sends "0#q".
   *  Direction: send. Record: HashP. */
  QUIL_HASH_Q = 501,
  /** Sends "1#p". The printer's "#P" answer is read by QUIL_READ_HASH_P.
   *  Direction: send. Record: none. */
  QUIL_SEND_HASH_P_1 = 502,
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

  /** Sends "28;n$z" with a parameter.
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
