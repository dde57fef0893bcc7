#pragma once

#include <charconv>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>

namespace t_json
{
/// Reads the whole text as a number. False when it is none, or too large for the type; a double that is too small for
/// its exponent reads as zero or nearly so.
template <class Number>
bool numberRead(const std::string& text, Number& number)
{
    const auto* pEnd = text.data() + text.size();
    const auto read = std::from_chars(text.data(), pEnd, number);
    if constexpr (std::is_same_v<Number, double>)
    {
        // This tells no overflow from underflow, a stream does.
        if (read.ec == std::errc::result_out_of_range)
        {
            std::istringstream stream(text);
            stream.imbue(std::locale::classic());
            return static_cast<bool>(stream >> number);
        }
    }
    return read.ec == std::errc() && read.ptr == pEnd;
}
} // namespace t_json
