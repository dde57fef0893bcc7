#pragma once

#include "tests/support/outcome.h"
#include "tests/support/scratch.h"
#include "tuning-common/source/json-app.h"

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

/// How one run of the program ended, and what it wrote.
struct Ended
{
    int code; ///< or the number of the signal, negative
    std::string out;
    std::string err;

    Json::Value json() const { return t_common::JsonApp::fromString(out); }
};

/// Runs the real program to its end; `.pid` has its number meanwhile.
inline Ended toolRun(const std::vector<std::string>& words)
{
    std::string line = "echo $$ >.pid; exec '" TUNING_TOOL "'";
    for (auto word : words)
    {
        for (auto quote = word.find('\''); quote != std::string::npos; quote = word.find('\'', quote + 4))
            word.replace(quote, 1, "'\\''");
        line += " '" + word + "'";
    }
    const auto status = std::system((line + " >.out 2>.err </dev/null").c_str());
    Ended run{WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), fileText(".out"), fileText(".err")};
    for (const auto* name : {".out", ".err", ".pid"})
        std::filesystem::remove(name);
    return run;
}

/// Words that are separated by blanks, with those of `tail` behind them.
inline std::vector<std::string> words(const std::string& text, const std::vector<std::string>& tail = {})
{
    std::istringstream stream(text);
    std::vector<std::string> result{std::istream_iterator<std::string>(stream), {}};
    result.insert(result.end(), tail.begin(), tail.end());
    return result;
}
