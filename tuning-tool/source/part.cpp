#include "tuning-tool/source/part.h"

#include "tuning-tool/source/auto-table.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/nearest.h"
#include "tuning-tool/source/payload.h"

#include <algorithm>

namespace tool
{
namespace
{
/// What is asked without an argument and can be set; a register is neither.
bool isSetting(const CommandShape& reader)
{
    return std::all_of(reader.request.begin(), reader.request.end(), [](const auto& key) { return key.isOptional; });
}

std::vector<std::string> fieldsOf(const CommandShape& reader, const CommandShape& setter)
{
    const auto read = Payload(reader.answer, reader.generation).names();
    const auto sent = Payload(setter.request, setter.generation).names();
    std::vector<std::string> fields;
    std::copy_if(read.begin(), read.end(), std::back_inserter(fields),
                 [&](const auto& name) { return std::find(sent.begin(), sent.end(), name) != sent.end(); });
    return fields;
}

void partsAdd(std::vector<Part>& parts, const board::CommandClass& commandClass, const std::string& generation)
{
    for (const auto* kind : {"config", "enable", "table"})
    {
        const auto* pReader = commandFind(commandClass, kind, "Get");
        const auto* pSetter = commandFind(commandClass, kind, "Set");
        if (!pReader || !pSetter)
            continue;
        const CommandShape reader{commandClass, pReader->name, generation};
        const CommandShape setter{commandClass, pSetter->name, generation};
        if (isSetting(reader))
            parts.push_back({kind, reader, setter, fieldsOf(reader, setter)});
    }
}

/// Numbers that are not finite and texts that are no UTF-8 are told in another form than they have on the board: what a
/// board told can be kept, if not sent.
Json::Value sendable(const Json::Value& value, const std::string& type)
{
    const bool isReal = type.rfind("float", 0) == 0 || type.rfind("double", 0) == 0;
    if (value.isString() && type.rfind("char", 0) == 0)
        return "";
    if (isReal && (value == "nan" || value == "inf" || value == "-inf"))
        return 0;
    if (!value.isArray())
        return value;
    Json::Value result(Json::arrayValue);
    for (const auto& element : value)
        result.append(sendable(element, type));
    return result;
}

std::vector<std::string> namesSplit(std::string names)
{
    std::vector<std::string> result;
    for (auto comma = names.find(','); comma != std::string::npos; comma = names.find(','))
    {
        result.push_back(names.substr(0, comma));
        names.erase(0, comma + 1);
    }
    result.push_back(names);
    return result;
}
} // namespace

std::string Part::moduleName() const
{
    return reader.commandClass.name + (reader.generation.empty() ? "" : " " + reader.generation);
}

std::string Part::type(const std::string& field) const
{
    return Payload(setter.request, setter.generation).type(field);
}

std::string Part::driver(const std::string& field) const
{
    const auto& name = reader.commandClass.name;
    const auto contains = [&](const char* word) { return field.find(word) != std::string::npos; };
    if (name == "Wb")
        return "Awb";
    return name == "Sensor" && (contains("gain") || contains("integrationTime")) ? "Ae" : "";
}

void Part::check(const std::string& field, const Json::Value& value) const
{
    if (std::find(fields.begin(), fields.end(), field) == fields.end())
        throw Failure(LocalFile, name() + " has no field \"" + field + "\"" + meantText(field, fields));
    if (kind == "table")
        return tableCheck(value, LocalFile);
    try
    {
        Payload(setter.request, setter.generation).valueSet(field, sendable(value, type(field)));
    }
    catch (const std::exception& exception)
    {
        throw Failure(LocalFile, name() + " " + exception.what());
    }
}

const std::vector<Part>& allParts()
{
    static const auto parts = []
    {
        std::vector<Part> result;
        for (const auto& commandClass : board::Wire::instance().classes())
            for (const auto& generation : generationsOf(commandClass))
                partsAdd(result, commandClass, generation);
        return result;
    }();
    return parts;
}

std::vector<const Part*> partsNamed(const std::string& names)
{
    const auto wanted = namesSplit(names);
    std::vector<bool> isFound(wanted.size(), names.empty());
    std::vector<std::string> known;
    std::vector<const Part*> result;
    for (const auto& part : allParts())
    {
        known.push_back(part.moduleName());
        known.push_back(part.reader.commandClass.name);
        bool isWanted = names.empty();
        for (std::size_t i = 0; i < wanted.size(); ++i)
            if (wanted[i] == part.moduleName() || wanted[i] == part.reader.commandClass.name)
                isWanted = isFound[i] = true;
        if (isWanted)
            result.push_back(&part);
    }
    std::sort(known.begin(), known.end());
    known.erase(std::unique(known.begin(), known.end()), known.end());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (!isFound[i])
            throw Failure(Usage,
                          "There is no module \"" + wanted[i] + "\" with settings" + meantText(wanted[i], known));
    return result;
}

std::vector<const Part*> switchesOf(const std::string& className)
{
    std::vector<const Part*> result;
    for (const auto& part : allParts())
        if (part.kind == "enable" && part.reader.commandClass.name == className)
            result.push_back(&part);
    return result;
}

const Part* partOf(const Part& part, const std::string& kind)
{
    const auto isSame = [&](const Part& other)
    { return other.kind == kind && other.moduleName() == part.moduleName(); };
    const auto found = std::find_if(allParts().begin(), allParts().end(), isSame);
    return found == allParts().end() ? nullptr : &*found;
}
} // namespace tool
