#pragma once

#include <optional>
#include <string>

namespace board
{

std::string base64Encode(const std::string& bytes);
/// The bytes of Base64 text, blanks and line ends skipped; nothing if the text is not Base64.
std::optional<std::string> base64Decode(const std::string& text);

} // namespace board
