#include "tests/support/qt-main.h"
#include "tuning-client/source/control/image-label.h"

TEST(ImageLabel, OffsetStaysInsideTheScene)
{
    ImageLabel label(nullptr);
    label.resize(480, 270);
    label.show();
    QImage image(100, 50, QImage::Format_RGB32);
    image.fill(Qt::red);
    label.setImage(image);
    const auto* pItem = label.scene()->items().constFirst();
    const struct
    {
        QPoint set;
        QPointF got;
    } rows[] = {{{-5, 5000}, {0, 1079}}, {{1920, -1}, {1919, 0}}, {{700, 400}, {700, 400}}};
    for (const auto& row : rows)
    {
        label.setOffset(row.set.x(), row.set.y());
        EXPECT_EQ(pItem->pos(), row.got);
    }
    const auto shown = label.viewport()->grab().toImage();
    const auto at = label.mapFromScene(750, 425);
    EXPECT_EQ(shown.pixelColor(at), QColor(Qt::red));
    EXPECT_NE(shown.pixelColor(label.mapFromScene(850, 425)), QColor(Qt::red));

    label.resize(480, 480);
    EXPECT_NEAR(label.transform().m22() / label.transform().m11(), 1920.0 / 1080, 0.02) << "whatever the aspect ratio";
}
