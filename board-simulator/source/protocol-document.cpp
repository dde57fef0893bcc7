#include "board-simulator/source/protocol-document.h"

#include "board-simulator/source/data.h"
#include "board-wire/source/keys.h"
#include "board-wire/source/wire.h"

#include <algorithm>
#include <cctype>

namespace board
{

namespace
{

/// As sites that show Markdown name the heading's place.
std::string anchor(const std::string& heading)
{
    std::string result;
    for (const unsigned char c : heading)
        if (std::isalnum(c) || c == '_')
            result += static_cast<char>(std::tolower(c));
    return result;
}

std::string keyText(const Key& key)
{
    const std::string record = key.recordName();
    const std::string type = record.empty() ? key.type : "record [" + record + "](#" + anchor(record) + ")";
    return "`" + key.name + "` " + type + (key.isOptional ? ", optional" : "");
}

std::string keysText(const std::vector<Key>& keys)
{
    std::string text;
    for (const Key& key : keys)
        text += (text.empty() ? "" : "<br>") + keyText(key);
    return text;
}

using KeyGetter = std::vector<Key> (Keys::*)(const std::string&, const std::string&, const std::string&) const;

/// One list where all generations have the same keys, else one for each.
std::string sideText(const CommandClass& commandClass, const std::string& command, KeyGetter fGet)
{
    std::vector<std::pair<std::string, std::string>> texts;
    bool isSame = true;
    for (const auto& [generation, number] : commandClass.generations)
    {
        texts.emplace_back(generation, keysText((Keys::instance().*fGet)(commandClass.name, command, generation)));
        isSame = isSame && texts.back().second == texts.front().second;
    }
    if (texts.empty() || isSame)
        return texts.empty() ? keysText((Keys::instance().*fGet)(commandClass.name, command, {})) : texts[0].second;
    std::string text;
    for (const auto& [generation, keys] : texts)
        if (!keys.empty())
            text += (text.empty() ? "" : "<br>") + ("in " + generation + ":<br>") + keys;
    return text;
}

std::string classText(const CommandClass& commandClass)
{
    std::string text = "### rest::" + commandClass.name + "\n\n";
    std::vector<std::pair<int, std::string>> generations;
    for (const auto& [name, number] : commandClass.generations)
        generations.emplace_back(number, "`" + name + "` " + std::to_string(number));
    std::sort(generations.begin(), generations.end());
    for (const auto& generation : generations)
        text += (&generation == &generations.front() ? "Generations: " : ", ") + generation.second;
    text += generations.empty() ? "" : ".\n\n";
    const std::string note = Keys::instance().note(commandClass.name);
    text += note.empty() ? "" : note + "\n\n";
    text += "| Number | Command | Keys sent | Keys answered | Remark |\n|---|---|---|---|---|\n";
    auto commands = commandClass.commands;
    std::sort(commands.begin(), commands.end(),
              [](const Command& left, const Command& right) { return left.id < right.id; });
    for (const Command& command : commands)
    {
        text += "| " + std::to_string(command.id) + " | `" + command.name + "` | " +
                sideText(commandClass, command.name, &Keys::request) + " | " +
                sideText(commandClass, command.name, &Keys::answer) + " | " +
                Keys::instance().note(commandClass.name, command.name) + " |\n";
    }
    return text + "\n";
}

std::string fieldText(const Field& field)
{
    std::string text = "| " + std::to_string(field.offset) + " | " + field.type;
    for (const size_t count : field.shape)
        text += "[" + std::to_string(count) + "]";
    return text + " | " + (field.name.empty() ? "all" : "`" + field.name + "`") + " |\n";
}

std::string recordText(const Record& record)
{
    std::string text = "### " + record.name + "\n\n" + std::to_string(record.size) + " bytes.\n\n";
    for (const Layout& layout : record.layouts)
    {
        text += layout.name == "record" ? "" : "Layout `" + layout.name + "`:\n\n";
        text += "| Offset | Type | Field |\n|---|---|---|\n";
        for (const Field& field : layout.fields)
            text += fieldText(field);
        text += "\n";
    }
    return text;
}

} // namespace

std::string protocolDocument()
{
    auto classes = Wire::instance().classes();
    std::sort(classes.begin(), classes.end(),
              [](const CommandClass& left, const CommandClass& right)
              { return left.commands.front().id < right.commands.front().id; });
    std::string text = std::string(handbookText) + "## Commands by class\n\n";
    for (const CommandClass& commandClass : classes)
        text += classText(commandClass);
    text += "## Records\n\n";
    for (const auto& [name, record] : Wire::instance().records())
        text += recordText(record);
    text.pop_back();
    return text;
}

} // namespace board
