#pragma once

#include <QVector>

class QTimer;
class QWidget;

namespace shortcut
{
/// When the controls of a module follow its switch.
enum class Grey
{
    AfterSuccess, ///< only when the board took the command
    Always        ///< also when it failed
};

/// All widgets that stand beside `pWidget` in the same parent.
QVector<QWidget*> siblings(const QWidget* pWidget);

/// Takes controls that a page has no use for away for good: they are not seen, reached by keys, or found.
void withdraw(const QVector<QWidget*>& widgets);

void enabledSet(const QVector<QWidget*>& widgets, bool isEnabled);

/// Starts the timer, anew if it runs, or stops it.
void timerSet(QTimer* pTimer, bool isRunning);
} // namespace shortcut
