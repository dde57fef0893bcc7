#include "tests/support/qt-main.h"
#include "tuning-client/source/control/scene.h"

namespace
{
QLabel* cell(const Scene& scene, int row, int column)
{
    auto pLayout = static_cast<QGridLayout*>(scene.layout());
    return static_cast<QLabel*>(pLayout->itemAtPosition(row, column)->widget());
}

QColor background(const QLabel& label) { return label.palette().color(label.backgroundRole()); }
QColor foreground(const QLabel& label) { return label.palette().color(label.foregroundRole()); }
} // namespace

TEST(Scene, ShowsEachValueInItsCell)
{
    Scene scene;
    EXPECT_EQ(cell(scene, 4, 4)->text(), "");
    EXPECT_EQ(background(*cell(scene, 4, 4)), QColor(Qt::white));

    uint8_t values[25] = {};
    values[7] = 200;
    values[24] = 255;
    uint8_t object[25] = {};
    object[24] = 77;
    scene.setValues(values, object);
    EXPECT_EQ(cell(scene, 1, 2)->text(), "200");
    EXPECT_EQ(background(*cell(scene, 1, 2)), QColor(200, 200, 200));
    EXPECT_EQ(foreground(*cell(scene, 1, 2)), QColor(Qt::darkRed));
    EXPECT_EQ(foreground(*cell(scene, 4, 4)), QColor(Qt::darkGreen));

    scene.setValues(values);
    EXPECT_EQ(foreground(*cell(scene, 1, 2)), QColor(Qt::darkGreen));
    EXPECT_EQ(cell(scene, 0, 0)->text(), "0");
    EXPECT_EQ(background(*cell(scene, 0, 0)), QColor(Qt::black));
    cell(scene, 0, 0)->resize(60, 40);
    const auto shown = cell(scene, 0, 0)->grab().toImage();
    int light = 0;
    for (int i = 0; i < 60 * 40; ++i)
        light += shown.pixelColor(i % 60, i / 60).red() > 200;
    EXPECT_GT(light, 10) << "an outline parts the dark text from a dark cell";
}

TEST(Scene, GivesAllCellsTheSameRoom)
{
    Scene scene;
    uint8_t values[25] = {};
    values[3] = 255;
    scene.setValues(values);
    scene.resize(500, 400);
    scene.show();
    for (int i = 0; i < 25; ++i)
    {
        EXPECT_NEAR(cell(scene, i / 5, i % 5)->width(), cell(scene, 0, 0)->width(), 1);
        EXPECT_NEAR(cell(scene, i / 5, i % 5)->height(), cell(scene, 0, 0)->height(), 1);
    }
}
