#pragma once

#include <string>

namespace clb
{
/// The matrix `key` of a YAML text, alone and written anew: OpenCV's parser reads outside of its memory for some texts
/// that are damaged, so it is given none of what it has not to read. Throws `std::runtime_error` for what is no matrix
/// of numbers.
std::string yamlMatrix(const std::string& text, const std::string& key);
} // namespace clb
