#include "src/platform/posix/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace quilon {

int AwayFromStandard(int descriptor) {
  constexpr int kFirstOwn = 3;
  if (descriptor < 0 || descriptor >= kFirstOwn) {
    return descriptor;
  }
  const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstOwn);
  const int error = errno;
  close(descriptor);
  errno = error;
  return moved;
}

}  // namespace quilon
