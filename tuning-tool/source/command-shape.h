#pragma once

#include "board-wire/source/keys.h"
#include "board-wire/source/wire.h"

#include <json/json.h>
#include <optional>
#include <string>
#include <vector>

namespace tool
{
/// A command of the board in one generation, as the description of the wire has it.
struct CommandShape
{
    /// "Wb.configGet"; the name is one of the description.
    CommandShape(const board::CommandClass& commandClass_, const std::string& command_, const std::string& generation_);

    /// As the envelope names it, "rest::Wb::configGet".
    std::string function() const { return "rest::" + commandClass.name + "::" + command; }
    std::string name() const { return commandClass.name + "." + command; }

    /// The keys that every request has.
    Json::Value envelope() const;

    /// Seconds.
    int timeout() const;

    const board::CommandClass& commandClass;
    const std::string command;
    const std::string generation; ///< empty in a class without generations
    const std::vector<board::Key> request;
    const std::vector<board::Key> answer;
};

/// The names of commands that end in one of the words, without it: for "Get" "Wb.config" and the like. All whole names
/// for an empty word.
std::vector<std::string> commandNames(const std::string& suffix);

/// Has the class of "Wb.config" such a command, which may be given with its suffix too? Null where there is none.
const board::Command* commandFind(const board::CommandClass& commandClass, const std::string& command,
                                  const std::string& suffix);

/// Throws `Failure`, with the names that are near, for a class, a command or a generation that the board does not know.
/// A generation may be left out where the class has none or one.
CommandShape commandShape(const std::string& name, const std::string& suffix, const std::string& generation);
const board::CommandClass& commandClassFind(const std::string& name);

/// Generations by their numbers, or one empty name for none.
std::vector<std::string> generationsOf(const board::CommandClass& commandClass);
std::string generationCheck(const board::CommandClass& commandClass, const std::string& generation);
} // namespace tool
