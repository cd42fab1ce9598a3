// What the web page shows, kept for those who come later: the newest printouts,
// the newest traffic, the status.
#ifndef PRINTER_WEB_JOURNAL_H_
#define PRINTER_WEB_JOURNAL_H_

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "printer/watch/watcher.h"

namespace quilon::printer {

// May be asked from any thread.
class Journal : public Watcher {
 public:
  static constexpr size_t kKeptPrintouts = 200;
  static constexpr size_t kKeptExchanges = 500;
  // Of the paper that is not cut yet.
  static constexpr size_t kKeptLines = 1000;

  // A piece of news, of the kind "line", "printout", "exchange", "status" or
  // "torn".
  struct News {
    uint64_t id = 0;  // grows, beginning with 1
    std::string kind;
    std::string json;  // without line ends
  };

  // Called behind every piece of news, on the thread that brought it.
  void set_listener(std::function<void()> listener);

  // What is kept of the news behind the given one, oldest first.
  std::vector<News> Since(uint64_t id) const;
  // Empty when it is not kept.
  std::optional<Printout> FindPrintout(int64_t number) const;
  // Forgets the printouts that are finished.
  void TearOff();

  void OnLine(const PaperLine& line) override;
  void OnPrintout(const Printout& printout) override;
  void OnExchange(const Exchange& exchange) override;
  void OnStatus(const Status& status) override;

 private:
  // Calls the change with the next piece of news, whose kind and JSON are
  // given.
  template <typename Change>
  void Add(std::string kind, std::string json, Change change);

  mutable std::mutex mutex_;
  std::function<void()> listener_;
  uint64_t last_id_ = 0;
  std::deque<News> lines_;
  std::deque<News> exchanges_;
  std::deque<News> printouts_;
  std::deque<Printout> kept_;  // those of printouts_
  std::optional<News> status_;
  std::optional<News> torn_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WEB_JOURNAL_H_
