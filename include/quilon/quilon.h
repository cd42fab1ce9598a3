/**
 * Quilon: driver for Polish online fiscal printers.
 *
 * The driver drives one printer. quil_init makes its one device object, an
 * open function attaches a connection to it, quil_ioctrl runs the printer's
 * commands over it, and quil_close drops the connection:
 *
 *     quil_init(0);
 *     if (quil_open_tcpip("10.0.0.7", 6001) == 1) {
 *       DocumentHeader header = {0};
 *       if (quil_ioctrl(QUIL_DOCUMENT_HEADER, &header, NULL,
 *                       QUIL_CHECK_STATUS | QUIL_QUERY_ERROR) != 0) {
 *         LastErrorRecord error;
 *         quil_get_last_error(&error);   // what the printer says
 *       }
 *       quil_close();
 *     }
 *
 * Results. The functions return 1 for success and 0 for failure, except
 * quil_ioctrl (0 and -1), quil_drv_version and quil_auto_test (always 0) and
 * quil_prn_version (always 1). A null pointer where one is needed, and any
 * function but quil_init, quil_get_last_error and quil_drv_version before
 * quil_init, give the failure value and do nothing else. No exception leaves
 * the driver, and nothing is ever shown to the user.
 *
 * Threads. One call at a time. While a call is in progress, another thread may
 * use the log functions, quil_get_last_error and quil_drv_version; any other
 * function gives it its failure value at once and sends nothing. quil_close is
 * the exception: it ends the call in progress within 100 ms, which then gives
 * its failure value, and closes. That is the way out of every wait, however
 * long. In a forked child only quil_close and quil_init make sense: the
 * connection stays its parent's.
 *
 * What the driver opens is not inherited by programs that the process starts,
 * and never takes the place of a standard stream that was closed.
 *
 * Strings that come back are CP1250; strings that go in are CP1250 too, and in
 * records optionally UTF-8 (QUIL_TEXT_UTF8).
 *
 * Time. Waiting for an answer ends after as much silence as the connection's
 * reply time-out says (5 s unless given). That bounds the silence, not the
 * call: a printer that sends a byte now and then, or packets with "#Z" without
 * end, is listened to without end. QUIL_CHECK_STATUS waits up to six times,
 * once for DLE and five times for ENQ; QUIL_QUERY_ERROR twice; QUIL_SEND_FILE
 * once a block; a whole document until a printer that is connected tells its
 * totals. Sending takes at most the write time-out of a serial port, or 10 s
 * over TCP. A TCP connection on which a frame could not be sent whole is
 * broken: nothing more goes out on it, and all that would send or read fails at
 * once until the next open.
 */
#ifndef QUILON_QUILON_H_
#define QUILON_QUILON_H_

#include "quilon/codes.h"
#include "quilon/records.h"

#if defined(_WIN32) && defined(QUILON_BUILD)
#define QUILON_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(QUILON_STATIC)
#define QUILON_API __declspec(dllimport)
#elif defined(__GNUC__)
#define QUILON_API __attribute__((visibility("default")))
#else
#define QUILON_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Flags of quil_ioctrl; other bits are ignored. */
enum QuilFlag {
  /** After the command: asks with DLE and ENQ whether the printer is online,
   *  has paper, is in no error and accepted the command; the call fails unless
   *  all of it holds. The last error is filled anew. The reason of a refusal is
   *  asked for only while ENQ bit 1 says that a document is open; otherwise the
   *  error number is 0. */
  QUIL_CHECK_STATUS = 1,
  /** After the command: unless ENQ says that it was accepted, asks for the
   *  printer's error number, puts it and its message into the last error, and
   *  returns it when there is a message. Alone it takes silence for success;
   *  the call then returns 0, or once more the number of an earlier error that
   *  is still the last one. Together with QUIL_CHECK_STATUS it tells the reason
   *  of every refusal, which neither does alone. */
  QUIL_QUERY_ERROR = 2,
  /** On the command that opens a document (codes 200, 219, 300, 308) and on no
   *  other: proves by the printer's totals that the document was booked. They
   *  are read before it, and its closing fails unless they have grown by what
   *  its record says. On any other code the flag forgets the document in
   *  progress. docs/totals-comparison.md tells what this proves. */
  QUIL_COMPARE_TOTALS = 4
};

/**
 * Makes the device object, with default settings: reply time-out 5000 ms, text
 * in CP1250, log off. An earlier device object is destroyed first, together
 * with its connection.
 *
 * @param argument Any value; the driver only keeps it.
 * @return 1; 0 only when memory is exhausted.
 */
QUILON_API int32_t quil_init(uint32_t argument);

/**
 * Closes and drops the connection. The device object and its settings stay. A
 * call that another thread has in progress ends first, with its failure value;
 * whether the printer obeyed what had gone out by then is unknown.
 *
 * A threaded serial port first sends what is queued: for 2 s at most, and not
 * when the line is held up.
 *
 * @return 1, also when there is no connection; 0 before quil_init.
 */
QUILON_API int32_t quil_close(void);

/**
 * Copies the last error out. It is not cleared. Works before quil_init too.
 *
 * @param record Where to copy it to; must not be null.
 * @return 1; 0 for a null pointer.
 */
QUILON_API int32_t quil_get_last_error(LastErrorRecord* record);

/**
 * Runs one command.
 *
 * @param code     A constant of QuilCode; its comment names the record.
 * @param data     The command's record, read and written only during the call;
 *                 ignored by commands without a record.
 * @param reserved Not used.
 * @param flags    QUIL_CHECK_STATUS, QUIL_QUERY_ERROR, QUIL_COMPARE_TOTALS, or
 *                 several of them.
 * @return 0 when the command succeeded and the checks that `flags` ask for
 *         passed. Of a command that sends and without flags that only says that
 *         its frame was handed over: what the printer made of it is unknown,
 *         and a TCP connection whose other end is gone takes frames for a
 *         while, too. -1 when it failed, the code is unknown, `data` is null
 *         and needed, no connection is open, or an answer of the printer could
 *         not be understood. With QUIL_QUERY_ERROR the printer's error number
 *         when it reported one that has a message.
 */
QUILON_API int32_t quil_ioctrl(int32_t code, void* data, void* reserved,
                               uint32_t flags);

/**
 * Opens a serial port with 8 data bits, 1 stop bit, no parity, no flow
 * control, write time-out 10000 ms and reply time-out 5000 ms.
 *
 * The port becomes the device's connection also when it could not be opened;
 * commands then fail until the next open. A connection that was open before is
 * not closed and stays open until the process ends: call quil_close first.
 *
 * @param port_name Name of the port, for example "COM3"; at most 9 characters
 *                  count.
 * @param baud_rate Bits per second.
 * @param threaded  1: two threads of the driver serve the port; any other
 *                  value: the calling thread does.
 * @return 1; 0 when the port could not be opened (the last error then says
 *         "Port open ERROR" or, threaded, "Port Open ERROR") or refused its
 *         settings.
 */
QUILON_API int32_t quil_open_serial(const char* port_name, uint32_t baud_rate,
                                    uint32_t threaded);

/**
 * Opens a serial port with all its settings; otherwise as quil_open_serial.
 *
 * @param params The settings; must not be null.
 * @return As quil_open_serial.
 */
QUILON_API int32_t quil_open_serial_ex(const SerialParams* params);

/**
 * Connects to a printer over TCP with a reply time-out of 5000 ms.
 *
 * The connection becomes the device's also when it failed. Nothing goes out on
 * it then, but commands that only send report success all the same, except
 * those of fiscal documents and codes 38, 40 and 41. A connection that was open
 * before is not closed and stays open until the process ends: call quil_close
 * first. Connecting to an address that does not answer takes at most 10 s on
 * Linux; on Windows as long as the system tries, about 20 s.
 *
 * @param address Dotted IPv4 address; at most 127 characters count. A host name
 *                is not looked up and fails.
 * @param port    TCP port; the low 16 bits count.
 * @return 1 when connected; 0 when not. When not even a socket was to be had
 *         the last error says why.
 */
QUILON_API int32_t quil_open_tcpip(const char* address, uint32_t port);

/**
 * Connects to a printer over TCP with all settings; otherwise as
 * quil_open_tcpip.
 *
 * @param params The settings; must not be null.
 * @return As quil_open_tcpip.
 */
QUILON_API int32_t quil_open_tcpip_ex(const TcpParams* params);

/**
 * Switches the communication log on, for this connection and later ones. Each
 * connection writes a file of its own, named by the time of opening.
 *
 * Every entry is written and flushed before the call that caused it goes on, on
 * the caller's thread (a threaded port also writes from its own): a slow disk
 * makes slow calls.
 *
 * Switched on again after quil_disable_log, an open connection goes on in its
 * file, whatever the directory. When the file cannot be created, a line on
 * standard output says so and the entries are dropped until the log is switched
 * on again.
 *
 * @param directory Directory of the log files, at most 255 bytes, in the
 *                  process's own encoding; created when missing, except for its
 *                  first piece (the drive). Empty: "C:\Log", on Linux
 *                  "/var/log/quilon".
 * @return 1; 0 before quil_init, for a null pointer or a longer text.
 */
QUILON_API int32_t quil_enable_log(const char* directory);

/**
 * Switches the communication log off. The file of an open connection stays
 * open.
 *
 * @return 1; 0 before quil_init.
 */
QUILON_API int32_t quil_disable_log(void);

/**
 * Writes a line of the application into the communication log. Connections
 * opened later will have their log on, even if it never was switched on.
 *
 * @param text NUL-terminated text; what passes 3996 characters is cut.
 * @return 1 when the line reached the file; 0 when not: before quil_init, for a
 *         null pointer or an empty text, without a connection, or when its log
 *         is off or its file could not be written.
 */
QUILON_API int32_t quil_log_msg(const char* text);

/**
 * Tells the driver's own name and version. Works before quil_init too.
 *
 * @param version Where to put them; null: nothing is written.
 * @return 0, always.
 */
QUILON_API int32_t quil_drv_version(DriverVersion* version);

/**
 * Asks the printer for its name and firmware version. With a silent printer
 * this takes one reply time-out.
 *
 * @param version Where to put them; both texts are empty when the printer did
 *                not answer, without a connection, or before quil_init. Null:
 *                nothing is done.
 * @return 1, always.
 */
QUILON_API int32_t quil_prn_version(PrinterVersion* version);

/**
 * Shows the versions on the customer display for 4 s and prints a non-fiscal
 * slip of the printer's identity and memory. A step that fails does not stop
 * the others: the slip then says less. What the printer made of the steps is
 * not checked. Before quil_init nothing is done.
 *
 * With a silent printer this takes four reply time-outs and the 4 s. While a
 * serial port is held off by its flow control, each of the 16 commands can take
 * the write time-out, too.
 *
 * @return 0, always.
 */
QUILON_API int32_t quil_auto_test(void);

#ifdef __cplusplus
}
#endif

#endif /* QUILON_QUILON_H_ */
