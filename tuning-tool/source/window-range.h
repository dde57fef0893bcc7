#pragma once

#include "tuning-tool/source/command-shape.h"

#include <json/json.h>

#include <string>
#include <vector>

namespace tool
{
/// What the window's pages offer for a field: of several controls, such as those of its elements, the widest range.
struct WindowRange
{
    Json::Value minimum;
    Json::Value maximum;
    Json::Value step;
    std::vector<std::string> labels;

    /// "0.1 to 12 by 0.1".
    std::string rangeText() const;

    /// The label in quotes, of several the first and the last one.
    std::string labelText() const;
};

/// The range of a field that the command sends; null where no page has a number for it.
const WindowRange* windowRange(const CommandShape& shape, const std::string& name);
} // namespace tool
