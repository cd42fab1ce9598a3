// Which commands the tests of this program have run, so that one without a test
// is noticed when all have run.
//
// A sending command counts when a test took what it sent from the printer's
// side: FrameOf and ByteOf of DriverTest note it. Any other counts when it
// succeeded in a test: Ioctl notes that. The test of a command that cannot
// count in this way says itself, with NoteTested, that it has seen its work.
#ifndef QUILON_TESTS_SUPPORT_COVERED_CODES_H_
#define QUILON_TESTS_SUPPORT_COVERED_CODES_H_

#include <cstdint>

namespace quilon::testing {

// `code` succeeded.
void NoteSuccess(int32_t code);

// A test has in hand what `code` sent or did.
void NoteTested(int32_t code);

// Whether a test of `code` has run; `sends` tells what counts.
bool IsCovered(int32_t code, bool sends);

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_COVERED_CODES_H_
