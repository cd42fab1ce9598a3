// What quil_desk_open is told.
#ifndef QUILON_DESK_PROFILE_SETTINGS_H_
#define QUILON_DESK_PROFILE_SETTINGS_H_

#include <chrono>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>

#include "desk/profile/profile.h"
#include "quilon/records/connection.h"

namespace quilon::desk {

// How long the desk waits; the caller sets every wait.
struct Limits {
  // Silence after which the printer does not answer.
  std::chrono::milliseconds reply{5000};
  // A closing that was sent is certainly over after it.
  std::chrono::milliseconds closing{10'000};
  // A whole call, whatever happens.
  std::chrono::milliseconds call{120'000};
  // How often a document is tried that was certainly not booked.
  int64_t attempts = 2;
};

struct Settings {
  std::variant<TcpParams, SerialParams> printer;
  std::string journal;  // a file
  Profile profile;
  Limits limits;
  std::string log;  // a folder for the driver's log; empty: none
};

// Throws Invalid with the path of what is wrong.
Settings ReadSettings(const nlohmann::json& value);

}  // namespace quilon::desk

#endif  // QUILON_DESK_PROFILE_SETTINGS_H_
