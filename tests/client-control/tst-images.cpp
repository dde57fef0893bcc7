#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

#include <functional>
#include <numeric>

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
    // Without colour: white on dark or nothing at all against dark.
    std::vector<std::vector<bool>> shapes;
    for (auto name : {"green", "red", "gray"})
    {
        EXPECT_EQ(image(name).size(), QSize(16, 16));
        EXPECT_EQ(image(QString(name) + "@2x").size(), QSize(32, 32));
        shapes.emplace_back();
        for (int i = 0; i < 256; ++i)
        {
            const auto pixel = image(name).pixelColor(i % 16, i / 16);
            shapes.back().push_back(pixel.alpha() > 128 && pixel.green() < 200);
        }
    }
    for (size_t i = 0; i < shapes.size(); ++i)
    {
        const auto& other = shapes[(i + 1) % shapes.size()];
        EXPECT_LT(
            std::inner_product(other.begin(), other.end(), shapes[i].begin(), 0, std::plus<>(), std::equal_to<>()),
            256 - 25);
    }
}
