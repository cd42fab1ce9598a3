/**
 * The records that an application passes to the driver.
 *
 * All of them are plain structures of fixed-width integers and char arrays in
 * natural alignment; nothing in them is a pointer. Fields named `reserved…`
 * only pad and are neither read nor written unless their comment says so. The
 * driver reads and writes a record only during the call it is passed to.
 *
 * A text ends at its NUL or, without one, with its array. What the driver
 * copies out is cut to the array and always NUL-terminated.
 *
 * A field whose meaning only the printer's own manual tells has a mnemonic name
 * or that of its place; what the virtual printer takes it for then stands in
 * its comment as codes.h explains.
 */
#ifndef QUILON_RECORDS_H_
#define QUILON_RECORDS_H_

#include "quilon/records/buyer_documents.h"
#include "quilon/records/config.h"
#include "quilon/records/connection.h"
#include "quilon/records/device.h"
#include "quilon/records/display.h"
#include "quilon/records/documents.h"
#include "quilon/records/epar.h"
#include "quilon/records/files.h"
#include "quilon/records/info_blocks.h"
#include "quilon/records/long_frames.h"
#include "quilon/records/nonfiscal.h"
#include "quilon/records/plain.h"
#include "quilon/records/raw.h"
#include "quilon/records/reports.h"
#include "quilon/records/second_series.h"
#include "quilon/records/settlements.h"
#include "quilon/records/status.h"
#include "quilon/records/whole_documents.h"

#endif /* QUILON_RECORDS_H_ */
