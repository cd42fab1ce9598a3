// What the desk costs beyond the driver's own calls, as JSON: seconds a receipt
// through either, bytes of journal a receipt, and seconds to open a journal of
// 100 000 entries. The printer is the virtual one, in this process; the journal
// lies in the working directory.
#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/comparison.h"
#include "bench/one_processor.h"
#include "printer/virtual_printer.h"
#include "quilon/desk.h"
#include "quilon/quilon.h"

namespace {

using Clock = std::chrono::steady_clock;
using quilon::bench::Median;

constexpr int kReceipts = 400;
constexpr int kEntries = 100'000;
constexpr char kJournal[] = "bench.journal";

void Check(bool good, const char* what) {
  if (!good) {
    throw std::runtime_error(what);
  }
}

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

template <size_t kSize, size_t kLength>
void Put(const char (&text)[kLength], char (&field)[kSize]) {
  static_assert(kLength <= kSize);
  std::memcpy(field, text, kLength);
}

// A receipt of one line with a payment, as the driver's functions print it.
void PrintBare() {
  constexpr uint32_t kChecked = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;
  DocumentHeader header = {};
  DocumentLine line = {};
  Payment payment = {.amount = 1298};
  DocumentEnd end = {.paid = 1298, .total = 1298};
  Put("Chleb", line.name);
  Put("C", line.rate_group);
  line.quantity = 200'000'000;
  line.price = 649;
  line.value = 1298;
  const auto run = [](int32_t code, void* record, uint32_t flags) {
    Check(quil_ioctrl(code, record, nullptr, flags) == 0, "refused");
  };
  run(QUIL_DOCUMENT_HEADER, &header, kChecked | QUIL_COMPARE_TOTALS);
  run(QUIL_DOCUMENT_LINE, &line, kChecked);
  run(QUIL_PAYMENT_6, &payment, kChecked);
  run(QUIL_DOCUMENT_END, &end, kChecked);
}

double BareSeconds(uint16_t port) {
  quil_init(0);
  Check(quil_open_tcpip("127.0.0.1", port) == 1, "no connection");
  std::vector<double> seconds;
  for (int i = 0; i < kReceipts; ++i) {
    const Clock::time_point start = Clock::now();
    PrintBare();
    seconds.push_back(SecondsSince(start));
  }
  quil_close();
  return Median(seconds);
}

QuilDesk* Open(uint16_t port) {
  const std::string settings =
      R"({"printer": {"tcp": {"address": "127.0.0.1", "port": )" +
      std::to_string(port) + R"(}}, "journal": ")" + kJournal + R"("})";
  QuilDesk* desk = quil_desk_open(settings.c_str(), nullptr);
  Check(desk != nullptr, "no desk");
  return desk;
}

double DeskSeconds(uint16_t port) {
  QuilDesk* desk = Open(port);
  std::vector<double> seconds;
  for (int i = 0; i < kReceipts; ++i) {
    const std::string document =
        R"({"id": ")" + std::to_string(i) +
        R"(", "kind": "receipt", "lines": [{"name": "Chleb", "quantity": "2",)"
        R"( "price": "6.49", "rate": "C"}], "payments": [{"form": "cash",)"
        R"( "amount": "12.98"}]})";
    const Clock::time_point start = Clock::now();
    char* verdict = quil_desk_print(desk, document.c_str());
    seconds.push_back(SecondsSince(start));
    Check(verdict != nullptr &&
              std::strstr(verdict, R"("verdict":"booked")") != nullptr,
          "not booked");
    quil_desk_free(verdict);
  }
  quil_desk_close(desk);
  return Median(seconds);
}

// Entries that all say the same, but for their ids.
void FillJournal() {
  sqlite3* database = nullptr;
  const std::string sql =
      "WITH RECURSIVE i (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM i"
      " WHERE n < " +
      std::to_string(kEntries) +
      ") INSERT INTO documents (id, document, state, before, verdict, changed)"
      " SELECT 'x' || n, document, state, before, verdict, changed FROM i,"
      " (SELECT * FROM documents LIMIT 1)";
  Check(sqlite3_open(kJournal, &database) == SQLITE_OK &&
            sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) ==
                SQLITE_OK,
        "the journal cannot be filled");
  sqlite3_close(database);
}

void RemoveJournal() {
  std::filesystem::remove(kJournal);
  std::filesystem::remove(std::string(kJournal) + "-wal");
}

}  // namespace

int main() {
  try {
    const quilon::bench::OneProcessor processor;
    const quilon::printer::VirtualPrinter printer;
    const uint16_t port = printer.tcp_port();
    RemoveJournal();
    const double bare = BareSeconds(port);
    const double desk = DeskSeconds(port);
    const auto size = static_cast<double>(std::filesystem::file_size(kJournal));
    FillJournal();
    const Clock::time_point start = Clock::now();
    QuilDesk* filled = Open(port);
    const double opening = SecondsSince(start);
    quil_desk_close(filled);
    RemoveJournal();
    std::printf(
        "{\"desk\": %.9f, \"bare\": %.9f, \"journal_bytes\": %.0f,"
        " \"opening\": %.6f}\n",
        desk, bare, size / kReceipts, opening);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "desk_cost: %s\n", error.what());
    return 1;
  }
}
