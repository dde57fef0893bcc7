#pragma once

#include "tuning-tool/source/session.h"

#include <string>
#include <vector>

namespace tool
{
/// A sub-command, such as "table get".
struct Verb
{
    std::string name;
    std::string words; ///< what follows it, for the help
    std::size_t fewest;
    std::size_t most;
    std::vector<std::string> options; ///< beside those that all have
    std::string help;
    void (*fRun)(Session& session);
};

/// All that the help shows.
const std::vector<Verb>& verbs();

/// An option of the command line, named without "--".
struct Option
{
    std::string name;
    std::string value; ///< what it is called in the help; empty for a switch
    std::string help;
    bool isCommon; ///< to all verbs
};

const std::vector<Option>& allOptions();

/// The names of all options, with "--".
std::vector<std::string> optionNames();

/// The options that the verb takes, with "--" and those of all verbs.
std::vector<std::string> optionsOf(const Verb& verb);

/// Runs the program, but for its name; the result is its exit code.
int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);
} // namespace tool
