/**
 * The commands of quil_ioctrl, one constant a code.
 *
 * "Direction: send" sends one frame or byte and does not wait for an answer;
 * "read" collects the answer to a command sent before; "local" exchanges
 * nothing with the printer. "Record" is the type that `data` points to.
 *
 * A command whose purpose only the printer's own manual tells is named by its
 * mnemonic in the protocol: DOLLAR_C is "$c", CARET_B_1 is "1^b", QUESTION_E is
 * "?e". A line "Virtual printer: daily report." tells what the virtual printer
 * takes a command or a field for. That is a reading, no statement about real
 * printers. docs/commands.md finds commands by task.
 *
 * A command that reads fails when the printer is silent, when its answer lacks
 * the mnemonic, or when something else stands in it where a number belongs.
 * Packets with "#Z" before the answer are passed over. Fields read before a
 * failure keep what was read. A code with "SEND_" asks for what the one with
 * "READ_" collects.
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
   *  Virtual printer: device and version?
   *  Direction: send. Record: none. */
  QUIL_SEND_DEVICE_INFO = 6,
  /** Reads the answer to QUIL_SEND_DEVICE_INFO ("#R").
   *  Virtual printer: device and version?
   *  Direction: read. Record: PrinterVersion. */
  QUIL_READ_DEVICE_INFO = 7,
  /** Asks for the printer's identity and totals ("23#s").
   *  Virtual printer: totals of receipts?
   *  Direction: send. Record: none. */
  QUIL_SEND_IDENTITY = 8,
  /** Reads the answer to QUIL_SEND_IDENTITY ("#X").
   *  Direction: read. Record: Identity. */
  QUIL_READ_IDENTITY = 9,
  /** Asks for the number of the printer's last error ("#n").
   *  Virtual printer: last error?
   *  Direction: send. Record: none. */
  QUIL_SEND_ERROR_NUMBER = 10,
  /** Reads the answer to QUIL_SEND_ERROR_NUMBER ("#E").
   *  Virtual printer: last error?
   *  Direction: read. Record: ErrorNumber. */
  QUIL_READ_ERROR_NUMBER = 11,
  /** Asks for the printer's clock ("#c").
   *  Virtual printer: clock?
   *  Direction: send. Record: none. */
  QUIL_SEND_CLOCK = 12,
  /** Reads the answer to QUIL_SEND_CLOCK ("#C").
   *  Virtual printer: clock?
   *  Virtual printer, numbers: year, month, day, hour, minute, second.
   *  Direction: read. Record: SixNumbers. */
  QUIL_READ_CLOCK = 13,
  /** Asks for information block 50, the communication port ("50$i").
   *  Direction: send. Record: none. */
  QUIL_SEND_PORT = 14,
  /** Reads the answer to QUIL_SEND_PORT ("$I").
   *  Direction: read. Record: PortInfo. */
  QUIL_READ_PORT = 15,
  /** Asks for the state of the fiscal memory ("210#s").
   *  Virtual printer: memory?
   *  Direction: send. Record: none. */
  QUIL_SEND_MEMORY = 16,
  /** Reads the answer to QUIL_SEND_MEMORY ("#X").
   *  Virtual printer: memory?
   *  Direction: read. Record: MemoryInfo. */
  QUIL_READ_MEMORY = 17,
  /** Sends "#LOG" with a number.
   *  Virtual printer: log?
   *  Virtual printer, number: a number that the answer repeats.
   *  Direction: send. Record: SingleNumber. */
  QUIL_SEND_LOG = 18,
  /** Reads the number of a "#LOG" answer; the text before it is dropped.
   *  Virtual printer: log?
   *  Virtual printer, number: the number of the question.
   *  Direction: read. Record: SingleNumber. */
  QUIL_READ_LOG = 19,
  /** Sends "?PROC".
   *  Virtual printer: processes?
   *  Direction: send. Record: none. */
  QUIL_SEND_PROC = 20,
  /** Reads the answer to QUIL_SEND_PROC.
   *  Virtual printer: processes?
   *  Direction: read. Record: ProcInfo. */
  QUIL_READ_PROC = 21,
  /** Sends "$c": six parameters, two texts.
   *  Virtual printer: set clock.
   *  Direction: send. Record: DollarC. */
  QUIL_DOLLAR_C = 22,
  /** Sends "$p": one parameter, two texts, seven values.
   *  Virtual printer: set VAT rates.
   *  Direction: send. Record: DollarP. */
  QUIL_DOLLAR_P = 23,
  /** Sends "1$P": seven parameters, six values.
   *  Virtual printer: setting.
   *  Direction: send. Record: DollarCapitalP. */
  QUIL_DOLLAR_CAPITAL_P = 24,
  /** Chooses by its number which totals the printer tells, before
   *  QUIL_SEND_IDENTITY (0) or QUIL_SEND_TOTALS (1) ("243;n$r").
   *  Virtual printer: choose totals.
   *  Direction: send. Record: SingleNumber. */
  QUIL_SET_TOTALS_MODE = 25,
  /** Asks for the printer's totals ("22#s").
   *  Virtual printer: totals of invoices?
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
   *  Virtual printer: forget logo.
   *  Direction: send. Record: Logo. */
  QUIL_LOGO_FRAME_1 = 33,
  /** Sends the bitmap at the record's path to the printer, 64 bytes a frame
   *  ("0;^F"). Fails, with nothing sent, when the file is no such bitmap, or
   *  one of more than 32764 bytes of pixels or with its top row first. Whether
   *  the printer took the frames is not checked.
   *  Virtual printer: block of a logo.
   *  Direction: send. Record: Logo. */
  QUIL_SEND_LOGO = 34,
  /** Sends "10;^F" with the record's number: a logo frame without data.
   *  Virtual printer: checksum of a logo?
   *  Direction: send. Record: Logo. */
  QUIL_LOGO_FRAME_10 = 35,
  /** Reads the value and the checksum of a "^f" answer. Succeeds also when no
   *  answer came, and leaves the record as it was.
   *  Virtual printer: checksum of a logo?
   *  Direction: read. Record: Logo. */
  QUIL_READ_LOGO = 36,
  /** Puts the checksum of the bitmap at the record's path into the record. The
   *  picture may take 6 bytes at the most, 4 of them for its size: for any
   *  other the checksum is "ffff". Fails in every case; the checksum is the
   *  result.
   *  Direction: local. Record: Logo. */
  QUIL_LOGO_CHECKSUM = 37,
  /** Sends "1^c" with a number and a converted text.
   *  Virtual printer: setting.
   *  Direction: send. Record: NumberAndText. */
  QUIL_CARET_C = 38,
  /** Sends the file at the record's path, 1024 bytes a frame ("@A"), and asks
   *  with ENQ after each frame whether the printer took it. An empty file
   *  succeeds with nothing sent. Fails when the file cannot be read to the size
   *  it had at first, or the printer refuses a frame or is silent; earlier
   *  frames then stay sent. A file of any size takes the same memory.
   *  Virtual printer: block of a file.
   *  Direction: send. Record: FileTransfer. */
  QUIL_SEND_FILE = 39,
  /** Sends one "@A" frame without data.
   *  Virtual printer: block of a file.
   *  Direction: send. Record: FileTransfer. */
  QUIL_SEND_EMPTY_FILE = 40,
  /** Sends "100;1$z" with a converted text.
   *  Virtual printer: name of the owner.
   *  Direction: send. Record: SingleText. */
  QUIL_DOLLAR_Z = 41,
  /** Asks for the information block of the number ("$i").
   *  Virtual printer: information block?
   *  Direction: send. Record: SingleNumber. */
  QUIL_SEND_INFO_BLOCK = 42,
  /** Reads an information block of nine numbers ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock43. */
  QUIL_READ_INFO_43 = 43,
  /** Sends "10$o" with two texts.
   *  Virtual printer: report of a range.
   *  Virtual printer, texts: first and last day or number.
   *  Direction: send. Record: TwoTexts. */
  QUIL_DOLLAR_O_10 = 44,
  /** Sends "11$o" with two numbers.
   *  Virtual printer: report of a range.
   *  Virtual printer, numbers: first and last number.
   *  Direction: send. Record: TwoNumbers. */
  QUIL_DOLLAR_O_11 = 45,
  /** Sends "12;1$o".
   *  Virtual printer: last report?
   *  Direction: send. Record: none. */
  QUIL_DOLLAR_O_12 = 46,
  /** Reads an "#X" answer of three numbers and a text.
   *  Virtual printer: last report?
   *  Direction: read. Record: HashX. */
  QUIL_READ_HASH_X = 47,
  /** Sends "@PMI".
   *  Virtual printer: protected memory?
   *  Direction: send. Record: PmiCommand. */
  QUIL_AT_PMI = 48,
  /** Reads a "@PMD" answer.
   *  Virtual printer: protected memory?
   *  Direction: read. Record: PmdAnswer. */
  QUIL_READ_PMD = 49,
  /** Writes the part that all EPAR sets have ("@EPAR"): the texts and values.
   *  Virtual printer: parameters.
   *  Direction: send. Record: EparSet. */
  QUIL_SET_EPAR_COMMON = 50,
  /** Asks for the EPAR set of the record's type ("?EPAR"). A type other than 1,
   *  2 or 3 becomes 0, in the record too.
   *  Virtual printer: parameters?
   *  Direction: send. Record: EparSet. */
  QUIL_SEND_EPAR = 51,
  /** Reads the answer to QUIL_SEND_EPAR. Unless the record's type is 0, it
   *  becomes the digit before "?EPAR"; fails when there is none.
   *  Virtual printer: parameters?
   *  Direction: read. Record: EparSet. */
  QUIL_READ_EPAR = 52,
  /** Reads an information block of five texts and four numbers ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock53. */
  QUIL_READ_INFO_53 = 53,
  /** Reads an information block of numbers and texts by turns ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock54. */
  QUIL_READ_INFO_54 = 54,
  /** Reads an information block of four texts ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock55. */
  QUIL_READ_INFO_55 = 55,
  /** Reads an information block of a text and five numbers ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock56. */
  QUIL_READ_INFO_56 = 56,
  /** Reads an information block of one number ("$I").
   *  Virtual printer: information block?
   *  Virtual printer, number: drawer openings.
   *  Direction: read. Record: SingleNumber. */
  QUIL_READ_INFO_57 = 57,
  /** Reads an information block of six numbers ("$I").
   *  Virtual printer: information block?
   *  Virtual printer, numbers: paper out, mechanism error, width of the paper
   *  in characters, lines printed, two unused.
   *  Direction: read. Record: SixNumbers. */
  QUIL_READ_INFO_58 = 58,
  /** Reads an information block of one number ("$I").
   *  Virtual printer: information block?
   *  Virtual printer, number: files stored.
   *  Direction: read. Record: SingleNumber. */
  QUIL_READ_INFO_59 = 59,
  /** Reads an information block of numbers and texts by turns ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock60. */
  QUIL_READ_INFO_60 = 60,
  /** Reads an information block of ten numbers and a text ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock61. */
  QUIL_READ_INFO_61 = 61,
  /** Reads an information block of seven numbers ("$I").
   *  Virtual printer: information block?
   *  Virtual printer, numbers: totals of receipts of the VAT rates A to G, in
   *  whole zloty.
   *  Direction: read. Record: SevenNumbers. */
  QUIL_READ_INFO_62 = 62,
  /** Writes the EPAR set of the record's type ("@EPAR"). Type 1 has neither
   *  values nor a second text.
   *  Virtual printer: parameters.
   *  Direction: send. Record: EparSet. */
  QUIL_SET_EPAR = 63,
  /** Reads an information block of numbers and four texts ("$I").
   *  Virtual printer: information block?
   *  Direction: read. Record: InfoBlock64. */
  QUIL_READ_INFO_64 = 64,
  /** Asks with "?SERW" and a number.
   *  Virtual printer: service?
   *  Direction: send. Record: SingleNumber. */
  QUIL_SEND_SERW = 65,
  /** Reads the answer to QUIL_SEND_SERW.
   *  Virtual printer: service?
   *  Virtual printer, number: the number of the setting.
   *  Virtual printer, text: the text of the setting.
   *  Direction: read. Record: NumberAndText. */
  QUIL_READ_SERW = 66,
  /** Writes the USB settings ("@usb").
   *  Virtual printer: setting.
   *  Direction: send. Record: UsbSettings. */
  QUIL_SET_USB = 67,
  /** Asks for the USB settings ("?usb").
   *  Virtual printer: USB?
   *  Direction: send. Record: none. */
  QUIL_SEND_USB = 68,
  /** Reads the answer to QUIL_SEND_USB.
   *  Virtual printer: USB?
   *  Direction: read. Record: UsbSettings. */
  QUIL_READ_USB = 69,
  /** Sends "1^b" with seven texts.
   *  Virtual printer: setting.
   *  Direction: send. Record: SevenTexts. */
  QUIL_CARET_B_1 = 70,
  /** Sends "?e".
   *  Virtual printer: document counts?
   *  Direction: send. Record: none. */
  QUIL_SEND_QUESTION_E = 71,
  /** Reads the answer to QUIL_SEND_QUESTION_E.
   *  Virtual printer: document counts?
   *  Virtual printer, numbers: receipts and invoices so far.
   *  Direction: read. Record: TwoNumbers. */
  QUIL_READ_QUESTION_E = 72,
  /** Sends "$g" with two texts.
   *  Virtual printer: group.
   *  Direction: send. Record: TwoTexts. */
  QUIL_DOLLAR_G = 73,
  /** Reads a "$G" answer.
   *  Virtual printer: group.
   *  Virtual printer, number: always 1.
   *  Virtual printer, text: the first text of the command.
   *  Direction: read. Record: NumberAndText. */
  QUIL_READ_DOLLAR_G = 74,
  /** Sends "$m".
   *  Virtual printer: setting.
   *  Direction: send. Record: none. */
  QUIL_DOLLAR_M = 75,
  /** Sends "0;n^b" with a parameter and seven texts.
   *  Virtual printer: setting.
   *  Direction: send. Record: NumberAndSevenTexts. */
  QUIL_CARET_B_0 = 76,
  /** Sends "12^t".
   *  Virtual printer: display?
   *  Direction: send. Record: none. */
  QUIL_CARET_T_12 = 77,
  /** Reads a "^t" answer.
   *  Virtual printer: display?
   *  Virtual printer, texts: first five lines of the display.
   *  Direction: read. Record: FiveTexts. */
  QUIL_READ_CARET_T = 78,
  /** Sends "#b" with a parameter and four texts.
   *  Virtual printer: setting.
   *  Direction: send. Record: NumberAndFourTexts. */
  QUIL_HASH_B = 79,
  /** Sends "#l" with a parameter.
   *  Virtual printer: setting.
   *  Direction: send. Record: SingleNumber. */
  QUIL_HASH_L = 80,
  /** Sends "@SERW" with a converted text and a number.
   *  Virtual printer: setting.
   *  Direction: send. Record: NumberAndText. */
  QUIL_SET_SERW = 81,
  /** Sends "@CERT" with three numbers and a text.
   *  Virtual printer: setting.
   *  Direction: send. Record: CertSettings. */
  QUIL_SET_CERT = 82,
  /** Writes the EMF settings ("@EMF").
   *  Virtual printer: setting.
   *  Direction: send. Record: EmfSettings. */
  QUIL_SET_EMF = 83,
  /** Asks for the EMF settings ("?EMF").
   *  Virtual printer: setting?
   *  Direction: send. Record: none. */
  QUIL_SEND_EMF = 84,
  /** Reads the answer to QUIL_SEND_EMF.
   *  Virtual printer: setting?
   *  Direction: read. Record: EmfSettings. */
  QUIL_READ_EMF = 85,
  /** Sends "!e" with four numbers.
   *  Virtual printer: journal.
   *  Direction: send. Record: ExclamationE. */
  QUIL_SEND_EXCLAMATION_E = 86,
  /** Reads the answer to QUIL_SEND_EXCLAMATION_E.
   *  Virtual printer: journal.
   *  Direction: read. Record: ExclamationE. */
  QUIL_READ_EXCLAMATION_E = 87,
  /** Sends "?EDB" with the first number as parameter and the next two as
   *  fields.
   *  Virtual printer: state of the journal?
   *  Virtual printer, numbers: kind of the question, two numbers that the
   *  answer repeats.
   *  Direction: send. Record: SixNumbers. */
  QUIL_SEND_EDB = 88,
  /** Reads the answer to QUIL_SEND_EDB by the record's first number. 0: three
   *  numbers into the second to the fourth. 1 or 2: the parameter before "?EDB"
   *  into the sixth, and when it is 0, three numbers into the second, third and
   *  fifth. Any other: nothing is stored.
   *  Virtual printer: state of the journal?
   *  Virtual printer, numbers: both numbers of the question, documents so far,
   *  and in the sixth 0 for found.
   *  Direction: read. Record: SixNumbers. */
  QUIL_READ_EDB = 89,
  /** Sends "!EDB" with a number.
   *  Virtual printer: setting.
   *  Direction: send. Record: SingleNumber. */
  QUIL_EXCLAMATION_EDB = 90,
  /** Writes the EPNG settings ("@EPNG").
   *  Virtual printer: setting.
   *  Direction: send. Record: ThreeNumbers. */
  QUIL_SET_EPNG = 91,
  /** Asks for the EPNG settings ("?EPNG").
   *  Virtual printer: setting?
   *  Direction: send. Record: none. */
  QUIL_SEND_EPNG = 92,
  /** Reads the answer to QUIL_SEND_EPNG.
   *  Virtual printer: setting?
   *  Direction: read. Record: ThreeNumbers. */
  QUIL_READ_EPNG = 93,

  /** Sends "#r".
   *  Virtual printer: daily report.
   *  Direction: send. Record: HashR. */
  QUIL_HASH_R = 100,
  /** Sends "#k".
   *  Virtual printer: shift report.
   *  Direction: send. Record: HashK. */
  QUIL_HASH_K = 101,
  /** Sends "8;4;4#f", texts and amounts.
   *  Virtual printer: form.
   *  Direction: send. Record: HashF. */
  QUIL_HASH_F = 102,
  /** Sends "#o" with six texts as parameters.
   *  Virtual printer: periodic report.
   *  Direction: send. Record: HashO. */
  QUIL_HASH_O_TEXTS = 103,
  /** Sends "#o" with two fields behind it.
   *  Virtual printer: periodic report.
   *  Direction: send. Record: HashO. */
  QUIL_HASH_O_FIELDS = 104,
  /** Sends "$o" with texts.
   *  Virtual printer: report of a range.
   *  Direction: send. Record: DollarOTexts. */
  QUIL_DOLLAR_O_TEXTS = 105,
  /** Sends "$o" with two numbers.
   *  Virtual printer: report of a range.
   *  Direction: send. Record: DollarONumbers. */
  QUIL_DOLLAR_O_NUMBERS = 106,
  /** Sends "3$o".
   *  Virtual printer: report of a range.
   *  Direction: send. Record: none. */
  QUIL_DOLLAR_O_3 = 107,
  /** Sends "0#t".
   *  Virtual printer: cash report.
   *  Direction: send. Record: HashT. */
  QUIL_HASH_T = 108,
  /** Sends "@PR".
   *  Virtual printer: print memory.
   *  Direction: send. Record: PrCommand. */
  QUIL_AT_PR = 109,
  /** Sends "@PMR".
   *  Virtual printer: print protected memory.
   *  Direction: send. Record: PmrCommand. */
  QUIL_AT_PMR = 110,
  /** Sends "#m", texts and amounts.
   *  Virtual printer: settlement.
   *  Direction: send. Record: HashM. */
  QUIL_HASH_M = 111,
  /** Sends "#i" and an amount.
   *  Virtual printer: pay in.
   *  Direction: send. Record: HashAmount. */
  QUIL_HASH_I = 112,
  /** Sends "#d" and an amount.
   *  Virtual printer: pay out.
   *  Direction: send. Record: HashAmount. */
  QUIL_HASH_D = 113,

  /** Opens a fiscal document ("$h"). QUIL_COMPARE_TOTALS belongs on this
   *  command and its sisters 219, 300 and 308; on any other it forgets the
   *  document that is open.
   *  Virtual printer: begin document.
   *  Direction: send. Record: DocumentHeader. */
  QUIL_DOCUMENT_HEADER = 200,
  /** Prints a line of the document ("$l" or "^l").
   *  Virtual printer: line.
   *  Direction: send. Record: DocumentLine. */
  QUIL_DOCUMENT_LINE = 201,
  /** Closes the document ("$e"). Without flags, too, the driver then asks for
   *  the printer's state, and fails when the printer is silent, offline, out of
   *  paper or in error, or refused the command while ENQ bit 1 says that a
   *  document is open. A refusal while that bit is 0 goes unnoticed without
   *  QUIL_CHECK_STATUS.
   *  Virtual printer: close document.
   *  Direction: send. Record: DocumentEnd. */
  QUIL_DOCUMENT_END = 202,
  /** Ends the document in the short form ("0$e"), without totals.
   *  Virtual printer: cancel document.
   *  Direction: send. Record: DocumentShortEnd. */
  QUIL_DOCUMENT_SHORT_END = 203,
  /** Sends "$n" within a document.
   *  Virtual printer: addition.
   *  Direction: send. Record: DollarN. */
  QUIL_DOLLAR_N = 204,
  /** Sends "$L" within a document.
   *  Virtual printer: settlement of a rate.
   *  Direction: send. Record: DollarCapitalL. */
  QUIL_DOLLAR_CAPITAL_L = 205,
  /** Sends "$Y" within a document.
   *  Virtual printer: subtotal.
   *  Direction: send. Record: DollarCapitalY. */
  QUIL_DOLLAR_CAPITAL_Y = 206,
  /** Sends a payment ("6$d").
   *  Virtual printer: payment: cash.
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_6 = 207,
  /** Sends a payment ("7$d").
   *  Virtual printer: payment: card.
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_7 = 208,
  /** Sends a payment ("10$d").
   *  Virtual printer: payment: other.
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_10 = 209,
  /** Sends a payment ("11$d").
   *  Virtual printer: payment: currency.
   *  Direction: send. Record: Payment. */
  QUIL_PAYMENT_11 = 210,
  /** Settles and closes the document with "$x". The driver then asks for the
   *  printer's state, and fails, as QUIL_DOCUMENT_END does.
   *  Virtual printer: close document with totals.
   *  Direction: send. Record: DollarX. */
  QUIL_DOCUMENT_END_X = 211,
  /** Sends "$b" within a document.
   *  Virtual printer: form of payment.
   *  Direction: send. Record: DollarB. */
  QUIL_DOLLAR_B = 212,
  /** Settles and closes the document with "$y". The driver then asks for the
   *  printer's state, and fails, as QUIL_DOCUMENT_END does.
   *  Virtual printer: close document with list.
   *  Direction: send. Record: DollarY. */
  QUIL_DOCUMENT_END_Y = 213,
  /** Prints a whole document and proves by the totals that it was booked: they
   *  must grow by the total of its closing, whose adjustment does not count. A
   *  step that cannot be sent fails the call, but not before the others have
   *  been sent. While the printer does not tell its totals they
   *  are asked for again, as long as the line may still answer: a connection
   *  that never opened or is known to be gone ends it. quil_close from another
   *  thread does, too.
   *  Direction: send. Record: WholeDocument. */
  QUIL_WHOLE_DOCUMENT = 214,
  /** Checks the totals once more against those that the last document must
   *  have led to. 0 proves that it was booked only if this process opened it
   *  with QUIL_COMPARE_TOTALS and sent its closing; -1 proves nothing. Always
   *  fails with QUIL_COMPARE_TOTALS, which forgets that document.
   *  Direction: read. Record: none. */
  QUIL_CHECK_TOTALS = 215,
  /** Sends "@z".
   *  Virtual printer: advance.
   *  Direction: send. Record: AtZ. */
  QUIL_AT_Z = 216,
  /** Prints a line of rate group "P" ("$l").
   *  Virtual printer: deposit.
   *  Direction: send. Record: DocumentLineP. */
  QUIL_DOCUMENT_LINE_P = 217,
  /** Sends "@e".
   *  Virtual printer: electronic document.
   *  Direction: send. Record: AtE. */
  QUIL_AT_E = 218,
  /** Opens a fiscal document as QUIL_DOCUMENT_HEADER does, but with 1 as the
   *  first parameter ("$h").
   *  Virtual printer: begin document.
   *  Direction: send. Record: DocumentHeader. */
  QUIL_DOCUMENT_HEADER_219 = 219,

  /** Opens a fiscal document with the buyer's data ("$h").
   *  Virtual printer: begin invoice.
   *  Direction: send. Record: BuyerHeader. */
  QUIL_BUYER_HEADER = 300,
  /** Prints a line of the document, as QUIL_DOCUMENT_LINE does.
   *  Virtual printer: line.
   *  Direction: send. Record: DocumentLine. */
  QUIL_BUYER_LINE = 301,
  /** Closes the document ("$e"). The driver then asks for the printer's state,
   *  and fails, as QUIL_DOCUMENT_END does.
   *  Virtual printer: close invoice.
   *  Direction: send. Record: BuyerEnd. */
  QUIL_BUYER_END = 302,
  /** Sends "@c".
   *  Virtual printer: information.
   *  Direction: send. Record: AtC. */
  QUIL_AT_C = 303,
  /** Prints a whole document with a buyer and proves by the totals that it was
   *  booked, as QUIL_WHOLE_DOCUMENT does.
   *  Direction: send. Record: WholeBuyerDocument. */
  QUIL_WHOLE_BUYER_DOCUMENT = 304,
  /** Closes the document with the command of QUIL_DOCUMENT_END ("$e").
   *  Virtual printer: close document.
   *  Direction: send. Record: DocumentEnd. */
  QUIL_BUYER_PLAIN_END = 306,
  /** Closes the document with the command of QUIL_DOCUMENT_END_X ("$x").
   *  Virtual printer: close document with totals.
   *  Direction: send. Record: DollarX. */
  QUIL_BUYER_END_X = 307,
  /** Opens a document as QUIL_BUYER_HEADER does ("$h").
   *  Virtual printer: begin invoice.
   *  Direction: send. Record: BuyerHeader. */
  QUIL_BUYER_HEADER_308 = 308,

  /** Opens the cash drawer ("1$d").
   *  Virtual printer: open drawer.
   *  Direction: send. Record: none. */
  QUIL_OPEN_DRAWER = 400,
  /** Sends a text to the customer display ("n$d"), without a checksum.
   *  Virtual printer: customer display.
   *  Virtual printer, mode: 3 goes back to the empty display first, any other
   *  up to 5 writes.
   *  Direction: send. Record: DisplayText. */
  QUIL_DISPLAY = 401,
  /** Sends "#e" with a parameter.
   *  Virtual printer: error reports.
   *  Direction: send. Record: HashE. */
  QUIL_HASH_E = 402,
  /** Reads the next packet, one with "#Z" too: what stands before and behind
   *  "#Z". Without "#Z" the text before it becomes empty, the other stays, and
   *  the command succeeds all the same.
   *  Virtual printer: error reports.
   *  Direction: read. Record: HashE. */
  QUIL_READ_HASH_Z = 403,
  /** Sends "!d" with a parameter and a converted text.
   *  Virtual printer: line of the display.
   *  Virtual printer, mode: line of the display, counted from 0.
   *  Direction: send. Record: DisplayText. */
  QUIL_EXCLAMATION_D = 404,

  /** Sends "#p".
   *  Virtual printer: log in.
   *  Direction: send. Record: HashP. */
  QUIL_HASH_P = 500,
  /** Sends "0#q".
   *  Virtual printer: log out.
   *  Direction: send. Record: HashP. */
  QUIL_HASH_Q = 501,
  /** Sends "1#p". The printer's "#P" answer is read by QUIL_READ_HASH_P.
   *  Virtual printer: cashier.
   *  Direction: send. Record: none. */
  QUIL_SEND_HASH_P_1 = 502,
  /** Reads a "#P" answer. The next packet must be it: unlike other reading
   *  commands, this one passes over no "#Z" packet.
   *  Virtual printer: cashier.
   *  Direction: read. Record: HashPAnswer. */
  QUIL_READ_HASH_P = 503,

  /** Begins a non-fiscal printout ("$w").
   *  Virtual printer: begin slip.
   *  Direction: send. Record: NonFiscalBegin. */
  QUIL_NONFISCAL_BEGIN = 600,
  /** Prints up to eight lines of it ("$w").
   *  Virtual printer: non-fiscal lines.
   *  Direction: send. Record: NonFiscalLine. */
  QUIL_NONFISCAL_LINE = 601,
  /** Ends it ("$w").
   *  Virtual printer: end slip.
   *  Direction: send. Record: NonFiscalEnd. */
  QUIL_NONFISCAL_END = 602,

  /** Sends "28;n$z" with a parameter.
   *  Virtual printer: end slip of a document.
   *  Direction: send. Record: SingleNumber. */
  QUIL_DOLLAR_Z_28 = 700,

  /** Texts in records are CP1250 from now on (as after quil_init).
   *  Direction: local. Record: none. */
  QUIL_TEXT_CP1250 = 800,
  /** Texts in records are UTF-8 from now on. A text that is not valid UTF-8 as
   *  a whole is still taken as CP1250: also one that its array cuts within a
   *  letter. What CP1250 lacks is sent as "?", and so are „ ” – — … ™ and all
   *  else that takes three bytes, except €.
   *  Direction: local. Record: none. */
  QUIL_TEXT_UTF8 = 801
};

#endif /* QUILON_CODES_H_ */
