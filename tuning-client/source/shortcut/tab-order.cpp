#include "tuning-client/source/shortcut/tab-order.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QVector>
#include <QWidget>

#include <algorithm>

namespace
{
class Reading
{
public:
    void widget(QWidget* pWidget)
    {
        if (met.contains(pWidget))
            return;
        met.insert(pWidget);
        if (pWidget->focusPolicy() & Qt::TabFocus)
            controls.append(pWidget);
        if (isWhole(pWidget))
            return;
        // The tabs stand above their pages, but are no item of a layout.
        if (auto* pTabWidget = qobject_cast<QTabWidget*>(pWidget))
            widget(pTabWidget->tabBar());
        if (pWidget->layout())
            layout(pWidget->layout());
        for (auto* pChild : pWidget->children())
            if (pChild->isWidgetType() && !static_cast<QWidget*>(pChild)->isWindow())
                widget(static_cast<QWidget*>(pChild));
    }

    QVector<QWidget*> controls;

private:
    /// What has children of its own making, which are not for the tab key.
    static bool isWhole(const QWidget* pWidget)
    {
        return qobject_cast<const QAbstractSpinBox*>(pWidget) || qobject_cast<const QComboBox*>(pWidget) ||
               qobject_cast<const QAbstractButton*>(pWidget) || qobject_cast<const QAbstractItemView*>(pWidget) ||
               qobject_cast<const QLineEdit*>(pWidget) || qobject_cast<const QTextEdit*>(pWidget) ||
               qobject_cast<const QTabBar*>(pWidget);
    }

    void layout(QLayout* pLayout)
    {
        QVector<int> order(pLayout->count());
        for (int i = 0; i < order.size(); ++i)
            order[i] = i;
        if (const auto* pGrid = qobject_cast<const QGridLayout*>(pLayout))
            std::stable_sort(order.begin(), order.end(),
                             [pGrid](int left, int right) { return cell(pGrid, left) < cell(pGrid, right); });
        for (int i : qAsConst(order))
        {
            auto* pItem = pLayout->itemAt(i);
            if (pItem->layout())
                layout(pItem->layout());
            else if (pItem->widget())
                widget(pItem->widget());
        }
    }

    static std::pair<int, int> cell(const QGridLayout* pGrid, int index)
    {
        int row = 0;
        int column = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        pGrid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
        return {row, column};
    }

    QSet<QWidget*> met;
};
} // namespace

QVector<QWidget*> shortcut::controlsInOrder(QWidget* pPage)
{
    Reading reading;
    reading.widget(pPage);
    return reading.controls;
}

void shortcut::tabOrderSet(QWidget* pPage)
{
    const auto controls = controlsInOrder(pPage);
    for (int i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}
