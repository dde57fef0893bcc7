#include "tuning-tool/source/fresh-directory.h"

#include "tuning-tool/source/failure.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace tool
{
FreshDirectory::FreshDirectory(const std::string& parent) : name(parent + "/.tuning-tool-XXXXXX")
{
    // A handler could not remove what it does not know, nor end an exchange: a thread takes the signals instead. Those
    // that are ignored, as of a program in the background, stay so.
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
    {
        struct sigaction action = {};
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler != SIG_DFL)
            continue;
        sigaddset(&signals, number);
        wake = number;
    }
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    const bool isMade = mkdtemp(name.data()) != nullptr;
    const auto error = errno;
    if (isMade && wake != 0)
        watcher = std::thread([this] { watch(); });
    if (isMade)
        return;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    throw Failure(LocalFile, "Nothing can be stored in " + parent + ": " + std::generic_category().message(error));
}

FreshDirectory::~FreshDirectory()
{
    std::error_code ignored;
    fs::remove_all(name, ignored);
    if (watcher.joinable())
    {
        isOver = true;
        pthread_kill(watcher.native_handle(), wake);
        watcher.join();
    }
    // A signal that has come since ends the program here.
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void FreshDirectory::watch()
{
    int number = 0;
    if (sigwait(&signals, &number) != 0 || isOver)
        return;
    std::error_code ignored;
    fs::remove_all(name, ignored);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    std::raise(number);
}
} // namespace tool
