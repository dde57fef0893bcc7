#include "board-wire/source/wire.h"

#include "board-wire/source/data.h"
#include "board-wire/source/json-text.h"
#include "board-wire/source/scalar.h"

#include <algorithm>
#include <stdexcept>

namespace board
{

namespace
{

template <typename Range>
auto& named(Range& range, const std::string& name)
{
    auto found = std::find_if(range.begin(), range.end(), [&](const auto& element) { return element.name == name; });
    if (found == range.end())
        throw std::out_of_range("Unknown to the board: " + name);
    return *found;
}

Field fieldParse(const Json::Value& jField)
{
    Field field{jField["field"].asString(), jField["offset"].asUInt(), jField["type"].asString(), {}};
    for (const Json::Value& jCount : jField["shape"])
        field.shape.push_back(jCount.asUInt());
    return field;
}

Record recordParse(const std::string& name, const Json::Value& jRecord)
{
    Record record{name, jRecord["size"].asUInt(), {}};
    const Json::Value& jLayouts = jRecord["layouts"];
    for (const std::string& layoutName : jLayouts.getMemberNames())
    {
        Layout layout{layoutName, {}};
        for (const Json::Value& jField : jLayouts[layoutName])
        {
            layout.fields.push_back(fieldParse(jField));
            const Field& field = layout.fields.back();
            if (field.offset + field.elementSize() * field.elementCount() > record.size)
                throw std::out_of_range("Field outside its record: " + name + " " + field.name);
        }
        record.layouts.push_back(std::move(layout));
    }
    return record;
}

} // namespace

size_t Field::elementSize() const { return scalar(type).size; }

size_t Field::elementCount() const
{
    size_t count = 1;
    for (size_t n : shape)
        count *= n;
    return count;
}

const Field& Layout::field(const std::string& fieldName) const { return named(fields, fieldName); }

const Layout& Record::layout(const std::string& layoutName) const
{
    return layoutName.empty() ? layouts.at(0) : named(layouts, layoutName);
}

int64_t CommandClass::id(const std::string& command) const { return named(commands, command).id; }

const Wire& Wire::instance()
{
    static const Wire wire(JsonText().parse(wireText));
    return wire;
}

Wire::Wire(const Json::Value& description)
{
    const Json::Value& jClasses = description["classes"];
    for (const std::string& name : jClasses.getMemberNames())
    {
        CommandClass commandClass{name, {}, {}};
        const Json::Value& jCommands = jClasses[name]["commands"];
        for (const std::string& command : jCommands.getMemberNames())
            commandClass.commands.push_back({command, jCommands[command].asInt64()});
        const Json::Value& jGenerations = jClasses[name]["generations"];
        for (const std::string& generation : jGenerations.getMemberNames())
            commandClass.generations[generation] = jGenerations[generation].asInt();
        commandClasses.push_back(std::move(commandClass));
    }
    const Json::Value& jRecords = description["records"];
    for (const std::string& name : jRecords.getMemberNames())
        recordMap.emplace(name, recordParse(name, jRecords[name]));
}

const CommandClass& Wire::commandClass(const std::string& name) const { return named(commandClasses, name); }

const Record& Wire::record(const std::string& name) const { return recordMap.at(name); }

} // namespace board
