#include "src/platform/module.h"

#include <windows.h>

namespace quilon {

void PinModule() {
  static const char kInside = 0;
  HMODULE module = nullptr;
  GetModuleHandleExA(
      GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
      &kInside, &module);
}

}  // namespace quilon
