#include <cstdlib>
#include <filesystem>
#include <unistd.h>

// The client's global objects read their files in static initialisation and write them in static destruction. So the
// home and working directory of a test program are made before the first and removed after the last: the priority puts
// this constructor ahead of all others, and destructors of the file run after everything that exit() calls.

namespace
{
char scratch[] = "/tmp/tuning-test-XXXXXX";
pid_t scratchOwner = 0;

[[gnu::constructor(101)]] void scratchMake()
{
    if (!mkdtemp(scratch) || chdir(scratch) != 0)
    {
        std::abort();
    }
    scratchOwner = getpid();
    setenv("HOME", scratch, 1);
    setenv("XDG_RUNTIME_DIR", scratch, 1);
    for (auto name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
    {
        unsetenv(name);
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
}

[[gnu::destructor(101)]] void scratchRemove()
{
    if (getpid() == scratchOwner)
    {
        std::error_code ignored;
        std::filesystem::remove_all(scratch, ignored);
    }
}
} // namespace
