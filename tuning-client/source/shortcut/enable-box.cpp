#include "tuning-client/source/shortcut/enable-box.h"

#include <QWidget>

namespace shortcut
{
QVector<QWidget*> siblings(const QWidget* pWidget)
{
    auto widgets = pWidget->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).toVector();
    widgets.removeAll(const_cast<QWidget*>(pWidget));
    return widgets;
}

void enabledSet(const QVector<QWidget*>& widgets, bool isEnabled)
{
    for (auto* pWidget : widgets)
        pWidget->setEnabled(isEnabled);
}
} // namespace shortcut
