#include "tuning-client/source/shortcut/paint-now.h"

#include <QVector>
#include <QWidget>
#include <QWindow>

void shortcut::paintNow(QWidget* pWidget)
{
    auto* pWindow = pWidget->window();
    if (!pWindow->isVisible() || !pWindow->windowHandle() || !pWindow->windowHandle()->isExposed())
        return;
    // From the outside in: a parent that holds back holds back its children too.
    QVector<QWidget*> held;
    for (auto* pParent = pWidget; pParent; pParent = pParent->parentWidget())
        if (!pParent->updatesEnabled())
            held.prepend(pParent);
    for (auto* pHeld : qAsConst(held))
        pHeld->setUpdatesEnabled(true);
    pWindow->repaint();
    if (!held.isEmpty())
        held.first()->setUpdatesEnabled(false);
}
