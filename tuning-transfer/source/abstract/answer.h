#pragma once

#include <json/json.h>

#include <string>

namespace t_transfer::abstract
{
/// The answer of a board from its text, whatever line it came over. Throws `std::runtime_error` for what is no JSON
/// object.
Json::Value answerGet(const std::string& text);
} // namespace t_transfer::abstract
