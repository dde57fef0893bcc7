#pragma once

#include <cstddef>
#include <string>

namespace board
{

/// Finds where a command ends on a line without any framing: at the brace that closes its object.
class CommandEnd
{
public:
    /// Looks at what `text` has more than at the last call. True when a command ends at `position()`.
    bool find(const std::string& text);
    /// One behind the last character that was looked at.
    size_t position() const { return next; }

private:
    size_t next = 0;
    size_t depth = 0;
    bool isInString = false;
    bool isEscaped = false;
};

} // namespace board
