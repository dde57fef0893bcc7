#pragma once

namespace tool
{
/// As long as it lives, SIGINT and SIGTERM do not end the program but are noted, so that it can stop between two
/// commands and tell what was sent. Signals that the starter has ignored stay ignored.
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
    void (*fInterruptBefore)(int);
    void (*fTerminateBefore)(int);
};
} // namespace tool
