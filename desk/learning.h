// Which of the printer's numbers count documents, found out by watching them.
#ifndef QUILON_DESK_LEARNING_H_
#define QUILON_DESK_LEARNING_H_

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "desk/document/document.h"
#include "desk/printing/answers.h"

namespace quilon::desk {

class Learning {
 public:
  void Begin();
  void End() { on_ = false; }
  bool on() const { return on_; }

  // A document was booked between the two.
  void See(Kind kind, const Numbers& before, const Numbers& after);

  // How many were seen of each kind, and the fields that grew by one with each
  // of them.
  nlohmann::json ToJson() const;

 private:
  struct Seen {
    int64_t documents = 0;
    std::set<std::string> fields;  // that have grown by one each time
  };

  bool on_ = false;
  std::map<Kind, Seen> seen_;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_LEARNING_H_
