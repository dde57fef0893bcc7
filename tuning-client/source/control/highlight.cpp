#include "tuning-client/source/control/highlight.h"

#include <QPainter>
#include <QTimer>

namespace
{
constexpr int shownMs = 900;
constexpr int lineWidth = 2;
} // namespace

Highlight::Highlight(QWidget* pMarked) : QWidget(pMarked)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(pMarked->rect());
    raise();
    show();
    QTimer::singleShot(shownMs, this, &QObject::deleteLater);
}

void Highlight::paintEvent(QPaintEvent*)
{
    auto colour = palette().color(QPalette::Active, QPalette::Highlight);
    QPainter painter(this);
    painter.setPen(QPen(colour, lineWidth));
    colour.setAlpha(40);
    painter.setBrush(colour);
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}
