#include "tuning-client/source/shortcut/changed-rows.h"

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"

#include <QMenu>
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

/// The page that the user sees: the outermost one with a name. Null for none.
AbstractWidget* outermost(AbstractWidget* pPage)
{
    AbstractWidget* pOutermost = nullptr;
    // Parts and the stack of all pages have no name.
    for (; pPage; pPage = AbstractWidget::around(pPage))
        if (!pPage->objectName().isEmpty())
            pOutermost = pPage;
    return pOutermost;
}

/// Rows of `pPage`, and of the shown pages in it, that differ from their first read and can be set back: enabled, and
/// not hidden but for the tab that they stand on.
QVector<SliderSpinWidget*> changedRows(const AbstractWidget* pPage)
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

void changedRowsRestore(const AbstractWidget* pPage)
{
    const shortcut::WaitCursor waiting;
    const int failures = shortcut::failureCount();
    auto rows = changedRows(pPage);
    // Once more while it helps: of two rows that keep an order, the first one may be held back by the second one.
    for (int before = rows.size() + 1; rows.size() < before; rows = changedRows(pPage))
    {
        before = rows.size();
        for (auto* pRow : qAsConst(rows))
        {
            if (pRow->isChanged() && pRow->isEnabled())
                pRow->firstValueRestore();
            if (shortcut::failureCount() != failures)
                return;
        }
    }
}
} // namespace

QVector<SliderSpinWidget*> shortcut::rowsReadBy(const AbstractWidget* pPage)
{
    QVector<SliderSpinWidget*> rows;
    for (auto* pRow : pPage->findChildren<SliderSpinWidget*>())
        if (AbstractWidget::readerOf(pRow) == pPage)
            rows.append(pRow);
    return rows;
}

void shortcut::changedRowsOffer(QMenu& menu, AbstractWidget* pPage)
{
    auto* pOutermost = outermost(pPage);
    if (pOutermost && !changedRows(pOutermost).isEmpty())
        menu.addAction(SliderSpinWidget::tr("Back to the page as first read"), pOutermost,
                       [pOutermost] { changedRowsRestore(pOutermost); });
}
