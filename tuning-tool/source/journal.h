#pragma once

#include "tuning-tool/source/snapshot.h"

#include <QLockFile>

#include <memory>
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
    explicit Journal(const std::string& boardName_);

    /// From here on to the end nobody else applies to this board. Throws `Failure` where somebody does.
    void lock();

    /// Replaces the journal of an earlier run. Throws `Failure`.
    void begin(const Snapshot& before, std::size_t commands);

    /// Each throws `Failure`: what cannot be noted must not be sent.
    void sending(const std::string& command);
    void done(const std::string& command);
    void end();

    /// From here on it is being taken back.
    void returning();
    void remove();

    /// What the last run has left.
    struct Entries
    {
        Snapshot before;
        std::size_t commands = 0;      ///< of the whole run
        std::vector<std::string> sent; ///< those that the board has taken
        std::string open;              ///< the one that was under way; empty for none
        bool isReturning = false;      ///< was to be taken back
        bool isEnded = false;
    };

    bool isThere() const;

    /// Throws `Failure`, also for the journal of another board.
    Entries read() const;

private:
    void append(const char* key, const Json::Value& value);

    const std::string boardName;
    std::string path;
    std::unique_ptr<QLockFile> pLock;
};

/// For people: what has been sent, and of how many commands.
std::string sentText(const Journal::Entries& entries);
} // namespace tool
