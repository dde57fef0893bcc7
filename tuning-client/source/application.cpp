#include "tuning-client/source/application.h"

#include "tuning-client/source/shortcut/failure-guard.h"

#include <QMainWindow>

#include <exception>

namespace
{
int slippedCount = 0;

void slippedShow(const char* text)
{
    ++slippedCount;
    qWarning("Unguarded failure: %s", text);
    for (auto* pWidget : QApplication::topLevelWidgets())
        if (auto* pMainWindow = qobject_cast<QMainWindow*>(pWidget))
            shortcut::failureShow(pMainWindow->statusBar(), text);
}
} // namespace

bool Application::notify(QObject* pReceiver, QEvent* pEvent)
{
    try
    {
        return QApplication::notify(pReceiver, pEvent);
    }
    catch (const std::exception& exception)
    {
        slippedShow(exception.what());
    }
    catch (...)
    {
        slippedShow("Unknown error");
    }
    return false;
}

int Application::slipped() { return slippedCount; }
