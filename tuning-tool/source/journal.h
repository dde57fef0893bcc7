#pragma once

#include "tuning-tool/source/snapshot.h"

#include <string>
#include <vector>

namespace tool
{
/// What an `apply` has done to a board so far, kept in a file, so that it can be undone even after the program was
/// killed: the state of before, then a line before and after each command.
class Journal
{
public:
    /// The one of that board, in the user's configuration directory.
    explicit Journal(const std::string& boardName);

    /// Replaces the journal of an earlier run. Throws `Failure`.
    void begin(const Snapshot& before, std::size_t commands);

    /// Each throws `Failure`: what cannot be noted must not be sent.
    void sending(const std::string& command);
    void done(const std::string& command);
    void end();
    void remove();

    /// What the last run has left.
    struct Entries
    {
        Snapshot before;
        std::size_t commands = 0;      ///< of the whole run
        std::vector<std::string> sent; ///< those that the board has taken
        std::string open;              ///< the one that was under way; empty for none
        bool isEnded = false;
    };

    bool isThere() const;
    Entries read() const;

private:
    void append(const char* key, const Json::Value& value);

    std::string path;
};

/// For people: what has been sent, and of how many commands.
std::string sentText(const Journal::Entries& entries);
} // namespace tool
