#include "tuning-tool/source/assignments.h"

#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"

namespace tool
{
namespace
{
bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

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
        if (equals != std::string::npos)
            assignments.emplace_back(words[i].substr(0, equals), words[i].substr(equals + 1));
        else if (names.size() == 1)
            assignments.emplace_back(names.front(), words[i]);
        else
            throw Failure(Usage, "\"" + words[i] + "\" is no NAME=VALUE");
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
    if (!(value.isObject() || value.isArray()) || (value.isArray() && isFlat(value)))
    {
        rows.push_back({name, valueText(value), unitOf(name)});
        return;
    }
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
