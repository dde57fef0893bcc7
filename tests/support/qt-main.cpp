#include "tests/support/qt-main.h"

#include "tuning-client/source/application.h"
#include "tuning-client/source/image/images.h"
#include "tuning-client/source/skin.h"

#include <QTest>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

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

std::unique_ptr<Application> applicationMake(int& argc, char** argv)
{
#ifdef __SANITIZE_ADDRESS__
    // The offscreen platform never gives its screen back.
    const __lsan::ScopedDisabler disabler;
#endif
    return std::make_unique<Application>(argc, argv);
}
} // namespace

int waitLimit()
{
#ifdef __SANITIZE_ADDRESS__
    return 50000;
#else
    return 10000;
#endif
}

bool waitUntil(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, waitLimit()); }

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const auto pApplication = applicationMake(argc, argv);
    imagesInit();
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    return RUN_ALL_TESTS();
}
