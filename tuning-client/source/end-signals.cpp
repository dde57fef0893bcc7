#include "tuning-client/source/end-signals.h"

#include <QApplication>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace
{
// Of a handler's few means: one byte wakes the event loop, which does the rest.
int wakePipe[2] = {-1, -1};

extern "C" void wake(int)
{
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(wakePipe[1], &byte, 1);
    errno = before;
}

void handlersSet(void (*fHandler)(int))
{
    struct sigaction action = {};
    action.sa_handler = fHandler;
    action.sa_flags = int(SA_RESTART | SA_RESETHAND);
    for (const int number : {SIGTERM, SIGINT})
    {
        // Whoever has started the program may have it ignore one, as a shell does in the background.
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}
} // namespace

EndSignals::EndSignals()
{
    if (pipe2(wakePipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* pNotifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, this);
    connect(pNotifier, &QSocketNotifier::activated, this,
            [this, pNotifier]
            {
                pNotifier->setEnabled(false);
                end();
            });
    handlersSet(wake);
}

EndSignals::~EndSignals()
{
    handlersSet(SIG_DFL);
    for (int& end : wakePipe)
        close(std::exchange(end, -1));
}
#else
EndSignals::EndSignals() = default;
EndSignals::~EndSignals() = default;
#endif

void EndSignals::end()
{
    isEnded = true;
    QApplication::closeAllWindows();
    QApplication::quit();
}
