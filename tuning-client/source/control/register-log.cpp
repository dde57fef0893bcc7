#include "tuning-client/source/control/register-log.h"

namespace
{
constexpr int linesKept = 1000;
constexpr int linesSeen = 5;
} // namespace

RegisterLog::RegisterLog()
{
    setReadOnly(true);
    setAcceptRichText(false);
    setAccessibleName(tr("Written registers"));
    setPlaceholderText(tr("Written registers"));
    document()->setMaximumBlockCount(linesKept);
    setMaximumHeight(linesSeen * fontMetrics().lineSpacing());
}

void RegisterLog::lineAppend(const QString& line)
{
    // The user's cursor may stand anywhere, with a selection that the text would replace.
    moveCursor(QTextCursor::End);
    insertPlainText(line + "\n");
    ensureCursorVisible();
}
