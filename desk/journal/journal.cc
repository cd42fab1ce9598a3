#include "desk/journal/journal.h"

#include <sqlite3.h>

#include <array>

namespace quilon::desk {
namespace {

// "QuiJ": says what the file is.
constexpr int64_t kApplication = 0x5175694A;
constexpr int64_t kVersion = 1;

constexpr std::array<std::string_view, 5> kStates = {
    "begun", "closing", "needs_person", "booked", "not_booked"};

std::string_view NameOf(State state) {
  return kStates.at(static_cast<size_t>(state));
}

State StateOf(std::string_view name) {
  for (size_t i = 0; i < kStates.size(); ++i) {
    if (kStates.at(i) == name) {
      return static_cast<State>(i);
    }
  }
  throw JournalError("the journal holds an unknown state");
}

}  // namespace

// A statement that is run once.
class Journal::Statement {
 public:
  Statement(Journal& journal, const char* sql) : journal_(journal) {
    if (sqlite3_prepare_v2(journal.database_, sql, -1, &statement_, nullptr) !=
        SQLITE_OK) {
      journal.Fail("the journal cannot be read");
    }
  }
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Binds the next "?". The text has to outlive the statement.
  Statement& With(std::string_view text) {
    if (sqlite3_bind_text64(statement_, ++bound_, text.data(), text.size(),
                            SQLITE_STATIC, SQLITE_UTF8) != SQLITE_OK) {
      journal_.Fail("the journal cannot be written");
    }
    return *this;
  }

  // Goes to the next row; false: there is none, all is done.
  bool Step() {
    const int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
      journal_.Fail("the journal cannot be used");
    }
    return result == SQLITE_ROW;
  }

  int64_t Integer(int column) {
    return sqlite3_column_int64(statement_, column);
  }
  std::string Text(int column) {
    const void* bytes = sqlite3_column_blob(statement_, column);
    const auto size =
        static_cast<size_t>(sqlite3_column_bytes(statement_, column));
    return bytes == nullptr
               ? std::string()
               : std::string(static_cast<const char*>(bytes), size);
  }
  Entry Row() { return {Text(0), Text(1), StateOf(Text(2)), Text(3), Text(4)}; }

 private:
  Journal& journal_;
  sqlite3_stmt* statement_ = nullptr;
  int bound_ = 0;
};

Journal::Journal(const std::string& file) : file_(file) {
  const int result =
      sqlite3_open_v2(file.c_str(), &database_,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  try {
    if (result != SQLITE_OK) {
      Fail("the journal cannot be opened");
    }
    Prepare();
  } catch (...) {
    sqlite3_close(database_);
    throw;
  }
}

Journal::~Journal() { sqlite3_close(database_); }

void Journal::Prepare() {
  sqlite3_extended_result_codes(database_, 1);
  // The lock is kept, so that no second program can write; and every commit is
  // on the disk before it returns.
  Execute("PRAGMA locking_mode = EXCLUSIVE");
  Execute("PRAGMA journal_mode = WAL");
  Execute("PRAGMA synchronous = FULL");
  Execute("BEGIN IMMEDIATE");
  const int64_t application = Number("PRAGMA application_id");
  const int64_t version = Number("PRAGMA user_version");
  if (sqlite3_db_readonly(database_, "main") == 1) {
    throw JournalError("the journal cannot be written: " + file_);
  }
  if (application == 0 && Number("SELECT count(*) FROM sqlite_master") == 0) {
    MakeTables();
  } else if (application != kApplication) {
    throw JournalError("no journal of the desk's: " + file_);
  } else if (version != kVersion) {
    throw JournalError("a journal of another version, " +
                       std::to_string(version) + ": " + file_);
  }
  Execute("COMMIT");
}

void Journal::MakeTables() {
  Execute(
      "CREATE TABLE documents ("
      " number INTEGER PRIMARY KEY,"
      " id TEXT NOT NULL UNIQUE,"
      " document TEXT NOT NULL,"
      " state TEXT NOT NULL,"
      " before TEXT NOT NULL,"
      " verdict TEXT NOT NULL,"
      " changed TEXT NOT NULL) STRICT");
  Execute(
      "CREATE INDEX pending ON documents (number)"
      " WHERE state IN ('begun', 'closing', 'needs_person')");
  Execute(("PRAGMA application_id = " + std::to_string(kApplication)).c_str());
  Execute(("PRAGMA user_version = " + std::to_string(kVersion)).c_str());
}

void Journal::Execute(const char* sql) {
  Statement statement(*this, sql);
  while (statement.Step()) {
  }
}

int64_t Journal::Number(const char* sql) {
  Statement statement(*this, sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

void Journal::Fail(const std::string& what) const {
  const int code =
      database_ == nullptr ? SQLITE_NOMEM : sqlite3_errcode(database_) & 0xFF;
  if (code == SQLITE_BUSY || code == SQLITE_LOCKED) {
    throw JournalError("another program has the journal: " + file_);
  }
  if (code == SQLITE_NOTADB) {
    throw JournalError("no journal of the desk's: " + file_);
  }
  throw JournalError(
      what + ": " + file_ + ": " +
      (database_ == nullptr ? "no memory" : sqlite3_errmsg(database_)));
}

std::optional<Entry> Journal::Find(std::string_view id) {
  Statement statement(*this,
                      "SELECT id, document, state, before, verdict"
                      " FROM documents WHERE id = ?");
  statement.With(id);
  return statement.Step() ? std::optional(statement.Row()) : std::nullopt;
}

std::vector<Entry> Journal::Pending() {
  Statement statement(
      *this,
      "SELECT id, document, state, before, verdict FROM documents"
      " WHERE state IN ('begun', 'closing', 'needs_person') ORDER BY number");
  std::vector<Entry> entries;
  while (statement.Step()) {
    entries.push_back(statement.Row());
  }
  return entries;
}

int64_t Journal::CountOfEntries() {
  return Number("SELECT count(*) FROM documents");
}

void Journal::Begin(const Entry& entry) {
  Statement statement(
      *this,
      "INSERT INTO documents (id, document, state, before, verdict, changed)"
      " VALUES (?, ?, ?, ?, '', strftime('%Y-%m-%dT%H:%M:%fZ', 'now'))"
      " ON CONFLICT (id) DO UPDATE SET state = excluded.state,"
      " before = excluded.before, changed = excluded.changed");
  statement.With(entry.id).With(entry.document).With(NameOf(entry.state));
  statement.With(entry.before).Step();
}

void Journal::SetState(std::string_view id, State state) {
  Statement statement(*this,
                      "UPDATE documents SET state = ?1,"
                      " changed = strftime('%Y-%m-%dT%H:%M:%fZ', 'now')"
                      " WHERE id = ?2");
  statement.With(NameOf(state)).With(id).Step();
}

void Journal::Decide(std::string_view id, State state,
                     std::string_view verdict) {
  Statement statement(*this,
                      "UPDATE documents SET state = ?1, verdict = ?2,"
                      " changed = strftime('%Y-%m-%dT%H:%M:%fZ', 'now')"
                      " WHERE id = ?3");
  statement.With(NameOf(state)).With(verdict).With(id).Step();
}

}  // namespace quilon::desk
