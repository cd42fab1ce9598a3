#include "printer/program/console.h"

namespace quilon::printer {

void UseUtf8Console() {}

}  // namespace quilon::printer
