#include "printer/commands/note.h"

#include <string>

#include "printer/protocol/mazovia.h"

namespace quilon::printer {

Note NoteOf(const Request& request) {
  std::string kinds(request.shape);
  std::erase(kinds, '?');
  Note note{std::string(request.title), {}};
  for (size_t i = 0; i < request.values.size(); ++i) {
    if (kinds[i] == 'a') {
      note.fields.emplace_back(Note::Amount{request.Number(i)});
    } else if (!request.values[i].empty()) {
      note.fields.emplace_back(MazoviaToUtf8(request.values[i]));
    }
  }
  return note;
}

}  // namespace quilon::printer
