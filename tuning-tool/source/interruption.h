#pragma once

#include <array>

namespace tool
{
/// As long as it lives, SIGINT, SIGTERM and SIGHUP do not end the program but are noted, so that it can stop between
/// two commands and tell what was sent. Signals that the starter has ignored stay ignored; so is SIGPIPE, of an output
/// that nobody reads any more.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Throws `Failure` once a signal has come.
    static void check();

private:
    using Handler = void (*)(int);

    std::array<Handler, 4> before;
};
} // namespace tool
