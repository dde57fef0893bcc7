#include "tuning-tool/source/command-shape.h"

#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/nearest.h"

#include <algorithm>

namespace tool
{
namespace
{
bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}
/// What the class has of that kind: the nearest of it, or all.
std::string ownText(const board::CommandClass& commandClass, const std::string& command, const std::string& suffix)
{
    std::vector<std::string> names;
    std::string all;
    for (const auto& candidate : commandClass.commands)
        if (endsWith(candidate.name, suffix))
        {
            names.push_back(candidate.name.substr(0, candidate.name.size() - suffix.size()));
            all += (all.empty() ? "; " + commandClass.name + " has " : ", ") + names.back();
        }
    for (auto& name : names)
        name = commandClass.name + "." + name;
    const auto meant = meantText(commandClass.name + "." + command, names);
    return meant.empty() ? all : meant;
}
} // namespace

CommandShape::CommandShape(const board::CommandClass& commandClass_, const std::string& command_,
                           const std::string& generation_)
    : commandClass(commandClass_),
      command(command_),
      generation(generation_),
      request(board::Keys::instance().request(commandClass.name, command, generation)),
      answer(board::Keys::instance().answer(commandClass.name, command, generation))
{
}

Json::Value CommandShape::envelope() const
{
    Json::Value jQuery;
    jQuery["function"] = function();
    jQuery["id"] = static_cast<Json::Int64>(commandClass.id(command));
    if (!generation.empty())
        jQuery["generation"] = commandClass.generations.at(generation);
    return jQuery;
}

int CommandShape::timeout() const
{
    constexpr int usual = 2;
    constexpr int loading = 10; // a calibration or a sensor driver
    constexpr int picture = 30;
    if (command == "capture")
        return picture;
    return command == "calibrationSet" || command == "driverChange" ? loading : usual;
}

std::vector<std::string> commandNames(const std::string& suffix)
{
    std::vector<std::string> names;
    for (const auto& commandClass : board::Wire::instance().classes())
        for (const auto& command : commandClass.commands)
            if (endsWith(command.name, suffix))
                names.push_back(commandClass.name + "." + command.name.substr(0, command.name.size() - suffix.size()));
    std::sort(names.begin(), names.end());
    return names;
}

const board::Command* commandFind(const board::CommandClass& commandClass, const std::string& command,
                                  const std::string& suffix)
{
    const auto isNamed = [&](const board::Command& candidate)
    {
        const bool isWhole = candidate.name == command && endsWith(command, suffix);
        // One of the board's own names is misspelt.
        return isWhole || candidate.name == command + suffix ||
               (command == "enable" && candidate.name == "enabel" + suffix);
    };
    const auto found = std::find_if(commandClass.commands.begin(), commandClass.commands.end(), isNamed);
    return found == commandClass.commands.end() ? nullptr : &*found;
}

const board::CommandClass& commandClassFind(const std::string& name)
{
    std::vector<std::string> names;
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        if (commandClass.name == name)
            return commandClass;
        names.push_back(commandClass.name);
    }
    throw Failure(Usage, "There is no class \"" + name + "\"" + meantText(name, names));
}

std::vector<std::string> generationsOf(const board::CommandClass& commandClass)
{
    std::vector<std::string> names(std::max<std::size_t>(commandClass.generations.size(), 1));
    for (const auto& [name, number] : commandClass.generations)
        names[static_cast<std::size_t>(number)] = name;
    return names;
}

std::string generationCheck(const board::CommandClass& commandClass, const std::string& generation)
{
    std::vector<std::string> names;
    std::string text;
    for (const auto& [name, number] : commandClass.generations)
    {
        names.push_back(name);
        text += " " + name;
    }
    if (names.empty() && !generation.empty())
        throw Failure(Usage, commandClass.name + " has no generations");
    if (generation.empty() && names.size() > 1)
        throw Failure(Usage, commandClass.name + " has several generations, choose with --generation:" + text);
    if (generation.empty())
        return names.empty() ? std::string() : names.front();
    if (commandClass.generations.count(generation) == 0)
        throw Failure(Usage, commandClass.name + " has no generation \"" + generation + "\", but" + text);
    return generation;
}

CommandShape commandShape(const std::string& name, const std::string& suffix, const std::string& generation)
{
    const auto dot = name.find('.');
    if (dot == std::string::npos)
        throw Failure(Usage, "\"" + name + "\" is no CLASS.COMMAND" + meantText(name, commandNames(suffix)));
    const auto& commandClass = commandClassFind(name.substr(0, dot));
    const auto* pCommand = commandFind(commandClass, name.substr(dot + 1), suffix);
    if (!pCommand)
        throw Failure(Usage, "There is no command \"" + name + suffix + "\"" +
                                 ownText(commandClass, name.substr(dot + 1), suffix));
    return {commandClass, pCommand->name, generationCheck(commandClass, generation)};
}
} // namespace tool
