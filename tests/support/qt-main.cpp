#include "tests/support/qt-main.h"

#include "tuning-client/source/application.h"
#include "tuning-client/source/image/images.h"
#include "tuning-client/source/skin.h"

#include <memory>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace
{
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
