#include "tuning-tool/source/interruption.h"

#include "tuning-tool/source/failure.h"

#include <csignal>

namespace tool
{
namespace
{
volatile std::sig_atomic_t isRequested = 0;

void request(int) { isRequested = 1; }

constexpr std::array<int, 4> numbers{SIGINT, SIGTERM, SIGHUP, SIGPIPE};
} // namespace

Interruption::Interruption()
{
    isRequested = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i)
    {
        before[i] = std::signal(numbers[i], numbers[i] == SIGPIPE ? SIG_IGN : request);
        if (before[i] == SIG_IGN)
            std::signal(numbers[i], SIG_IGN);
    }
}

Interruption::~Interruption()
{
    for (std::size_t i = 0; i < numbers.size(); ++i)
        std::signal(numbers[i], before[i]);
}

void Interruption::check()
{
    if (isRequested)
        throw Failure(Interrupted, "Interrupted");
}
} // namespace tool
