#pragma once

#include "tuning-tool/source/session.h"

#include <functional>

namespace tool
{
/// The command that reads what the other one writes. Throws `Failure` where there is none.
CommandShape readerOf(const CommandShape& setter);

/// One change of what a command sets: it is read, changed, written and read again.
class Change
{
public:
    using Assign = std::function<void(Payload& payload)>;

    /// Tries `fAssign_` on values of zero, so that what it refuses is refused before anything is sent. `fAssign_` may
    /// throw `Failure`.
    Change(Session& session_, const CommandShape& setter_, const CommandShape& reader_, Assign fAssign_);

    /// Reads, and changes what was read. Throws `Failure`.
    void prepare();

    /// Writes and reads again; false in a dry run, which shows what would be written. Throws `Failure`.
    bool write();

    const Payload& before() const { return answerBefore; }
    const Payload& sent() const { return request; }
    const Payload& now() const { return answerNow; }

private:
    Payload read();

    Session& session;
    const CommandShape setter;
    const CommandShape reader;
    const Assign fAssign;
    Payload request;
    Payload answerBefore;
    Payload answerNow;
};
} // namespace tool
