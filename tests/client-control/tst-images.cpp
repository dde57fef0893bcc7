#include <QImage>
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
