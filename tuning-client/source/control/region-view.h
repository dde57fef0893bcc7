#pragma once

#include <QRectF>
#include <QSize>
#include <QVector>
#include <QWidget>

/// The frame of a camera with numbered rectangles in it, which the user moves and resizes by the mouse or the keys.
class RegionView : public QWidget
{
    Q_OBJECT

public:
    explicit RegionView(QWidget* pParent = nullptr);

    /// Each side in pixels of the camera, not above what an `int` holds.
    void setFrame(const QSize& size);

    /// Whole pixels of the frame; a side may be 0, and what reaches beyond the frame is seen as far as there is room.
    void setRegions(const QVector<QRectF>& regions);

    /// The part of the widget that shows the frame.
    QRectF frameRect() const;

    /// The rectangle that the keys move, -1 for none.
    int chosen() const { return iChosen; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The user has changed a rectangle; its sides are inside the frame. Whoever owns the values answers with
    /// `setRegions`.
    void regionChanged(int index, const QRectF& region);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    bool focusNextPrevChild(bool isNext) override;

private:
    /// What of a rectangle is gripped.
    struct Grip
    {
        int index = -1;
        Qt::Edges edges; ///< none to move the whole
    };

    double scale() const;
    double reach() const;
    QRectF shown(const QRectF& region) const;
    QRectF painted(int index) const;
    Grip gripAt(const QPointF& position) const;
    QRectF changed(QRectF region, Qt::Edges edges, const QPointF& by) const;
    void change(int index, const QRectF& region);
    void choose(int index);
    void cursorShow(Qt::Edges edges, bool isOver);
    void regionPaint(QPainter& painter, int index) const;
    void numberPaint(QPainter& painter, int index) const;

    QSize frame = {1920, 1080};
    QVector<QRectF> regions;
    int iChosen = -1;
    Grip held;            ///< while the mouse button is down
    QPointF pressed;      ///< where it went down
    QRectF regionPressed; ///< as it was then
};
