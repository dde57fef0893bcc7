#pragma once

#include <stdexcept>
#include <string>

namespace tool
{
/// How the program ends.
enum Exit
{
    Done = 0,
    Refused = 1,     ///< by the board; or a difference, a conflict, a chip description with findings
    Usage = 2,       ///< the command line, a name or a value in it
    NoAnswer = 3,    ///< the board or the line to it is not there
    Unreadable = 4,  ///< an answer that is not what the description says
    Other = 5,       ///< the board has made another value of what it was sent
    LocalFile = 6,   ///< a file of this computer
    Interrupted = 7, ///< by a signal, between two commands
};

/// What ends the program, with the text for standard error.
class Failure : public std::runtime_error
{
public:
    Failure(Exit exit, const std::string& text) : std::runtime_error(text), code(exit) {}

    const Exit code;
};
} // namespace tool
