// A comma is a point where numbers are entered. The editors of trees and tables are asked the same where they are
// tested.

#include "tests/support/qt-main.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/skin.h"

#include <clocale>

TEST(NumberFieldsTest, ACommaIsAPointInEveryBox)
{
    SliderSpinWidget row("Row", nullptr);
    row.setRange(0, 100);
    QSpinBox whole;
    HexSpinBox hexadecimal(false);
    QLineEdit text;
    auto* pBox = row.findChild<QDoubleSpinBox*>();
    const auto expect = [](QWidget* pField, const QString& expected)
    {
        pField->window()->show();
        pField->setProperty("keyboardTracking", false);
        for (const bool isPasted : {false, true})
        {
            pField->setProperty("value", 2);
            QMetaObject::invokeMethod(pField, "selectAll");
            QGuiApplication::clipboard()->setText("1,5");
            isPasted ? QTest::keyClick(pField, Qt::Key_V, Qt::ControlModifier) : QTest::keyClicks(pField, "1,5");
            QTest::keyClick(pField, Qt::Key_Return);
            EXPECT_EQ(pField->property("text").toString(), expected) << isPasted;
        }
    };
    expect(pBox, "1.50");
    expect(&whole, "2");
    expect(&hexadecimal, "0x2");
    expect(&text, "1,5");

    row.setValue(2);
    pBox->selectAll();
    QTest::keyClick(pBox, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(row.isBeingEdited()) << "pasted counts as typed";
}

// With what the desktop's locale has set before: to Qt by the environment, to the C library by the application.
TEST(NumberFieldsTest, ADecimalCommaOfTheDesktopIsNone)
{
    QLocale::setDefault(QLocale("de_DE"));
    std::setlocale(LC_NUMERIC, "C.UTF-8");
    skin::Style::Kestrix();
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    SliderSpinWidget row("Row", nullptr);
    row.setRange(0, 5000);
    row.setValue(1234.5);
    EXPECT_EQ(row.findChild<QDoubleSpinBox*>()->text(), "1234.50");
}

TEST(NumberFieldsTest, AFieldThatOnlyShowsHasTheColourOfItsSurroundings)
{
    QLineEdit text;
    QSpinBox box;
    QDoubleSpinBox bare;
    bare.setButtonSymbols(QAbstractSpinBox::NoButtons);
    for (QWidget* pField : std::initializer_list<QWidget*>{&text, &box, &bare})
        for (const bool isReadOnly : {false, true, false})
        {
            pField->setProperty("readOnly", isReadOnly);
            const auto shown = pField->grab().toImage();
            const auto expected = QGuiApplication::palette().color(isReadOnly ? QPalette::Window : QPalette::Base);
            EXPECT_EQ(shown.pixelColor(shown.width() / 2, 4), expected) << pField->metaObject()->className();
        }
}
