#pragma once

#include <string>

namespace t_json
{
/// The JSON text of a string, quotes included. UTF-8 stays as it is.
std::string stringEncode(const std::string& string);

/// The string of a JSON text that the reader has accepted. Half a surrogate pair becomes U+FFFD.
std::string stringDecode(const std::string& text);
} // namespace t_json
