/**
 * Records of opening a connection and of the versions at its two ends.
 */
#ifndef QUILON_RECORDS_CONNECTION_H_
#define QUILON_RECORDS_CONNECTION_H_

#include "quilon/records/layout.h"

/** How to open a serial port: the argument of quil_open_serial_ex. */
typedef struct SerialParams {
  /** Name without prefix, for example "COM3"; on Linux below /dev, or a path
   *  that begins with "/". */
  char port_name[12];
  /** Bits per second, passed to the port unchanged. */
  uint32_t baud_rate;
  /** Data bits, 8 for printers; the low byte counts. */
  int32_t data_bits;
  /** 0: one, 1: one and a half, 2: two; the low byte counts. */
  int32_t stop_bits;
  /** 0: none, 1: odd, 2: even, 3: mark, 4: space; the low byte counts. */
  int32_t parity;
  /** Not read; quil_open_serial stores 100. */
  int32_t reserved1;
  /** Milliseconds that a write may take, on top of 10 ms a byte. */
  uint32_t write_timeout;
  /** QUIL_FLOW_… flags; the hardware handshake wins when both are set. */
  uint32_t flow_control;
  /** 1: reader and writer threads serve the port; any other value: the caller's
   *  thread does. */
  uint32_t threaded;
  /** Milliseconds of silence after which waiting for an answer ends. 2^31 and
   *  more count as negative: a wait then ends at once. */
  uint32_t reply_timeout;
} SerialParams;
QUILON_SIZE(SerialParams, 48);
QUILON_OFFSET(SerialParams, baud_rate, 12);
QUILON_OFFSET(SerialParams, data_bits, 16);
QUILON_OFFSET(SerialParams, stop_bits, 20);
QUILON_OFFSET(SerialParams, parity, 24);
QUILON_OFFSET(SerialParams, write_timeout, 32);
QUILON_OFFSET(SerialParams, flow_control, 36);
QUILON_OFFSET(SerialParams, threaded, 40);
QUILON_OFFSET(SerialParams, reply_timeout, 44);

/** Flow control of a serial port; neither flag: none. */
enum QuilFlowControl {
  /** CTS, DSR, DTR and RTS handshake. */
  QUIL_FLOW_HARDWARE = 1,
  /** Xon (0x11) and Xoff (0x13) in both directions. */
  QUIL_FLOW_XON_XOFF = 2
};

/** Where to connect: the argument of quil_open_tcpip_ex. */
typedef struct TcpParams {
  /** Dotted IPv4 address, for example "10.0.0.7". A host name is not looked
   *  up. */
  char address[128];
  /** TCP port; the low 16 bits count. */
  uint32_t port;
  /** Milliseconds of silence after which waiting for an answer ends. 2^31 and
   *  more count as negative: a wait then ends at once. */
  uint32_t reply_timeout;
} TcpParams;
QUILON_SIZE(TcpParams, 136);
QUILON_OFFSET(TcpParams, port, 128);
QUILON_OFFSET(TcpParams, reply_timeout, 132);

/** The driver's own name and version, filled by quil_drv_version. */
typedef struct DriverVersion {
  /** "QUILON DLL". */
  char name[100];
  /** Major version in the upper 16 bits, minor in the lower: 65986 is 1.450. */
  int32_t version;
  /** Name and version as one text, "QUILON DLL 1.450". */
  char text[100];
} DriverVersion;
QUILON_SIZE(DriverVersion, 204);
QUILON_OFFSET(DriverVersion, version, 100);
QUILON_OFFSET(DriverVersion, text, 104);

/** The printer's name and firmware version, filled by quil_prn_version. */
typedef struct PrinterVersion {
  /** Device name as the printer reports it. */
  char name[100];
  /** Firmware version as the printer reports it. */
  char version[10];
} PrinterVersion;
QUILON_SIZE(PrinterVersion, 110);
QUILON_OFFSET(PrinterVersion, version, 100);

#endif /* QUILON_RECORDS_CONNECTION_H_ */
