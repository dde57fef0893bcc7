#pragma once

#include <string>

namespace clb
{
/// Throws `std::runtime_error` for a text that OpenCV's parser must not see: no YAML, bytes that are no text, or nested
/// too deep. The depth is that of the worst reading, whatever stands in quotes and comments.
void yamlCheck(const std::string& text);
} // namespace clb
