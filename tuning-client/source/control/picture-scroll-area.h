#pragma once

#include <QScrollArea>

/// The view of a widget that is zoomed at a point: with Ctrl held, the wheel asks for steps of it.
class PictureScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    using QScrollArea::QScrollArea;

    /// Gives the widget another size while what is at `position` of the view stays there.
    void resizeAt(const QPoint& position, const QSize& size);

    /// Moves the widget, as far as the scroll bars allow.
    void moveBy(const QPoint& by);

    /// The part of the widget that is seen.
    QRect seen() const;

signals:
    void zoomRequested(bool isIn, const QPoint& position);

protected:
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    int wheelAngle = 0; ///< turned but not yet asked for
};
