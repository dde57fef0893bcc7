#pragma once

#include <QLabel>

/// A label that shows its pixmap at its own size and tells which pixel is under the mouse. QLabel itself would keep a
/// second picture at that size, a gigabyte for a large one; this one draws the part that is seen. The right button
/// draws a rectangle on the picture, the left one moves the picture.
class PictureLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PictureLabel(QWidget* pParent = nullptr);

    /// Whether the picture keeps its proportions in a label of other ones, in the middle of it.
    void setFitted(bool isFitted_);

    /// Where in the label the picture is.
    QRect pictureRect() const;

    /// The pixels of the picture in a part of the label.
    QRect pixelsIn(const QRect& part) const;

    /// Shows the rectangle, in pixels of the picture, as far as it is inside; an empty one takes it away.
    void setRectangle(const QRect& pixels);
    QRect rectangle() const { return drawn; }

    /// Whether the mouse is still drawing it.
    bool isDrawing() const { return held == Qt::RightButton && isDragged; }

    /// Where in the label its pixels are.
    QRect rectangleShown() const;

signals:
    void pointed(const QPoint& pixel);
    /// The mouse is over no pixel.
    void left();
    void resized();
    /// Drawn by the mouse, at each move and at the end, or set.
    void rectangleChanged();
    /// The picture is to move with the mouse.
    void dragged(const QPoint& by);
    /// By a click of the right button.
    void menuRequested(const QPoint& globalPosition);

protected:
    void leaveEvent(QEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    QSize pictureSize() const;
    QPoint pixelAt(const QPoint& position) const;

    bool isFitted = false;
    QRect drawn;
    Qt::MouseButton held = Qt::NoButton;
    bool isDragged = false; ///< the held button has been moved further than a click would
    QPoint pressed;         ///< where it went down, or moved to; on the screen, since the label moves as well
    QPoint corner;          ///< the pixel where the rectangle begins
};
