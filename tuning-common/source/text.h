#pragma once

#include <cstddef>
#include <string>

namespace t_common
{
enum class Lines
{
    One, ///< a newline and a tab become a blank
    Many ///< a newline and a tab stay
};

/// The text as it may be shown: control characters and bytes that are no UTF-8 become "?", and what exceeds `maximum`
/// bytes becomes "...".
std::string printable(const std::string& text, std::size_t maximum = std::string::npos, Lines lines = Lines::One);

bool isUtf8(const std::string& text);
} // namespace t_common
