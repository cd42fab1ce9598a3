// What the desk does, written down before it is done: one row a document, on
// disk before the function returns. A program that is killed at any moment, or
// loses its power, finds in it what it was about.
#ifndef QUILON_DESK_JOURNAL_JOURNAL_H_
#define QUILON_DESK_JOURNAL_JOURNAL_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace quilon::desk {

// The journal cannot be used, and why.
struct JournalError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class State {
  kBegun,        // printing may have begun; the closing was not sent
  kClosing,      // the closing may have been sent
  kNeedsPerson,  // nobody can tell without looking at the paper
  kBooked,
  kNotBooked,
};

struct Entry {
  std::string id;
  std::string document;  // JSON, as it was given
  State state = State::kBegun;
  std::string before;   // JSON: the printer's numbers before the document
  std::string verdict;  // JSON; empty while there is none
};

class Journal {
 public:
  // Opens the file or makes it. The journal is this program's until it is
  // destroyed. Throws JournalError, as all functions here do: another program
  // has it, it is no journal, a newer one, damaged, or cannot be written.
  explicit Journal(const std::string& file);
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  std::optional<Entry> Find(std::string_view id);
  // Those in the states kBegun, kClosing and kNeedsPerson, the oldest first.
  std::vector<Entry> Pending();
  int64_t CountOfEntries();

  // A document is about to be printed, for the first time or once more.
  void Begin(const Entry& entry);
  void SetState(std::string_view id, State state);
  void Decide(std::string_view id, State state, std::string_view verdict);

 private:
  class Statement;

  void Execute(const char* sql);
  int64_t Number(const char* sql);
  void Prepare();
  void MakeTables();
  [[noreturn]] void Fail(const std::string& what) const;

  std::string file_;
  sqlite3* database_ = nullptr;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_JOURNAL_JOURNAL_H_
