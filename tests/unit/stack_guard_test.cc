// The stack protector's guard on Windows.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

extern "C" uint64_t __stack_chk_guard;

namespace {

// Writes `length` bytes into a text of 16, as a faulty function would.
[[gnu::noinline, gnu::stack_protect]] size_t RunOver(size_t length) {
  char text[16] = {};
  char* volatile out = text;
  std::memset(out, 'x', length);
  return std::strlen(text);
}

TEST(StackGuard, CannotBeKnownBeforehandAndStopsTexts) {
  // The value in the file, for the time before the guard is chosen.
  EXPECT_NE(__stack_chk_guard, 0x6B7C3D8E9FA15200);
  EXPECT_NE(__stack_chk_guard, 0U);
  EXPECT_EQ(__stack_chk_guard & 0xFF, 0U);
}

TEST(StackGuardDeathTest, EndsTheProgramWhenAnArrayIsRunOver) {
  EXPECT_EQ(RunOver(15), 15U);
  EXPECT_DEATH(RunOver(48), "");
}

}  // namespace
