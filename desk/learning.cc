#include "desk/learning.h"

namespace quilon::desk {

void Learning::Begin() {
  seen_.clear();
  on_ = true;
}

void Learning::See(Kind kind, const Numbers& before, const Numbers& after) {
  const auto grew_by_one = [&](const std::string& name) {
    const auto old_number = before.find(name);
    const auto new_number = after.find(name);
    return old_number != before.end() && new_number != after.end() &&
           new_number->second - old_number->second == 1;
  };
  Seen& seen = seen_[kind];
  if (seen.documents == 0) {
    for (const auto& [name, number] : before) {
      seen.fields.insert(name);
    }
  }
  std::erase_if(seen.fields,
                [&](const std::string& name) { return !grew_by_one(name); });
  ++seen.documents;
}

nlohmann::json Learning::ToJson() const {
  nlohmann::json kinds = nlohmann::json::object();
  for (const auto& [kind, seen] : seen_) {
    kinds[std::string(NameOf(kind))] = {{"documents", seen.documents},
                                        {"fields", seen.fields}};
  }
  return {{"learning", on_}, {"counters", kinds}};
}

}  // namespace quilon::desk
