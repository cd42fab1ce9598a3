#include "printer/web/journal.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "printer/watch/json.h"

namespace quilon::printer {
namespace {

template <typename Kept>
void Keep(std::deque<Kept>& kept, Kept entry, size_t most) {
  kept.push_back(std::move(entry));
  if (kept.size() > most) {
    kept.pop_front();
  }
}

// A frame may be 1 MiB long; nobody reads that on a page.
constexpr size_t kMostCharacters = 2000;

}  // namespace

void Journal::set_listener(std::function<void()> listener) {
  const std::scoped_lock lock(mutex_);
  listener_ = std::move(listener);
}

std::vector<Journal::News> Journal::Since(uint64_t id) const {
  std::vector<News> news;
  const auto take = [&](const auto& kept) {
    std::copy_if(kept.begin(), kept.end(), std::back_inserter(news),
                 [id](const News& entry) { return entry.id > id; });
  };
  {
    const std::scoped_lock lock(mutex_);
    for (const auto* kept : {&lines_, &exchanges_, &printouts_}) {
      take(*kept);
    }
    for (const auto* latest : {&status_, &torn_}) {
      if (*latest) {
        take(std::array{**latest});
      }
    }
  }
  std::sort(news.begin(), news.end(),
            [](const News& a, const News& b) { return a.id < b.id; });
  return news;
}

std::optional<Printout> Journal::FindPrintout(int64_t number) const {
  const std::scoped_lock lock(mutex_);
  const auto found = std::find_if(
      kept_.begin(), kept_.end(),
      [number](const Printout& kept) { return kept.number == number; });
  return found == kept_.end() ? std::nullopt : std::optional(*found);
}

template <typename Change>
void Journal::Add(std::string kind, std::string json, Change change) {
  const std::scoped_lock lock(mutex_);
  change(News{++last_id_, std::move(kind), std::move(json)});
  if (listener_) {
    listener_();
  }
}

void Journal::TearOff() {
  Add("torn", "{}", [this](News news) {
    printouts_.clear();
    kept_.clear();
    torn_ = std::move(news);
  });
}

void Journal::OnLine(const PaperLine& line) {
  Add("line", JsonOf(line),
      [this](News news) { Keep(lines_, std::move(news), kKeptLines); });
}

void Journal::OnPrintout(const Printout& printout) {
  Add("printout", JsonOf(printout), [&](News news) {
    lines_.clear();
    Keep(printouts_, std::move(news), kKeptPrintouts);
    Keep(kept_, printout, kKeptPrintouts);
  });
}

void Journal::OnExchange(const Exchange& exchange) {
  Add("exchange", JsonOf(exchange, kMostCharacters),
      [this](News news) { Keep(exchanges_, std::move(news), kKeptExchanges); });
}

void Journal::OnStatus(const Status& status) {
  Add("status", JsonOf(status),
      [this](News news) { status_ = std::move(news); });
}

}  // namespace quilon::printer
