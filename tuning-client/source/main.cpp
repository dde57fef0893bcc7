#include "tuning-client/source/application.h"
#include "tuning-client/source/config/config.h"
#include "tuning-client/source/end-signals.h"
#include "tuning-client/source/image/images.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/message-handler.h"
#include "tuning-client/source/skin.h"

// The global objects `config` and `chips` are built before main and outlive it: the configuration files are written at
// process exit.
int main(int argc, char** argv)
{
    qInstallMessageHandler(messageOutput);
    config.preferences.restore();
    Application application(argc, argv);
    const EndSignals endSignals;
    imagesInit();
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    MainWindow mainWindow(nullptr, {});
    // It may have asked something in a box.
    if (endSignals.isEnding())
        return 0;
    mainWindow.show();
    return Application::exec();
}
