#include "tuning-client/source/control/picture-label.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

PictureLabel::PictureLabel(QWidget* pParent) : QLabel(pParent) { setMouseTracking(true); }

void PictureLabel::setFitted(bool isFitted_)
{
    isFitted = isFitted_;
    update();
}

QRect PictureLabel::pictureRect() const
{
    if (!isFitted)
        return rect();
    auto size = pixmap(Qt::ReturnByValue).size();
    size = size.scaled(this->size(), Qt::KeepAspectRatio).expandedTo({1, 1});
    return QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, rect());
}

void PictureLabel::leaveEvent(QEvent* pEvent)
{
    QLabel::leaveEvent(pEvent);
    emit left();
}

void PictureLabel::mouseMoveEvent(QMouseEvent* pEvent)
{
    QLabel::mouseMoveEvent(pEvent);
    const auto size = pixmap(Qt::ReturnByValue).size();
    const auto shown = pictureRect();
    const auto place = pEvent->pos() - shown.topLeft();
    // With a button held down the mouse may be outside.
    if (size.isEmpty() || !shown.contains(pEvent->pos()))
        emit left();
    else
        emit pointed({int(qint64(place.x()) * size.width() / shown.width()),
                      int(qint64(place.y()) * size.height() / shown.height())});
}

// Enlarged pixels stay squares, as whoever counts them wants them.
void PictureLabel::paintEvent(QPaintEvent*)
{
    const auto picture = pixmap(Qt::ReturnByValue);
    if (picture.isNull())
        return;
    QPainter painter(this);
    const auto shown = pictureRect();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, shown.width() < picture.width());
    painter.drawPixmap(shown, picture);
}

void PictureLabel::resizeEvent(QResizeEvent* pEvent)
{
    QLabel::resizeEvent(pEvent);
    emit resized();
}
