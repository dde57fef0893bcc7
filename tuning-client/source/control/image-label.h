#pragma once

#include <QGraphicsView>
#include <QImage>

/// A view of a scene of 1920 by 1080 in which an image lies at an offset. The scene fills the view.
class ImageLabel : public QGraphicsView
{
    Q_OBJECT

public:
    explicit ImageLabel(QWidget* parent);

    void setImage(const QImage& image);

    /// Values outside the scene are moved to its edge.
    void setOffset(int x, int y);

protected:
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    int width = 1920;
    int height = 1080;
    int offsetX = 0;
    int offsetY = 0;
    QImage image;
    QGraphicsPixmapItem* pGraphicsPixmapItem = nullptr;
};
