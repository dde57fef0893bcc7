#include "tuning-client/source/control/image-label.h"

#include <QGraphicsPixmapItem>

ImageLabel::ImageLabel(QWidget* parent) : QGraphicsView(parent)
{
    setBackgroundRole(QPalette::Dark);
    setScene(new QGraphicsScene(0, 0, width, height, this));
    pGraphicsPixmapItem = scene()->addPixmap(QPixmap::fromImage(image));
    // The scene is larger than the view as a rule.
    pGraphicsPixmapItem->setTransformationMode(Qt::SmoothTransformation);
}

void ImageLabel::setImage(const QImage& newImage)
{
    image = newImage;
    pGraphicsPixmapItem->setPixmap(QPixmap::fromImage(image));
    update();
}

void ImageLabel::setOffset(int x, int y)
{
    offsetX = qBound(0, x, width - 1);
    offsetY = qBound(0, y, height - 1);
    pGraphicsPixmapItem->setPos(offsetX, offsetY);
}

void ImageLabel::resizeEvent(QResizeEvent* pEvent)
{
    fitInView(scene()->sceneRect(), Qt::IgnoreAspectRatio);
    QGraphicsView::resizeEvent(pEvent);
}
