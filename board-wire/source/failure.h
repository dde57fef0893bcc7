#pragma once

#include <stdexcept>

namespace board
{

/// What a command answers with `error` and `message`.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace board
