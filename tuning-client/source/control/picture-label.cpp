#include "tuning-client/source/control/picture-label.h"

#include <QMouseEvent>
#include <QPainter>

PictureLabel::PictureLabel(QWidget* pParent) : QLabel(pParent) { setMouseTracking(true); }

void PictureLabel::leaveEvent(QEvent* pEvent)
{
    QLabel::leaveEvent(pEvent);
    emit left();
}

void PictureLabel::mouseMoveEvent(QMouseEvent* pEvent)
{
    QLabel::mouseMoveEvent(pEvent);
    const auto size = pixmap(Qt::ReturnByValue).size();
    // With a button held down the mouse may be outside.
    if (size.isEmpty() || !rect().contains(pEvent->pos()))
        emit left();
    else
        emit pointed(
            {int(qint64(pEvent->x()) * size.width() / width()), int(qint64(pEvent->y()) * size.height() / height())});
}

// Enlarged pixels stay squares, as whoever counts them wants them.
void PictureLabel::paintEvent(QPaintEvent*)
{
    const auto picture = pixmap(Qt::ReturnByValue);
    if (picture.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, width() < picture.width());
    painter.drawPixmap(rect(), picture);
}

void PictureLabel::resizeEvent(QResizeEvent* pEvent)
{
    QLabel::resizeEvent(pEvent);
    emit resized();
}
