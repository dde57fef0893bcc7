#include "tests/support/board-fixture.h"
#include "tuning-client/source/module/register-widget.h"

using board::Fault;

TEST(HexSpinBoxTest, TakesWhatIsTyped)
{
    for (const auto& [typed, shown] : {std::pair("ffffffff", "0xFFFFFFFF"),
                                       {"1g-z+2 ", "0x12"},
                                       {"0X1a", "0x1A"},
                                       // Emptied: what stood there before.
                                       {"", "0x5"}})
    {
        HexSpinBox box(false);
        box.setHexValue(5);
        box.show();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        EXPECT_EQ(box.text(), "0x") << "can be cleared and typed on";
        QTest::keyClicks(&box, typed);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(box.text(), shown);
        EXPECT_EQ(QString::asprintf("0x%X", box.hexValue()), shown);
    }
}

TEST(HexSpinBoxTest, JudgesText)
{
    struct Open : HexSpinBox
    {
        using HexSpinBox::HexSpinBox;
        using HexSpinBox::validate;
    };
    const std::tuple<QString, int, QValidator::State, const char*, int> cases[] = {
        {"0x  ab ", 7, QValidator::Acceptable, "0xAB", 4}, {"0X12", 4, QValidator::Acceptable, "0x0X12", 4},
        {"   ", 0, QValidator::Intermediate, "   ", 0},    {"0xffff", 6, QValidator::Acceptable, "0xFFFF", 6},
        {"0x10000", 7, QValidator::Invalid, "0x10000", 7}, {"0x-1", 4, QValidator::Invalid, "0x-1", 4},
    };
    const Open box(true);
    for (auto [input, pos, state, inputAfter, posAfter] : cases)
    {
        EXPECT_EQ(box.validate(input, pos), state) << inputAfter;
        EXPECT_EQ(input, inputAfter);
        EXPECT_EQ(pos, posAfter) << inputAfter;
    }
}

TEST_F(BoardTest, SingleRegistersAreReadAndWritten)
{
    chipWrite("Registers", {"Register"});
    config.setting.chipName = "Registers";
    auto& widget = dynamic_cast<RegisterWidget&>(page("Register"));
    EXPECT_EQ(board->requestCount(), 0u) << "only the buttons talk to the board";
    for (const auto& [pAddress, pValue, pRead, pWrite, get, set] :
         {std::tuple(widget.pHexSpinBoxSensorAddress, widget.pHexSpinBoxSensorValue, widget.pPushButtonSensorRead,
                     widget.pPushButtonSensorWrite, 80005, 80006),
          {widget.pHexSpinBoxIspAddress, widget.pHexSpinBoxIspValue, widget.pPushButtonIspRead,
           widget.pPushButtonIspWrite, 4002701, 4002702}})
    {
        pAddress->setHexValue(0xFFFF0400);
        pValue->setHexValue(0x9);
        QTest::mouseClick(pWrite, Qt::LeftButton);
        EXPECT_EQ(status(), "Write 0xFFFF0400 = 0x09 OK");
        const auto request = board->requests().back();
        EXPECT_EQ(request.id, set);
        EXPECT_EQ(request.query["address"].asUInt(), 0xFFFF0400);
        EXPECT_EQ(request.query["value"].asUInt(), 9u);
        pValue->setHexValue(1);
        QTest::mouseClick(pRead, Qt::LeftButton);
        EXPECT_EQ(status(), "Read 0xFFFF0400 = 0x09 OK");
        EXPECT_EQ(pValue->hexValue(), 9u);
        board->faultSet({Fault::Error, get, 1, 0, "Locked"});
        QTest::mouseClick(pRead, Qt::LeftButton);
        EXPECT_EQ(status(), "Server: Locked");

        // An emptied field must not send what stood there before.
        board->requestsClear();
        for (const auto& [pEmptied, pButton] : {std::pair(pAddress, pRead), {pAddress, pWrite}, {pValue, pWrite}})
        {
            pEmptied->selectAll();
            QTest::keyClick(pEmptied, Qt::Key_Delete);
            pButton->animateClick(0);
            QTest::qWait(1);
            EXPECT_TRUE(status().endsWith("no hexadecimal number")) << str(status());
            pEmptied->setHexValue(1);
        }
        EXPECT_EQ(board->requestCount(), 0u);
    }
}
