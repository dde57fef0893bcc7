#pragma once

#include <csignal>

#include <atomic>
#include <string>
#include <thread>

namespace tool
{
/// A hidden directory in another one for what is not whole yet. It goes away with all that is in it, also where a
/// signal ends the program meanwhile.
class FreshDirectory
{
public:
    /// Throws `Failure` where none can be made.
    explicit FreshDirectory(const std::string& parent);
    ~FreshDirectory();
    FreshDirectory(const FreshDirectory&) = delete;
    FreshDirectory& operator=(const FreshDirectory&) = delete;

    const std::string& path() const { return name; }

private:
    void watch();

    std::string name;
    sigset_t signals;
    sigset_t before;
    int wake = 0; ///< one of the signals; 0 for none
    std::atomic<bool> isOver = false;
    std::thread watcher;
};
} // namespace tool
