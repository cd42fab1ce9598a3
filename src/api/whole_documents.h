// Documents that one record describes whole: their commands one after another,
// and the proof that the printer booked them.
#ifndef QUILON_API_WHOLE_DOCUMENTS_H_
#define QUILON_API_WHOLE_DOCUMENTS_H_

#include <cstdint>

#include "quilon/records.h"
#include "src/api/driver.h"

namespace quilon {

// Return false when the record cannot be sent as it is, no connection is
// open, a step could not be sent, or the totals did not grow as they had to.
// They ask for the totals until the printer tells them.
bool PrintWholeDocument(Driver* driver, const WholeDocument& document);
bool PrintWholeBuyerDocument(Driver* driver,
                             const WholeBuyerDocument& document);

}  // namespace quilon

#endif  // QUILON_API_WHOLE_DOCUMENTS_H_
