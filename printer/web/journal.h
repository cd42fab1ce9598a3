// What the web page shows, kept for those who come later: the newest printouts,
// the newest traffic, the status.
#ifndef PRINTER_WEB_JOURNAL_H_
#define PRINTER_WEB_JOURNAL_H_

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "printer/watcher.h"

namespace quilon::printer {

// May be asked from any thread.
class Journal : public Watcher {
 public:
  static constexpr std::size_t kKeptPrintouts = 200;
  static constexpr std::size_t kKeptExchanges = 1000;
  // Of the paper that is not cut yet.
  static constexpr std::size_t kKeptLines = 1000;

  // A piece of news, of the kind "line", "printout", "exchange", "status" or
  // "torn".
  struct News {
    std::uint64_t id = 0;  // grows, beginning with 1
    std::string kind;
    std::string json;  // without line ends
  };

  // Called behind every piece of news, on the thread that brought it.
  void set_listener(std::function<void()> listener);

  // What is kept of the news behind the given one, oldest first.
  std::vector<News> since(std::uint64_t id) const;
  // Empty when it is not kept.
  std::optional<Printout> printout(std::int64_t number) const;
  // Forgets the printouts that are finished.
  void tear_off();

  void on_line(const std::string& line) override;
  void on_printout(const Printout& printout) override;
  void on_exchange(const Exchange& exchange) override;
  void on_status(const Status& status) override;

 private:
  // Calls the change with the next piece of news, whose kind and JSON are
  // given.
  template <class Change>
  void add(std::string kind, const nlohmann::json& json, Change change);

  mutable std::mutex mutex_;
  std::function<void()> listener_;
  std::uint64_t last_id_ = 0;
  std::deque<News> lines_;
  std::deque<News> exchanges_;
  std::deque<News> printouts_;
  std::deque<Printout> kept_;  // those of printouts_
  std::optional<News> status_;
  std::optional<News> torn_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WEB_JOURNAL_H_
