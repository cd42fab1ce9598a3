// The functions of quilon/desk.h: JSON in and out, no exception, one desk a
// process.
#include <atomic>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <nlohmann/json.hpp>
#include <string>

#include "desk/desk.h"
#include "desk/document/reader.h"
#include "desk/verdict.h"
#include "quilon/desk.h"

struct QuilDesk {
  explicit QuilDesk(quilon::desk::Settings settings)
      : desk(std::move(settings)) {}

  quilon::desk::Desk desk;
};

namespace {

using namespace quilon::desk;  // NOLINT(google-build-using-namespace)
using nlohmann::json;

// The driver's device is one for the process.
std::atomic<bool> is_open = false;

char* CopyOf(const json& answer) {
  // What is no UTF-8 comes from nowhere but a damaged journal.
  const std::string text =
      answer.dump(-1, ' ', false, json::error_handler_t::replace);
  auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy != nullptr) {
    std::memcpy(copy, text.c_str(), text.size() + 1);
  }
  return copy;
}

// What the exception that is being handled says. Others than the desk's own go
// on: there is no memory.
Failure CaughtFailure() {
  try {
    throw;
  } catch (const Invalid& invalid) {
    return FailureOf(invalid);
  } catch (const JournalError& error) {
    return {.what = What::kJournal, .text = error.what()};
  } catch (const json::exception& error) {
    // An entry of the journal is damaged.
    return {.what = What::kJournal, .text = error.what()};
  }
}

// The answer of `call`, or what kept it from answering, as `refuse` puts it.
template <typename Call, typename Refuse>
char* Answer(QuilDesk* desk, Call call, Refuse refuse) {
  try {
    if (desk == nullptr) {
      return CopyOf(
          refuse(Failure{.what = What::kInvalid, .text = "there is no desk"}));
    }
    const std::unique_lock lock(desk->desk.busy(), std::try_to_lock);
    if (!lock) {
      return CopyOf(refuse(Failure{.what = What::kBusy}));
    }
    try {
      return CopyOf(call(desk->desk));
    } catch (...) {
      return CopyOf(refuse(CaughtFailure()));
    }
  } catch (const std::exception&) {
    return nullptr;
  }
}

void Tell(char** answer, const json& what) {
  if (answer != nullptr) {
    *answer = CopyOf(what);
  }
}

QuilDesk* Open(const char* settings, char** answer) {
  try {
    auto desk = std::make_unique<QuilDesk>(ReadSettings(ParseText(settings)));
    Tell(answer, desk->desk.Pending());
    return desk.release();
  } catch (...) {
    Tell(answer, ErrorOf(CaughtFailure()));
  }
  return nullptr;
}

}  // namespace

QuilDesk* quil_desk_open(const char* settings, char** answer) {
  if (answer != nullptr) {
    *answer = nullptr;
  }
  try {
    if (is_open.exchange(true)) {
      Tell(answer, ErrorOf({.what = What::kBusy,
                            .text = "the process has a desk already"}));
      return nullptr;
    }
    QuilDesk* desk = nullptr;
    try {
      desk = Open(settings, answer);
    } catch (...) {
      is_open = false;
      throw;
    }
    is_open = desk != nullptr;
    return desk;
  } catch (const std::exception&) {
    return nullptr;
  }
}

char* quil_desk_print(QuilDesk* desk, const char* document) {
  std::string id;
  return Answer(
      desk,
      [&](Desk& one) {
        const json value = ParseText(document);
        if (value.is_object() && value.contains("id") &&
            value.at("id").is_string()) {
          id = value.at("id").get<std::string>();
        }
        return one.Print(value);
      },
      [&](const Failure& failure) { return Refused(id, failure); });
}

char* quil_desk_status(QuilDesk* desk) {
  return Answer(
      desk, [](Desk& one) { return one.Status(); }, ErrorOf);
}

char* quil_desk_pending(QuilDesk* desk) {
  return Answer(
      desk, [](Desk& one) { return one.Pending(); }, ErrorOf);
}

char* quil_desk_resolve(QuilDesk* desk, const char* resolution) {
  return Answer(
      desk, [=](Desk& one) { return one.Resolve(ParseText(resolution)); },
      ErrorOf);
}

char* quil_desk_learn(QuilDesk* desk, const char* order) {
  return Answer(
      desk,
      [=](Desk& one) {
        return one.Learn(order == nullptr ? json::object() : ParseText(order));
      },
      ErrorOf);
}

void quil_desk_close(QuilDesk* desk) {
  if (desk != nullptr) {
    delete desk;
    is_open = false;
  }
}

void quil_desk_free(char* text) { std::free(text); }
