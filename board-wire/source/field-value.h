#pragma once

#include "board-wire/source/wire.h"

#include <json/json.h>
#include <string>
#include <vector>

namespace board
{

/// The layout of a record in a generation: the one of its name, small or capital, else the first.
const Layout& layoutOf(const Record& record, const std::string& generation);

/// What a field is in the bytes of a record: nested lists by its shape, and of characters texts up to their first NUL.
Json::Value fieldGet(const Field& field, const std::string& bytes);

/// Stores the value of a field, or of the element that `index` leads to. Throws `Failure` for a value that the type
/// cannot hold, an index outside and a list of another length; the bytes are unchanged then.
void fieldSet(const Field& field, std::string& bytes, const std::vector<size_t>& index, const Json::Value& value);

} // namespace board
