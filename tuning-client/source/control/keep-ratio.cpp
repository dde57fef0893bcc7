#include "tuning-client/source/control/keep-ratio.h"

namespace
{
constexpr int widthInCharacters = 32;
}

KeepRatio::KeepRatio(QWidget* pContent_, const QSize& ratio_, QWidget* pParent)
    : QWidget(pParent), pContent(pContent_), ratio(ratio_)
{
    pContent->setParent(this);
}

QSize KeepRatio::minimumSizeHint() const
{
    const int width = widthInCharacters * fontMetrics().averageCharWidth();
    return ratio.scaled(width, width, Qt::KeepAspectRatio);
}

void KeepRatio::resizeEvent(QResizeEvent*) { pContent->resize(ratio.scaled(size(), Qt::KeepAspectRatio)); }
