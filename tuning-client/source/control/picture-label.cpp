#include "tuning-client/source/control/picture-label.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace
{
/// What `place` of `size` is of `otherSize`. A narrow picture may be shown with no width at all.
int placeOf(int place, int size, int otherSize) { return int(qint64(place) * otherSize / qMax(1, size)); }
} // namespace

PictureLabel::PictureLabel(QWidget* pParent) : QLabel(pParent)
{
    setMouseTracking(true);
    // The menu waits for the release of the button: a drag draws.
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void PictureLabel::setFitted(bool isFitted_)
{
    isFitted = isFitted_;
    update();
}

QSize PictureLabel::pictureSize() const { return pixmap(Qt::ReturnByValue).size(); }

QRect PictureLabel::pictureRect() const
{
    if (!isFitted)
        return rect();
    const auto size = pictureSize().scaled(this->size(), Qt::KeepAspectRatio).expandedTo({1, 1});
    return QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, rect());
}

/// The nearest pixel, for a position beside the picture.
QPoint PictureLabel::pixelAt(const QPoint& position) const
{
    const auto size = pictureSize();
    const auto shown = pictureRect();
    const auto place = position - shown.topLeft();
    return {qBound(0, placeOf(place.x(), shown.width(), size.width()), size.width() - 1),
            qBound(0, placeOf(place.y(), shown.height(), size.height()), size.height() - 1)};
}

QRect PictureLabel::pixelsIn(const QRect& part) const
{
    const auto seen = part & pictureRect();
    return seen.isEmpty() || pictureSize().isEmpty() ? QRect()
                                                     : QRect(pixelAt(seen.topLeft()), pixelAt(seen.bottomRight()));
}

QRect PictureLabel::rectangleShown() const
{
    const auto size = pictureSize();
    const auto shown = pictureRect();
    const auto cornerOf = [&](const QPoint& pixel)
    {
        return shown.topLeft() + QPoint(placeOf(pixel.x(), size.width(), shown.width()),
                                        placeOf(pixel.y(), size.height(), shown.height()));
    };
    return {cornerOf(drawn.topLeft()), cornerOf(drawn.bottomRight() + QPoint(1, 1)) - QPoint(1, 1)};
}

void PictureLabel::setRectangle(const QRect& pixels)
{
    const auto inside = pixels & QRect({}, pictureSize());
    if (inside == drawn)
        return;
    drawn = inside;
    update();
    emit rectangleChanged();
}

void PictureLabel::leaveEvent(QEvent* pEvent)
{
    QLabel::leaveEvent(pEvent);
    emit left();
}

void PictureLabel::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->buttons() != pEvent->button() || pictureSize().isEmpty())
        return;
    held = pEvent->button();
    isDragged = false;
    pressed = pEvent->globalPos();
    corner = pixelAt(pEvent->pos());
    if (held == Qt::LeftButton)
        setCursor(Qt::ClosedHandCursor);
}

void PictureLabel::mouseMoveEvent(QMouseEvent* pEvent)
{
    // With a button held down the mouse may be outside.
    if (pictureSize().isEmpty() || !pictureRect().contains(pEvent->pos()))
        emit left();
    else
        emit pointed(pixelAt(pEvent->pos()));

    const auto way = pEvent->globalPos() - pressed;
    isDragged = isDragged || way.manhattanLength() >= QApplication::startDragDistance();
    if (!isDragged || !(pEvent->buttons() & held))
        return;
    if (held == Qt::RightButton)
    {
        setCursor(Qt::CrossCursor);
        const auto pixel = pixelAt(pEvent->pos());
        setRectangle(QRect(QPoint(qMin(corner.x(), pixel.x()), qMin(corner.y(), pixel.y())),
                           QPoint(qMax(corner.x(), pixel.x()), qMax(corner.y(), pixel.y()))));
    }
    if (held == Qt::LeftButton)
    {
        pressed = pEvent->globalPos();
        emit dragged(way);
    }
}

void PictureLabel::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != held)
        return;
    held = Qt::NoButton;
    unsetCursor();
    if (pEvent->button() != Qt::RightButton)
        return;
    if (isDragged)
        emit rectangleChanged();
    else
        emit menuRequested(pEvent->globalPos());
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
    if (drawn.isEmpty())
        return;
    // Seen on dark and on light, beside the pixels that it holds.
    for (const auto& [colour, style] : {std::pair(Qt::black, Qt::SolidLine), std::pair(Qt::yellow, Qt::DashLine)})
    {
        painter.setPen(QPen(colour, 0, style));
        painter.drawRect(rectangleShown().adjusted(-1, -1, 0, 0));
    }
}

void PictureLabel::resizeEvent(QResizeEvent* pEvent)
{
    QLabel::resizeEvent(pEvent);
    emit resized();
}
