#include "tests/support/board-fixture.h"
#include "tests/support/files.h"
#include "tuning-client/source/module/register-widget.h"

#include <QGroupBox>
#include <QPushButton>
#include <QTest>

using board::Fault;

TEST(HexSpinBoxTest, TakesWhatIsTyped)
{
    const struct
    {
        bool isOnly16Bits;
        const char* pTyped;
        const char* pShown;
        unsigned value;
    } cases[] = {
        {false, "ffffffff", "0xFFFFFFFF", 4294967295u},
        {false, "1g-z+2 ", "0x12", 0x12},
        {false, "0X1a", "0x1A", 26},
        {true, "ffff", "0xFFFF", 0xFFFF},
        {true, "10000", "0x1000", 0x1000},
        // Emptied: what stood there before.
        {false, "", "0x5", 5},
    };
    for (const auto& c : cases)
    {
        HexSpinBox box(c.isOnly16Bits);
        box.setHexValue(5);
        box.show();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        EXPECT_EQ(box.text(), "0x") << "can be cleared and typed on";
        QTest::keyClicks(&box, c.pTyped);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(box.text(), c.pShown) << c.pTyped;
        EXPECT_EQ(box.hexValue(), c.value) << c.pTyped;
    }
}

TEST(HexSpinBoxTest, JudgesPastedText)
{
    struct Open : HexSpinBox
    {
        using HexSpinBox::HexSpinBox;
        using HexSpinBox::validate;
    };
    const struct
    {
        const char* pInput;
        int pos;
        QValidator::State state;
        const char* pInputAfter;
        int posAfter;
    } cases[] = {
        {"0x  ab ", 7, QValidator::Acceptable, "0xAB", 4}, {"0X12", 4, QValidator::Acceptable, "0x0X12", 4},
        {"   ", 0, QValidator::Intermediate, "   ", 0},    {"0x", 2, QValidator::Intermediate, "0x", 2},
        {"0x10000", 7, QValidator::Invalid, "0x10000", 7}, {"0x-1", 4, QValidator::Invalid, "0x-1", 4},
    };
    const Open box(true);
    for (const auto& c : cases)
    {
        QString input = c.pInput;
        int pos = c.pos;
        EXPECT_EQ(box.validate(input, pos), c.state) << c.pInput;
        EXPECT_EQ(input, c.pInputAfter);
        EXPECT_EQ(pos, c.posAfter) << c.pInput;
    }
}

TEST_F(BoardTest, SingleRegistersAreReadAndWritten)
{
    chipWrite("Registers", {"Register"});
    config.setting.chipName = "Registers";
    auto& widget = dynamic_cast<RegisterWidget&>(page("Register"));
    EXPECT_LT(widget.pGroupBoxSensor->x(), widget.pGroupBoxIsp->x());
    EXPECT_EQ(board->requestCount(), 0u) << "only the buttons talk to the board";
    const struct
    {
        HexSpinBox* pAddress;
        HexSpinBox* pValue;
        QPushButton* pRead;
        QPushButton* pWrite;
        int get;
        int set;
    } groups[] = {{widget.pHexSpinBoxSensorAddress, widget.pHexSpinBoxSensorValue, widget.pPushButtonSensorRead,
                   widget.pPushButtonSensorWrite, 80005, 80006},
                  {widget.pHexSpinBoxIspAddress, widget.pHexSpinBoxIspValue, widget.pPushButtonIspRead,
                   widget.pPushButtonIspWrite, 4002701, 4002702}};
    for (const auto& group : groups)
    {
        group.pAddress->setHexValue(0xFFFF0400);
        group.pValue->setHexValue(0x9);
        QTest::mouseClick(group.pWrite, Qt::LeftButton);
        EXPECT_EQ(status(), "Write 0xFFFF0400 = 0x09 OK");
        const auto request = board->requests().back();
        EXPECT_EQ(request.id, group.set);
        EXPECT_EQ(request.query["address"].asUInt(), 0xFFFF0400);
        EXPECT_EQ(request.query["value"].asUInt(), 9u);
        group.pValue->setHexValue(1);
        QTest::mouseClick(group.pRead, Qt::LeftButton);
        EXPECT_EQ(status(), "Read 0xFFFF0400 = 0x09 OK");
        EXPECT_EQ(group.pValue->hexValue(), 9u);
        board->faultSet({Fault::Error, group.get, 1, 0, "Locked"});
        QTest::mouseClick(group.pRead, Qt::LeftButton);
        EXPECT_EQ(status(), "Server: Locked");

        // An emptied field must not send what stood there before.
        board->requestsClear();
        group.pAddress->selectAll();
        QTest::keyClick(group.pAddress, Qt::Key_Delete);
        for (auto* pButton : {group.pRead, group.pWrite})
        {
            pButton->animateClick(0);
            QTest::qWait(1);
            EXPECT_TRUE(status().endsWith("no hexadecimal number")) << str(status());
        }
        EXPECT_EQ(board->requestCount(), 0u);
    }
}
