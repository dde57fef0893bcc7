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
    int frames = 1;
    bool isJson = false;
    bool isDryRun = false;
    bool isVerbose = false;
    bool isSensor = false;
    bool isForced = false;
    std::vector<std::string> words; ///< behind the sub-command
};
} // namespace tool
