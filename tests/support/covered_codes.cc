#include "tests/support/covered_codes.h"

#include <set>

namespace quilon::testing {
namespace {

std::set<int32_t> succeeded;
std::set<int32_t> tested;

}  // namespace

void NoteSuccess(int32_t code) { succeeded.insert(code); }

void NoteTested(int32_t code) { tested.insert(code); }

bool IsCovered(int32_t code, bool sends) {
  return tested.contains(code) || (!sends && succeeded.contains(code));
}

}  // namespace quilon::testing
