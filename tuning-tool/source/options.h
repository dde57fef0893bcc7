#pragma once

#include <string>
#include <vector>

namespace tool
{
/// What the command line asks for.
struct Options
{
    std::string board; ///< HOST[:PORT]; empty for none given
    std::string port;  ///< of a serial line; empty for none given
    std::string generation;
    std::string type = "RAW12";
    std::string lock;
    std::string directory = ".";
    std::string only; ///< modules with commas between; empty for all
    std::string chip; ///< empty for the one of the window
    int frames = 1;
    bool isJson = false;
    bool isDryRun = false;
    bool isVerbose = false;
    bool isSensor = false;
    bool isForced = false;
    bool isRollback = false;
    double wait = 0.2;              ///< seconds from a change to its picture
    std::vector<std::string> words; ///< behind the sub-command
};
} // namespace tool
