// Who the printer says it is.
#ifndef PRINTER_FISCAL_IDENTITY_H_
#define PRINTER_FISCAL_IDENTITY_H_

#include <array>
#include <cstdint>
#include <string_view>

namespace quilon::printer {

inline constexpr std::string_view kDeviceName = "Quilon Virtual";
inline constexpr std::string_view kFirmwareVersion = "1.00";
inline constexpr std::string_view kUniqueNumber = "QVP0000000001";
inline constexpr std::string_view kTaxNumber = "000-000-00-00";
// The owner, until "$z" names another one.
inline constexpr std::string_view kOwner = "Sklep wzorcowy";
inline constexpr std::array<std::string_view, 2> kAddress = {"ul. Prosta 1",
                                                             "00-001 Warszawa"};
// Stands where a real printer has its fiscal logo.
inline constexpr std::string_view kVirtualLogo = "WYDRUK WIRTUALNY";
inline constexpr std::string_view kSerialNumber = "0000001";

// Fiscal memory in daily reports and changes of the rates; protected memory in
// KiB.
inline constexpr int32_t kFiscalMemorySize = 30000;
inline constexpr int kMaxRateChanges = 30;
inline constexpr int32_t kProtectedMemorySize = 8 << 20;

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_IDENTITY_H_
