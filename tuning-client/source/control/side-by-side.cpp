#include "tuning-client/source/control/side-by-side.h"

#include "tuning-client/source/abstract-widget.h"

#include <QEvent>
#include <QGridLayout>
#include <QScrollArea>

SideBySide::SideBySide(AbstractWidget* pFrame_, const QVector<QWidget*>& pages_)
    : QObject(pFrame_),
      pFrame(pFrame_),
      pScrollArea(pFrame->findChild<QScrollArea*>()),
      pages(pages_),
      row(pFrame->pGridLayoutScrollArea->count() == 0 ? 0 : pFrame->pGridLayoutScrollArea->rowCount())
{
    for (int i = 0; i < pages.size(); ++i)
    {
        unscroll(pages[i]);
        pFrame->pGridLayoutScrollArea->addWidget(pages[i], row, i);
        pFrame->pGridLayoutScrollArea->setColumnStretch(i, 1);
    }
    pFrame->pGridLayoutScrollArea->setRowStretch(row + pages.size(), 1);
    pScrollArea->viewport()->installEventFilter(this);
}

/// Gives the page the size of its content.
void SideBySide::unscroll(QWidget* pPage)
{
    pPage->layout()->setContentsMargins(0, 0, 0, 0);
    auto* pInner = pPage->findChild<QScrollArea*>();
    pInner->setFrameShape(QFrame::NoFrame);
    pInner->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pInner->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pInner->widget()->installEventFilter(this);
}

void SideBySide::arrange()
{
    auto* pGrid = pFrame->pGridLayoutScrollArea;
    const auto margins = pGrid->contentsMargins();
    int width = margins.left() + margins.right() + pGrid->horizontalSpacing() * (pages.size() - 1);
    for (auto* pPage : qAsConst(pages))
    {
        auto* pInner = pPage->findChild<QScrollArea*>();
        // Plots are content with less height than they would like.
        pInner->setMinimumSize(pInner->widget()->sizeHint().width(), pInner->widget()->minimumSizeHint().height());
        width += pPage->minimumSizeHint().width();
    }
    const bool isNarrow = width > pScrollArea->viewport()->width();
    if (isNarrow == isStacked)
        return;
    isStacked = isNarrow;
    for (int i = 0; i < pages.size(); ++i)
    {
        pGrid->addWidget(pages[i], isStacked ? row + i : row, isStacked ? 0 : i);
        pGrid->setColumnStretch(i, isStacked && i > 0 ? 0 : 1);
    }
}

bool SideBySide::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool isHandled = QObject::eventFilter(pWatched, pEvent);
    if (pEvent->type() == QEvent::Resize || pEvent->type() == QEvent::LayoutRequest)
        arrange();
    return isHandled;
}
