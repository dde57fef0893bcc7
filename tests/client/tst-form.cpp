// What pages are written with: rows on a grid, the binding of controls to a record, and their small helpers.

#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tuning-client/source/control/number-table.h"
#include "tuning-client/source/control/plot.h"
#include "tuning-client/source/part-widget.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <cmath>

using shortcut::element;
using shortcut::NoSignals;

namespace
{
enum Shade : uint32_t
{
    Dark = 3,
    Light = 5
};

struct Inner
{
    float ratio;
    uint8_t levels[2][2];
};

struct Settings
{
    int16_t whole;
    uint32_t large;
    rest::Flag isOn;
    rest::Flag isGroup;
    Shade shade;
    int32_t place;
    int32_t mode;
    Inner inner;
};

/// A tab with a control of every kind.
class EveryControl : public PartWidget
{
public:
    EveryControl() : PartWidget(nullptr)
    {
        auto page = form(binding, pSettings);
        auto group = page.group("Group", true);
        pGroup = group.groupBox();
        QDoubleSpinBox* pRatio = nullptr;
        QSpinBox* pLarge = nullptr;
        binding.add(pSlider = page.slider("Whole", -40000, 40000, 1), &Settings::whole)
            .add(pOn = page.checkBox("On"), &Settings::isOn)
            .add(pGroup, &Settings::isGroup)
            .addOr(0, pShade = page.comboBox("Shade", {{"dark", Dark}, {"light", Light}}), &Settings::shade)
            .add(pPlace = page.comboBox("Place", {{"first", {}}, {"second", {}}}), &Settings::place)
            .add(group.spinBoxes("Large", {&pLarge}, -5, 70000).first(), &Settings::large)
            .add(group.spinBoxes("Ratio", {&pRatio}, 0, 10, 2, 0.5).first(), &Settings::inner, &Inner::ratio)
            .add(group.spinBoxes("Level", {&pLevels[0], &pLevels[1]}, 0, 300), &Settings::inner, &Inner::levels,
                 element(1))
            .add(pMode = group.radioGroup("Mode", {{"one", 1}, {"two", 2}}), &Settings::mode);
    }

    void updateStatus() override { binding.show(*pSettings); }

    shortcut::RecordBinding<Settings> binding;
    Settings* pSettings = nullptr;
    QGroupBox* pGroup;
    SliderSpinWidget* pSlider;
    QCheckBox* pOn;
    QComboBox* pShade;
    QComboBox* pPlace;
    QDoubleSpinBox* pLevels[2];
    QButtonGroup* pMode;
};

Settings sample()
{
    auto settings = rest::recordZero<Settings>();
    settings.whole = -7;
    settings.large = 60000;
    settings.isOn = true;
    settings.shade = Light;
    settings.place = 1;
    settings.mode = 2;
    settings.inner.ratio = 2.5f;
    settings.inner.levels[1][1] = 200;
    return settings;
}

class FormTest : public BoardTest
{
protected:
    FormTest()
    {
        open();
        part.pSettings = &settings;
        part.updateStatus();
    }

    Settings settings = sample();
    EveryControl part;
    QSignalSpy changes{&part, &PartWidget::valueChanged};
};
} // namespace

TEST_F(FormTest, ShowsAndStoresEveryKindOfControl)
{
    EXPECT_EQ(part.pSlider->value(), -7);
    EXPECT_TRUE(part.pOn->isChecked());
    EXPECT_FALSE(part.pGroup->isChecked());
    EXPECT_EQ(part.pShade->currentText(), "light");
    EXPECT_EQ(part.pPlace->currentText(), "second");
    EXPECT_EQ(part.pMode->checkedId(), 2);
    EXPECT_EQ(part.pLevels[1]->value(), 200);
    auto stored = sample();
    part.binding.store(stored);
    EXPECT_EQ(bytes(stored), bytes(sample())) << "as it was read";

    part.pSlider->setValue(-40000);
    EXPECT_EQ(settings.whole, INT16_MIN) << "held to the field's width";
    part.pSlider->setValue(-3.9);
    EXPECT_EQ(settings.whole, -3) << "towards zero";
    part.pOn->click();
    part.pGroup->setChecked(true);
    part.pShade->setCurrentIndex(0);
    part.pPlace->setCurrentIndex(0);
    part.pMode->button(1)->click();
    part.pLevels[0]->setValue(300);
    auto expected = sample();
    expected.whole = -3;
    expected.isOn = false;
    expected.isGroup = true;
    expected.shade = Dark;
    expected.place = 0;
    expected.mode = 1;
    expected.inner.levels[1][0] = 255;
    EXPECT_EQ(bytes(settings), bytes(expected));
    EXPECT_EQ(changes.count(), 8);
    part.updateStatus();
    EXPECT_EQ(changes.count(), 8) << "a read is silent";
}

TEST_F(FormTest, WhatAControlCannotShowGoesBackAsRead)
{
    settings.shade = Shade(77);
    settings.place = 9;
    settings.mode = 9;
    settings.whole = 30000;
    settings.large = 4294967295u;
    settings.inner.ratio = 1000;
    std::memset(static_cast<void*>(&settings.isOn), 7, 1);
    const auto before = settings;
    part.updateStatus();
    EXPECT_EQ(part.pShade->currentText(), "dark") << "the fallback";
    EXPECT_EQ(part.pPlace->currentText(), "second") << "left alone";
    EXPECT_EQ(part.pMode->checkedId(), 2) << "left alone";
    part.pPlace->setCurrentIndex(0);
    auto expected = before;
    expected.place = 0;
    EXPECT_EQ(bytes(settings), bytes(expected)) << "only the field of the control that moved";
    part.binding.store(settings);
    EXPECT_EQ(settings.shade, Dark) << "all controls as they show";
    EXPECT_EQ(settings.large, 70000u);
    EXPECT_EQ(bytes(settings).at(offsetof(Settings, isOn)), 7) << "true as it came";
    settings.inner.ratio = NAN;
    part.updateStatus();
    EXPECT_EQ(part.pLevels[1]->value(), 200);
}

TEST_F(FormTest, RowsExplainAndNameThemselves)
{
    EXPECT_EQ(part.pLevels[1]->accessibleName(), "Level 1");
    EXPECT_EQ(part.pLevels[1]->toolTip(), "Range 0 to 300, step 1\nAs read: 200");
    EXPECT_EQ(part.pShade->accessibleName(), "Shade");
    int labels = 0;
    for (const auto* pLabel : part.findChildren<QLabel*>("row-label"))
        labels += pLabel->buddy() ? 1 : 0;
    EXPECT_EQ(labels, 7);
    // Boxes of the user stand beside their labels, in the column of the sliders.
    part.resize(1100, 700);
    part.show();
    QCoreApplication::processEvents();
    const auto left = [&](const QWidget* pWidget) { return pWidget->mapTo(&part, QPoint()).x(); };
    EXPECT_NEAR(left(part.pOn), left(part.pSlider->findChild<QSlider*>()), 2);
    EXPECT_EQ(left(part.pOn), left(part.pShade));
    EXPECT_LT(part.pShade->width(), 200);
}

TEST_F(FormTest, HeldKeyAndHalfTypedTextSendOnce)
{
    auto* pBox = part.pLevels[0];
    settings.isGroup = true;
    part.show();
    part.activateWindow();
    pBox->setFocus();
    for (int i = 0; i < 3; ++i)
        QTest::keyPress(pBox, Qt::Key_Up);
    NoSignals::setValue(pBox, 77.0);
    EXPECT_EQ(changes.count(), 0);
    QTest::keyRelease(pBox, Qt::Key_Up);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(settings.inner.levels[1][0], 3);
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(pBox, &second);
    NoSignals::setValue(pBox, 66.0);
    EXPECT_EQ(pBox->value(), 3) << "held by the second press of a double click";
    QTest::mouseRelease(pBox, Qt::LeftButton);
    pBox->selectAll();
    QTest::keyClicks(pBox, "12");
    NoSignals::setValue(pBox, 50.0);
    EXPECT_EQ(pBox->text(), "12") << "the user's";
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(changes.count(), 2);
    NoSignals::setValue(pBox, 50.0);
    EXPECT_EQ(pBox->value(), 50) << "entered, so the board's again";
}

TEST_F(FormTest, TextThatIsHalfTypedGoesWithItsPage)
{
    settings.isGroup = true;
    auto pPart = std::make_unique<EveryControl>();
    pPart->pSettings = &settings;
    pPart->updateStatus();
    pPart->show();
    pPart->activateWindow();
    for (auto* pBox : {pPart->pLevels[0], pPart->pSlider->findChild<QDoubleSpinBox*>()})
        typeHalf(pBox, "9");
    pPart->pLevels[0]->setFocus();
    QTest::keyClicks(pPart->pLevels[0], "9");
    const auto before = settings;
    pPart.reset();
    EXPECT_EQ(bytes(settings), bytes(before));
}

TEST_F(FormTest, ComboBoxIsRefilledOnlyWhenDifferent)
{
    QComboBox box;
    QSignalSpy spy(&box, QOverload<int>::of(&QComboBox::currentIndexChanged));
    NoSignals::refill(&box, {{"a", 1}, {"b", 2}});
    box.setCurrentIndex(1);
    EXPECT_EQ(spy.count(), 1);
    NoSignals::refill(&box, {{"a", 3}, {"b", 4}});
    EXPECT_EQ(box.currentText(), "b") << "the choice stays";
    EXPECT_EQ(box.currentData(), 4);
    NoSignals::refill(&box, {{"c", 5}});
    EXPECT_EQ(box.count(), 1);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(FormTest, NumberTableKeepsItsCells)
{
    QStandardItemModel model;
    const std::unique_ptr<QTableView> pView(number_table::make(model, 2, 3, {"x", "y"}));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal), "y");
    const auto* pCell = model.item(1, 2);
    number_table::show(model, [](int row, int column) { return 100000 * row + column; });
    EXPECT_EQ(model.item(1, 2), pCell);
    EXPECT_EQ(pCell->text(), "100002");
    EXPECT_EQ(pView->editTriggers(), QAbstractItemView::NoEditTriggers);

    const auto range = number_table::heatShow(model, [](int row, int column) { return 5 - row - 2 * column; });
    EXPECT_EQ(range, std::pair(0LL, 5LL));
    EXPECT_EQ(pCell->background().color(), QColor(Qt::white)) << "the least";
    EXPECT_EQ(model.item(0, 0)->background().color(), QColor(255, 130, 50)) << "the most";
    number_table::heatShow(model, [](int, int) { return 7; });
    EXPECT_EQ(model.item(0, 0)->background().color(), QColor(Qt::white)) << "all the same";
}

TEST_F(FormTest, PlotTakesFinitePointsAndThinsItsLabels)
{
    QwtPlot plot;
    auto* pCurve = plot::curveAdd(plot, "curve", Qt::red, 8);
    const double x[] = {0, 1, 2, NAN};
    const double y[] = {0, INFINITY, 2, 3};
    plot::samplesSet(*pCurve, x, y, 4);
    EXPECT_EQ(pCurve->dataSize(), 2u);
    plot::shrinkable(plot);
    plot::labelsFit(plot, QwtPlot::xBottom);
    plot.show();
    plot.resize(900, 300);
    EXPECT_EQ(plot.axisMaxMajor(QwtPlot::xBottom), 8);
    plot.resize(plot.minimumWidth(), 300);
    EXPECT_LT(plot.axisMaxMajor(QwtPlot::xBottom), 4);
}
