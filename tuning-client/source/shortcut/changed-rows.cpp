#include "tuning-client/source/shortcut/changed-rows.h"

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"

#include <QStackedWidget>

namespace
{
bool isHiddenIn(const QWidget* pPage, const QWidget* pWidget)
{
    for (; pWidget != pPage; pWidget = pWidget->parentWidget())
        if (pWidget->isHidden() && !qobject_cast<QStackedWidget*>(pWidget->parentWidget()))
            return true;
    return false;
}
} // namespace

AbstractWidget* shortcut::pageAround(const QWidget* pControl)
{
    AbstractWidget* pOutermost = nullptr;
    // Parts and the stack of all pages have no name.
    for (auto* pPage = AbstractWidget::around(pControl); pPage; pPage = AbstractWidget::around(pPage))
        if (!pPage->objectName().isEmpty())
            pOutermost = pPage;
    return pOutermost;
}

QVector<SliderSpinWidget*> shortcut::rowsReadBy(const AbstractWidget* pPage)
{
    QVector<SliderSpinWidget*> rows;
    for (auto* pRow : pPage->findChildren<SliderSpinWidget*>())
        if (AbstractWidget::readerOf(pRow) == pPage)
            rows.append(pRow);
    return rows;
}

QVector<SliderSpinWidget*> shortcut::changedRows(const AbstractWidget* pPage)
{
    QVector<SliderSpinWidget*> rows;
    for (auto* pRow : pPage->findChildren<SliderSpinWidget*>())
    {
        const auto* pReader = AbstractWidget::readerOf(pRow);
        if (pRow->isChanged() && pRow->isEnabled() && pReader->isVisible() && !isHiddenIn(pReader, pRow))
            rows.append(pRow);
    }
    return rows;
}

void shortcut::changedRowsRestore(const AbstractWidget* pPage)
{
    const WaitCursor waiting;
    const int failures = failureCount();
    auto rows = changedRows(pPage);
    // Once more while it helps: of two rows that keep an order, the first one may be held back by the second one.
    for (int before = rows.size() + 1; rows.size() < before; rows = changedRows(pPage))
    {
        before = rows.size();
        for (auto* pRow : qAsConst(rows))
        {
            if (pRow->isChanged() && pRow->isEnabled())
                pRow->firstValueRestore();
            if (failureCount() != failures)
                return;
        }
    }
}
