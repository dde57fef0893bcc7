#pragma once

#include <string>

namespace clb
{
/// Throws `std::runtime_error` for a text that is no YAML, for bytes that are no text and for what is nested too deep.
/// The depth is that of the worst reading, whatever stands in quotes and comments.
void yamlCheck(const std::string& text);
} // namespace clb
