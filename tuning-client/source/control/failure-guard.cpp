#include "tuning-client/source/control/failure-guard.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

namespace shortcut
{
void failureShow(QStatusBar* pStatusBar, const char* text)
{
    if (pStatusBar)
        pStatusBar->showMessage(QString::fromStdString(t_common::printable(text, t_common::limit::statusBarText)), 0);
}
} // namespace shortcut
