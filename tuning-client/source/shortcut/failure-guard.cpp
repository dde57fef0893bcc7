#include "tuning-client/source/shortcut/failure-guard.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

namespace
{
int failures = 0;
}

namespace shortcut
{
int failureCount() { return failures; }

void failureShow(QStatusBar* pStatusBar, const char* text)
{
    ++failures;
    if (!pStatusBar)
        return;
    auto line = QString::fromUtf8(text);
    // The serial line's own texts end with a line feed, and are shown as they are.
    const bool isEnded = line.endsWith('\n');
    line.chop(isEnded);
    line = QString::fromStdString(t_common::printable(line.toStdString(), t_common::limit::statusBarText));
    pStatusBar->showMessage(isEnded ? line + '\n' : line, 0);
}
} // namespace shortcut
