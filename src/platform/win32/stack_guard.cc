// What the compiler's stack protector needs when the driver runs. The
// compiler's own library would ask the system's cryptography for the guard
// value, and so load further libraries while the driver itself is being loaded:
// there a program can hang for ever.
#include <windows.h>

#include <cstdint>

namespace {

// Reasons that the system writes down when it ends the program.
enum FastFail : uint32_t { kStackCookie = 2, kInvalidArgument = 5 };

// Ends the program at once: nothing that uses the stack can be trusted.
[[noreturn]] void Fail(FastFail reason) {
  asm volatile("int $0x29" : : "c"(reason));
  __builtin_unreachable();
}

uint64_t Mix(uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
  return value ^ (value >> 31);
}

}  // namespace

extern "C" {

uint64_t __stack_chk_guard = 0x6B7C3D8E9FA15200;

[[noreturn]] void __stack_chk_fail() { Fail(kStackCookie); }

// Called when a copy would leave its destination.
[[noreturn]] void __chk_fail() { Fail(kInvalidArgument); }

}  // extern "C"

// What nobody can know beforehand about this moment and this place in memory.
[[gnu::constructor, gnu::no_stack_protector]] static void ChooseGuard() {
  FILETIME now = {};
  GetSystemTimeAsFileTime(&now);
  LARGE_INTEGER ticks = {};
  QueryPerformanceCounter(&ticks);
  uint64_t guard =
      Mix((uint64_t{now.dwHighDateTime} << 32) | now.dwLowDateTime);
  guard = Mix(guard ^ static_cast<uint64_t>(ticks.QuadPart));
  guard = Mix(guard ^ (uint64_t{GetCurrentProcessId()} << 32) ^
              GetCurrentThreadId());
  guard = Mix(guard ^ reinterpret_cast<uintptr_t>(&now));
  guard = Mix(guard ^ reinterpret_cast<uintptr_t>(&__stack_chk_guard));
  // The first byte is zero, so that no text that runs over can forge it.
  __stack_chk_guard = guard & ~uint64_t{0xFF};
}
