#include "tuning-client/source/shortcut/reveal.h"

#include "tuning-client/source/control/highlight.h"
#include "tuning-client/source/control/multi-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QPointer>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

namespace
{
QStackedWidget* stackOf(const QTabWidget* pTabs) { return pTabs->findChild<QStackedWidget*>(); }
QStackedWidget* stackOf(const MultiWidget* pMulti) { return pMulti->pStackedWidget; }

/// The control that holds `pWidget` among others as leaves and shows one of them; null where it is no such leaf.
template <class Holder>
Holder* holderOf(const QWidget* pWidget)
{
    const auto* pStack = qobject_cast<QStackedWidget*>(pWidget->parentWidget());
    auto* pParent = pStack ? pStack->parentWidget() : nullptr;
    while (pParent && !qobject_cast<Holder*>(pParent))
        pParent = pParent->parentWidget();
    auto* pHolder = qobject_cast<Holder*>(pParent);
    // Only of its own stack: a tab in an inner page is not that page.
    return pHolder && stackOf(pHolder) == pStack ? pHolder : nullptr;
}

int itemOf(const MultiWidget& multi, const QWidget* pInner)
{
    return multi.pComboBox->findData(QVariant::fromValue(const_cast<QWidget*>(pInner)));
}

void turnTo(QWidget* pLeaf)
{
    if (auto* pTabs = holderOf<QTabWidget>(pLeaf))
        pTabs->setCurrentWidget(pLeaf);
    else if (auto* pMulti = holderOf<MultiWidget>(pLeaf))
        pMulti->pComboBox->setCurrentIndex(itemOf(*pMulti, pLeaf));
}

/// What takes the focus for `pTarget`.
QWidget* focusOf(QWidget* pTarget)
{
    if (auto* pTabs = holderOf<QTabWidget>(pTarget))
        return pTabs->tabBar();
    if (auto* pMulti = holderOf<MultiWidget>(pTarget))
        return pMulti->pComboBox;
    return pTarget;
}

/// What is marked for a control: its whole row, or the first thing around it that is seen.
QWidget* seenOf(QWidget* pControl)
{
    auto* pSeen = pControl;
    if (auto* pRow = qobject_cast<SliderSpinWidget*>(pControl->parentWidget()))
        pSeen = pRow;
    while (!pSeen->isVisible() && pSeen->parentWidget())
        pSeen = pSeen->parentWidget();
    return pSeen;
}

void scrollTo(QWidget* pSeen)
{
    // Where things stand is known when the page that has just been shown is laid out.
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    for (auto* pParent = pSeen->parentWidget(); pParent; pParent = pParent->parentWidget())
    {
        auto* pScrollArea = qobject_cast<QScrollArea*>(pParent);
        if (!pScrollArea || !pScrollArea->widget() || !pScrollArea->widget()->isAncestorOf(pSeen))
            continue;
        // Of what is larger than the view its beginning, where its name stands.
        const auto size = pSeen->size().boundedTo(pScrollArea->viewport()->size());
        const QRect part(pSeen->mapTo(pScrollArea->widget(), QPoint()), size);
        pScrollArea->ensureVisible(part.center().x(), part.center().y(), size.width() / 2, size.height() / 2);
    }
}
} // namespace

QString shortcut::titleOf(const QWidget* pWidget)
{
    if (const auto* pGroupBox = qobject_cast<const QGroupBox*>(pWidget))
        return pGroupBox->title();
    if (const auto* pTabs = holderOf<QTabWidget>(pWidget))
        return pTabs->tabText(pTabs->indexOf(const_cast<QWidget*>(pWidget)));
    if (const auto* pMulti = holderOf<MultiWidget>(pWidget))
        return pMulti->pComboBox->itemText(itemOf(*pMulti, pWidget));
    return {};
}

bool shortcut::isLeaf(const QWidget* pWidget)
{
    return holderOf<QTabWidget>(pWidget) || holderOf<MultiWidget>(pWidget);
}

void shortcut::reveal(QWidget* pTarget)
{
    QVector<QPointer<QWidget>> outermostFirst;
    for (auto* pWidget = pTarget; pWidget->parentWidget(); pWidget = pWidget->parentWidget())
        outermostFirst.prepend(pWidget);
    // A leaf that is shown reads, which may build its controls anew.
    for (const auto& pWidget : qAsConst(outermostFirst))
        if (pWidget)
            turnTo(pWidget);
    if (!outermostFirst.last())
        return;
    auto* pFocus = focusOf(pTarget);
    if (pFocus->isVisible() && pFocus->isEnabled())
        pFocus->setFocus(Qt::TabFocusReason);
    auto* pSeen = seenOf(isLeaf(pTarget) ? pFocus : pTarget);
    QTimer::singleShot(0, pSeen,
                       [pSeen]
                       {
                           scrollTo(pSeen);
                           new Highlight(pSeen);
                       });
}
