#include "tuning-tool/source/interruption.h"

#include "tuning-tool/source/failure.h"

#include <csignal>

namespace tool
{
namespace
{
volatile std::sig_atomic_t isRequested = 0;

void request(int) { isRequested = 1; }

using Handler = void (*)(int);

Handler take(int number)
{
    const auto fBefore = std::signal(number, request);
    if (fBefore == SIG_IGN)
        std::signal(number, SIG_IGN);
    return fBefore;
}
} // namespace

Interruption::Interruption() : fInterruptBefore(take(SIGINT)), fTerminateBefore(take(SIGTERM)) { isRequested = 0; }

Interruption::~Interruption()
{
    std::signal(SIGINT, fInterruptBefore);
    std::signal(SIGTERM, fTerminateBefore);
}

void Interruption::check()
{
    if (isRequested)
        throw Failure(Interrupted, "Interrupted");
}
} // namespace tool
