#include "tuning-client/source/control/picture-scroll-area.h"

#include <QScrollBar>
#include <QWheelEvent>

void PictureScrollArea::resizeAt(const QPoint& position, const QSize& size)
{
    const auto place = position - widget()->pos();
    const auto before = widget()->size().expandedTo({1, 1});
    widget()->resize(size);
    // The middle of a pixel of the screen, or the picture would creep with each step.
    horizontalScrollBar()->setValue(int((place.x() + 0.5) * size.width() / before.width()) - position.x());
    verticalScrollBar()->setValue(int((place.y() + 0.5) * size.height() / before.height()) - position.y());
}

void PictureScrollArea::moveBy(const QPoint& by)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
}

QRect PictureScrollArea::seen() const { return viewport()->rect().translated(-widget()->pos()); }

void PictureScrollArea::wheelEvent(QWheelEvent* pEvent)
{
    if (!(pEvent->modifiers() & Qt::ControlModifier))
        return QScrollArea::wheelEvent(pEvent);
    pEvent->accept();
    // A fine wheel sends a notch in pieces; a turn back begins anew.
    const int angle = pEvent->angleDelta().y();
    wheelAngle = (angle < 0) == (wheelAngle < 0) ? wheelAngle + angle : angle;
    for (const int notch = QWheelEvent::DefaultDeltasPerStep; qAbs(wheelAngle) >= notch;)
    {
        const bool isIn = wheelAngle > 0;
        wheelAngle -= isIn ? notch : -notch;
        emit zoomRequested(isIn, pEvent->position().toPoint());
    }
}
