#include "printer/web/journal.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "printer/json.h"
#include "printer/mazovia.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

template <class Kept>
void keep(std::deque<Kept>& kept, Kept entry, std::size_t most) {
  kept.push_back(std::move(entry));
  if (kept.size() > most) {
    kept.pop_front();
  }
}

// A frame may be 1 MiB long; nobody reads that on a page.
json shortened(json exchange) {
  constexpr std::size_t kMost = 2000;
  for (const char* name : {"fields", "answer"}) {
    const auto found = exchange.find(name);
    if (found != exchange.end()) {
      const auto& text = found->get_ref<const std::string&>();
      if (text.size() > kMost) {
        *found = std::string(first_characters(text, kMost)) + " …";
      }
    }
  }
  return exchange;
}

}  // namespace

void Journal::set_listener(std::function<void()> listener) {
  const std::scoped_lock lock(mutex_);
  listener_ = std::move(listener);
}

std::vector<Journal::News> Journal::since(std::uint64_t id) const {
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

std::optional<Printout> Journal::printout(std::int64_t number) const {
  const std::scoped_lock lock(mutex_);
  const auto found = std::find_if(
      kept_.begin(), kept_.end(),
      [number](const Printout& kept) { return kept.number == number; });
  return found == kept_.end() ? std::nullopt : std::optional(*found);
}

template <class Change>
void Journal::add(std::string kind, const json& json, Change change) {
  std::string text = json.dump();
  const std::scoped_lock lock(mutex_);
  change(News{++last_id_, std::move(kind), std::move(text)});
  if (listener_) {
    listener_();
  }
}

void Journal::tear_off() {
  add("torn", json::object(), [this](News news) {
    printouts_.clear();
    kept_.clear();
    torn_ = std::move(news);
  });
}

void Journal::on_line(const std::string& line) {
  add("line", line,
      [this](News news) { keep(lines_, std::move(news), kKeptLines); });
}

void Journal::on_printout(const Printout& printout) {
  add("printout", to_json(printout), [&](News news) {
    lines_.clear();
    keep(printouts_, std::move(news), kKeptPrintouts);
    keep(kept_, printout, kKeptPrintouts);
  });
}

void Journal::on_exchange(const Exchange& exchange) {
  add("exchange", shortened(to_json(exchange)),
      [this](News news) { keep(exchanges_, std::move(news), kKeptExchanges); });
}

void Journal::on_status(const Status& status) {
  add("status", to_json(status),
      [this](News news) { status_ = std::move(news); });
}

}  // namespace quilon::printer
