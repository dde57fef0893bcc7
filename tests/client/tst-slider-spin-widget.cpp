#include "tests/support/actions.h"
#include "tests/support/editing.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/shortcut/no-signals.h"

#include <limits>
#include <stdexcept>

using shortcut::NoSignals;

namespace
{
class SliderSpinWidgetTest : public testing::Test
{
protected:
    SliderSpinWidgetTest()
    {
        row.setDecimals(2);
        row.setRange(0, 1);
        row.resize(500, 40);
        row.show();
    }

    void dragTo(int position)
    {
        slider.setSliderDown(true);
        slider.setSliderPosition(position);
    }

    SliderSpinWidget row{"Gain", nullptr};
    QSlider& slider = *row.findChild<QSlider*>();
    QDoubleSpinBox& spinBox = *row.findChild<QDoubleSpinBox*>();
    QSignalSpy spy{&row, &SliderSpinWidget::valueChanged};
};
} // namespace

TEST_F(SliderSpinWidgetTest, SliderHasHundredPositionsWhateverTheRange)
{
    EXPECT_EQ(slider.minimum(), 0);
    EXPECT_EQ(slider.maximum(), 99);
    slider.setValue(99);
    EXPECT_EQ(row.value(), 1.0);
    slider.setValue(33);
    EXPECT_EQ(row.value(), 0.33);
    EXPECT_EQ(spy.count(), 2);

    row.setValue(0.999);
    EXPECT_EQ(slider.value(), 99) << "the box rounds to its decimals first";
    row.setValue(0.01);
    EXPECT_EQ(slider.value(), 0) << "truncated, not rounded";
    row.setValue(0.02);
    EXPECT_EQ(slider.value(), 1);
}

TEST_F(SliderSpinWidgetTest, RangeClampsSilentlyAndMovesTheSlider)
{
    row.setValue(1);
    spy.clear();
    row.setRange(0, 0.5);
    EXPECT_EQ(row.value(), 0.5);
    EXPECT_EQ(slider.value(), 99);
    row.setRange(0, 1);
    EXPECT_EQ(slider.value(), 49);
    row.setRange(0.5, 0.5);
    EXPECT_EQ(slider.value(), 0) << "an empty range has no way to go";
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(SliderSpinWidgetTest, NumbersThatAreNotFiniteLeaveTheLastOnes)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    row.setValue(0.4);
    row.setValue(nan);
    NoSignals::setValue(&row, infinity);
    EXPECT_EQ(row.value(), 0.4);
    EXPECT_THROW(row.setRange(nan, 1), std::logic_error);
    EXPECT_THROW(row.setRange(0, infinity), std::logic_error);
    EXPECT_THROW(NoSignals::setRange(&row, 2, 1), std::logic_error);
    EXPECT_FALSE(row.signalsBlocked()) << "a refused range must not leave the row mute";
    row.setRange(-1e308, 1e308);
    row.setValue(1e308);
    EXPECT_GE(slider.value(), 0);
}

TEST_F(SliderSpinWidgetTest, MouseOnTheSliderSendsOnceOnRelease)
{
    dragTo(40);
    dragTo(60);
    EXPECT_EQ(spy.count(), 0);
    slider.setSliderDown(false);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_NEAR(spy.takeFirst().first().toDouble(), 0.61, 1e-9);

    // Into the groove, far from the handle: a page step, repeated while the button is down.
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.subControls = QStyle::SC_All;
    option.tickPosition = slider.tickPosition();
    option.maximum = slider.maximum();
    const auto groove = slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, &slider);
    const QPoint farEnd(groove.right() - 2, groove.center().y());
    QTest::mousePress(&slider, Qt::LeftButton, {}, farEnd);
    EXPECT_EQ(spy.count(), 0);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, farEnd);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(SliderSpinWidgetTest, HeldKeySendsOnceOnRelease)
{
    for (const auto& [pWidget, key] : {std::pair<QWidget*, Qt::Key>(&slider, Qt::Key_Right), {&spinBox, Qt::Key_Up}})
    {
        spy.clear();
        const double before = row.value();
        QTest::keyPress(pWidget, key);
        for (int i = 0; i < 3; ++i)
        {
            QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(pWidget, &again);
            QKeyEvent pause(QEvent::KeyRelease, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(pWidget, &pause);
        }
        EXPECT_EQ(spy.count(), 0);
        EXPECT_TRUE(row.isBeingEdited());
        QTest::keyRelease(pWidget, key);
        EXPECT_EQ(spy.count(), 1);
        EXPECT_NEAR(row.value(), before + 0.04, 0.011);

        QTest::keyPress(pWidget, key);
        for (int i = 0; i < 2; ++i)
        {
            QFocusEvent leaving(QEvent::FocusOut);
            QApplication::sendEvent(pWidget, &leaving);
            EXPECT_EQ(spy.count(), 2) << "leaving ends it as well, once";
        }
    }
}

TEST_F(SliderSpinWidgetTest, ShownValuesSendNothingAndNeverDisturbTheUser)
{
    NoSignals::setValue(&row, 0.5f);
    EXPECT_EQ(row.value(), 0.5);
    EXPECT_EQ(slider.value(), 49);

    typeHalf(&spinBox, "0.7");
    NoSignals::setValue(&row, 0.1f);
    EXPECT_EQ(spinBox.cleanText(), "0.7");
    EXPECT_EQ(spy.count(), 0);
    QTest::keyClick(&spinBox, Qt::Key_Return);
    EXPECT_EQ(row.value(), 0.7);
    NoSignals::setValue(&row, 0.2);
    EXPECT_EQ(row.value(), 0.2) << "what was entered is no longer being typed";

    dragTo(10);
    NoSignals::setValue(&row, 0.9f);
    EXPECT_EQ(slider.sliderPosition(), 10);
    slider.setSliderDown(false);
    EXPECT_EQ(spy.count(), 2) << "what the user entered and let go, nothing else";
}

TEST_F(SliderSpinWidgetTest, RowExplainsItselfAndGoesBack)
{
    NoSignals::setValue(&row, 0.5f);
    EXPECT_TRUE(row.toolTip().contains("0.00 to 1.00")) << row.toolTip().toStdString();
    EXPECT_TRUE(row.toolTip().contains("As read: 0.5"));
    row.setValue(0.8);
    spy.clear();
    const auto open = [&] { emit row.findChild<QLabel*>()->customContextMenuRequested(QPoint(1, 1)); };
    popup(open, "Copy value");
    EXPECT_EQ(QApplication::clipboard()->text(), "0.80");
    popup(open, "Back to 0.50 as read");
    EXPECT_EQ(row.value(), 0.5);
    EXPECT_EQ(spy.count(), 1);
}
