// The driver's name and version, as its log and its version record give them.
#ifndef QUILON_TEXT_DRIVER_NAME_H_
#define QUILON_TEXT_DRIVER_NAME_H_

#include <cstdint>

namespace quilon {

inline constexpr char kDriverName[] = "QUILON DLL";
inline constexpr char kDriverText[] = "QUILON DLL 1.450";
inline constexpr int32_t kDriverVersion = (1 << 16) | 450;

}  // namespace quilon

#endif  // QUILON_TEXT_DRIVER_NAME_H_
