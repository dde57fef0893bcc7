#include "tuning-client/source/shortcut/enable-box.h"

#include <QTimer>
#include <QWidget>

namespace shortcut
{
QVector<QWidget*> siblings(const QWidget* pWidget)
{
    auto widgets = pWidget->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).toVector();
    widgets.removeAll(const_cast<QWidget*>(pWidget));
    return widgets;
}

void withdraw(const QVector<QWidget*>& widgets)
{
    for (auto* pWidget : widgets)
    {
        pWidget->hide();
        pWidget->setFocusPolicy(Qt::NoFocus);
    }
}

void enabledSet(const QVector<QWidget*>& widgets, bool isEnabled)
{
    for (auto* pWidget : widgets)
        pWidget->setEnabled(isEnabled);
}

void timerSet(QTimer* pTimer, bool isRunning)
{
    if (isRunning)
        pTimer->start();
    else
        pTimer->stop();
}
} // namespace shortcut
