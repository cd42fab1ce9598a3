// Verdicts and other answers of the desk as JSON;
// desk/schema/verdict.schema.json says how they look.
#ifndef QUILON_DESK_VERDICT_H_
#define QUILON_DESK_VERDICT_H_

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "desk/document/document.h"
#include "desk/document/reader.h"
#include "desk/printing/failure.h"
#include "desk/printing/printing.h"

namespace quilon::desk {

nlohmann::json ToJson(const Failure& failure);

// Of a document that was tried or settled.
nlohmann::json VerdictOf(const Document& document, const Outcome& outcome);

// Nothing was sent, and the id is still free. An empty id is left out.
nlohmann::json Refused(std::string_view id, const Failure& failure);

// {"error": {...}} for what is no verdict.
nlohmann::json ErrorOf(const Failure& failure);

Failure FailureOf(const Invalid& invalid);

}  // namespace quilon::desk

#endif  // QUILON_DESK_VERDICT_H_
