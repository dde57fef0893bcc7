#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

namespace
{
QImage image(const QString& name) { return QImage(":/images/" + name + ".png"); }
} // namespace

TEST(Images, AreAllThereWithATransparentGround)
{
    for (auto name : {"logo", "orlenta-logo", "refresh", "green", "red", "gray", "sensor-on", "chipminimono_105770",
                      "Row_Table_New_Add_Create_Insert_Plus-512", "Row_Table_Remove_Delete_Discard_Minus-512",
                      "remove-disable-deselect-disable-512"})
    {
        ASSERT_FALSE(image(name).isNull()) << name;
        EXPECT_EQ(image(name).pixelColor(0, 0).alpha(), 0) << name;
    }
}

TEST(Images, OfTheStatusBarFitItAndDifferInShape)
{
    std::vector<QImage> shapes;
    for (auto name : {"green", "red", "gray"})
    {
        EXPECT_EQ(image(name).size(), QSize(16, 16));
        EXPECT_EQ(image(QString(name) + "@2x").size(), QSize(32, 32));
        // Without colour: white on dark or nothing at all against dark.
        auto shape = image(name);
        for (int y = 0; y < shape.height(); ++y)
        {
            for (int x = 0; x < shape.width(); ++x)
            {
                const auto pixel = image(name).pixelColor(x, y);
                const bool isDark = pixel.alpha() > 128 && pixel.green() < 200;
                shape.setPixelColor(x, y, isDark ? Qt::black : Qt::white);
            }
        }
        shapes.push_back(shape);
    }
    for (size_t i = 0; i < shapes.size(); ++i)
    {
        int different = 0;
        const auto& other = shapes[(i + 1) % shapes.size()];
        for (int k = 0; k < 256; ++k)
        {
            different += shapes[i].pixel(k % 16, k / 16) != other.pixel(k % 16, k / 16);
        }
        EXPECT_GT(different, 25);
    }
}
