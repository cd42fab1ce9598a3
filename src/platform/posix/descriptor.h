// Descriptors of the driver's own.
#ifndef QUILON_PLATFORM_POSIX_DESCRIPTOR_H_
#define QUILON_PLATFORM_POSIX_DESCRIPTOR_H_

namespace quilon {

// Moves a descriptor that was just opened away from 0, 1 and 2: in a program
// that closed these, whatever is printed would reach the printer. Returns the
// descriptor to be used, or less than 0 when there was none or the system has
// no other one.
int AwayFromStandard(int descriptor);

}  // namespace quilon

#endif  // QUILON_PLATFORM_POSIX_DESCRIPTOR_H_
