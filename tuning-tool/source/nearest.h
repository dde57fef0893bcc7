#pragma once

#include <string>
#include <vector>

namespace tool
{
/// The names that are most like `name`, at most three; capital letters do not count.
std::vector<std::string> nearest(const std::string& name, const std::vector<std::string>& names);

/// As a question, "; did you mean ...?", or empty where nothing is near.
std::string meantText(const std::string& name, const std::vector<std::string>& names);
} // namespace tool
