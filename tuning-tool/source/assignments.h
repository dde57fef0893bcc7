#pragma once

#include "tuning-tool/source/payload.h"

#include <string>
#include <utility>
#include <vector>

namespace tool
{
using Assignments = std::vector<std::pair<std::string, std::string>>;

/// "NAME=VALUE" words from `first` on. A word without a "=" is the value of the payload's only key. Throws `Failure`.
Assignments assignmentsParse(const std::vector<std::string>& words, std::size_t first, const Payload& payload);

void assign(Payload& payload, const Assignments& assignments);

/// The unit of a field, empty where it is not known.
std::string unitOf(const std::string& name);

/// A row for each value: name, value, unit.
std::vector<std::vector<std::string>> rowsOf(const Payload& payload);

/// A row for each plain value in `value`, however deep: its way down, and the value.
void rowsAppend(std::vector<std::vector<std::string>>& rows, const std::string& name, const Json::Value& value);
} // namespace tool
