#include "tuning-tool/source/assignments.h"

#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"

#include <algorithm>

namespace tool
{
namespace
{
bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// A list that is too long for a line goes on in others.
void listAppend(std::vector<std::vector<std::string>>& rows, const std::string& name, const std::string& text)
{
    constexpr std::size_t longest = 80;
    std::size_t begin = 0;
    while (text.size() - begin > longest)
    {
        const auto comma = text.rfind(',', begin + longest - 1);
        if (comma == std::string::npos || comma < begin)
            break;
        rows.push_back({begin == 0 ? name : std::string(), text.substr(begin, comma + 1 - begin)});
        begin = comma + 1;
    }
    rows.push_back({begin == 0 ? name : std::string(), text.substr(begin), unitOf(name)});
}

bool isFlat(const Json::Value& value)
{
    for (const auto& element : value)
        if (element.isObject() || (element.isArray() && !isFlat(element)))
            return false;
    return true;
}
} // namespace

Assignments assignmentsParse(const std::vector<std::string>& words, std::size_t first, const Payload& payload)
{
    Assignments assignments;
    const auto names = payload.names();
    for (std::size_t i = first; i < words.size(); ++i)
    {
        const auto equals = words[i].find('=');
        if (equals == std::string::npos && names.size() != 1)
            throw Failure(Usage, "\"" + words[i] + "\" is no NAME=VALUE");
        const auto name = equals == std::string::npos ? names.front() : words[i].substr(0, equals);
        if (std::any_of(assignments.begin(), assignments.end(), [&](const auto& other) { return other.first == name; }))
            throw Failure(Usage, name + " is given twice");
        assignments.emplace_back(name, equals == std::string::npos ? words[i] : words[i].substr(equals + 1));
    }
    return assignments;
}

void assign(Payload& payload, const Assignments& assignments)
{
    for (const auto& [name, value] : assignments)
        payload.set(name, value);
}

std::string unitOf(const std::string& name)
{
    if (contains(name, "integrationTime") || name == "integration.time")
        return "s";
    if (name == "framesPerSecond")
        return "1/s";
    if (name == "TimeStampUs")
        return "us";
    if (contains(name, "resolution.") || contains(name, "Pixel") || name == "buf_id.width" || name == "buf_id.height")
        return contains(name, "Mode") ? "" : "px";
    return contains(name, "buff_size") || contains(name, "DataSize") || contains(name, "PicWidthBytes") ? "bytes" : "";
}

void rowsAppend(std::vector<std::vector<std::string>>& rows, const std::string& name, const Json::Value& value)
{
    if (value.isArray() && isFlat(value))
        return listAppend(rows, name, valueText(value));
    if (!(value.isObject() || value.isArray()))
        rows.push_back({name, valueText(value), unitOf(name)});
    for (Json::ArrayIndex i = 0; value.isArray() && i < value.size(); ++i)
        rowsAppend(rows, name + "[" + std::to_string(i) + "]", value[i]);
    if (value.isObject())
        for (const auto& member : value.getMemberNames())
            rowsAppend(rows, name.empty() ? member : name + "." + member, value[member]);
}

std::vector<std::vector<std::string>> rowsOf(const Payload& payload)
{
    std::vector<std::vector<std::string>> rows;
    for (const auto& name : payload.names())
        if (const auto value = payload.value(name))
            rowsAppend(rows, name, sound(*value));
    return rows;
}
} // namespace tool
