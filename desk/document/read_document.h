// From JSON to a document that can be printed; desk/schema/document.schema.json
// says how it looks.
#ifndef QUILON_DESK_DOCUMENT_READ_DOCUMENT_H_
#define QUILON_DESK_DOCUMENT_READ_DOCUMENT_H_

#include <nlohmann/json.hpp>
#include <string>

#include "desk/document/document.h"
#include "desk/document/reader.h"

namespace quilon::desk {

// The id that a document or a resolution has: 1 to 100 bytes, no control
// characters.
std::string ReadId(const Reader& reader);

// Throws Invalid with the path of the first field that is wrong: unknown, of
// another type, not printable, too long, not what the arithmetic gives.
Document ReadDocument(const nlohmann::json& value);

}  // namespace quilon::desk

#endif  // QUILON_DESK_DOCUMENT_READ_DOCUMENT_H_
