#pragma once

#include <stdexcept>

namespace t_common
{
/// The exchange ended without an answer: nobody took the connection, it was closed early, or the time limit passed. An
/// answer that tells of a failure, or that nobody can read, is none of these. Whoever asked can spare the board, and
/// the user, the next question.
class NoAnswer : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};
} // namespace t_common
