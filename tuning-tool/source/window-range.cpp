#include "tuning-tool/source/window-range.h"

#include "tuning-tool/source/data.h"
#include "tuning-tool/source/value-text.h"

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>

namespace tool
{
namespace
{
using Ranges = std::map<std::string, WindowRange>; ///< by "Wdr::configSet V3: strength"

void rangeAdd(WindowRange& range, const WindowRange& control)
{
    auto& labels = range.labels;
    if (labels.empty())
        range = control;
    else if (std::find(labels.begin(), labels.end(), control.labels[0]) == labels.end())
        labels.push_back(control.labels[0]);
    const auto isLess = [](const Json::Value& left, const Json::Value& right)
    { return left.asDouble() < right.asDouble(); };
    range.minimum = std::min(range.minimum, control.minimum, isLess);
    range.maximum = std::max(range.maximum, control.maximum, isLess);
    range.step = std::min(range.step, control.step, isLess);
}

/// A control of a number that was moved has its own field changed first, perhaps under several names; what a page works
/// out from it comes behind, with other values.
Ranges rangesParse(const std::string& text)
{
    static const std::regex control(R"((.*); (\S+) to (\S+) by (\S+), \d+ decimals; (\w+::\w+Set(?: \w+)?: )([^:]*))");
    static const std::regex change(R"(([\w.\[\]]*[\w.])(?:\[\d+\])?=([^, ]+))");
    Ranges ranges;
    std::istringstream stream(text);
    std::smatch match;
    for (std::string line; std::getline(stream, line);)
    {
        if (!std::regex_search(line, match, control))
            continue;
        const auto number = [&](std::size_t i) { return valueParse(match[i], {}); };
        const WindowRange found{number(2), number(3), number(4), {match[1]}};
        const auto command = match[5].str();
        const auto changes = match[6].str();
        const std::sregex_iterator first(changes.begin(), changes.end(), change);
        for (auto field = first; field != std::sregex_iterator(); ++field)
            if ((*field)[2] == (*first)[2])
                rangeAdd(ranges[command + (*field)[1].str()], found);
    }
    return ranges;
}
} // namespace

std::string WindowRange::rangeText() const
{
    return valueText(minimum) + " to " + valueText(maximum) + " by " + valueText(step);
}

std::string WindowRange::labelText() const
{
    return '"' + labels.front() + '"' + (labels.size() > 1 ? " ... \"" + labels.back() + '"' : "");
}

const WindowRange* windowRange(const CommandShape& shape, const std::string& name)
{
    static const auto ranges = rangesParse(pagesText);
    const auto generation = shape.generation.empty() ? std::string() : " " + shape.generation;
    // "config:strength" is the field of a record that has the name of a plain key.
    const auto found = ranges.find(shape.commandClass.name + "::" + shape.command + generation + ": " +
                                   name.substr(name.find(':') + 1));
    return found == ranges.end() ? nullptr : &found->second;
}
} // namespace tool
