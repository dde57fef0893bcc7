#pragma once

#include <QSize>
#include <QWidget>

#include <functional>

class QPainter;

/// What a geometric model does to a frame: a straight grid in grey, and over it the same grid as the model draws it.
class GridView : public QWidget
{
    Q_OBJECT

public:
    /// Gives the place of a point of the frame, in pixels; what is not finite is not drawn.
    using Model = std::function<QPointF(const QPointF& point)>;

    explicit GridView(const QString& accessibleName);

    void modelSet(Model model);

    /// In pixels of the camera; 1920 by 1080 until it is set. An empty one is ignored.
    void frameSet(const QSize& size);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    void gridDraw(QPainter& painter, const Model& draw) const;

    Model fModel;
    QSize frame{1920, 1080};
};
