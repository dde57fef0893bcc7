#pragma once

#include <json/json.h>

#include <string>

namespace t_common
{
class JsonApp
{
public:
    /// Of a key that an object has twice, the last one counts, or it is refused.
    enum class Keys
    {
        LastCounts,
        Once
    };

    /// JSON text with UTF-8 as it is, integers of 64 bits exact, and every real in the shortest form that reads back as
    /// the same number. An empty indentation gives one line without blanks. Throws `std::runtime_error` for a number
    /// that is not finite, since JSON has no text for it.
    static std::string toString(const Json::Value& value, const std::string& indentation);

    /// Reads one object or array strictly: nothing behind it, no comments, no special numbers. Throws
    /// `std::runtime_error` that names the text's length and its beginning for anything else, and for a text that is
    /// nested too deeply or has too many elements.
    static Json::Value fromString(const std::string& text, Keys keys = Keys::LastCounts);
};
} // namespace t_common
