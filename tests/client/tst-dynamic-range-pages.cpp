// What the pages of high and wide dynamic range do beside their rows.

#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tuning-client/source/control/wdr-plot.h"
#include "tuning-client/source/module/ahdr-widget.h"
#include "tuning-client/source/module/hdr1_2-widget.h"
#include "tuning-client/source/module/wdr1-widget.h"

#include <qwt_plot_curve.h>

using board::Fault;
using rest::Ahdr;
using rest::Hdr;
using rest::Wdr;

namespace
{
using DynamicRangePagesTest = BoardTest;
} // namespace

TEST_F(DynamicRangePagesTest, CombinedRangeStaysOrdered)
{
    CombineWidget combine("Frames", nullptr);
    auto* pBegin = combine.pSliderSpinWidgetTransRangeBegin;
    auto* pEnd = combine.pSliderSpinWidgetTransRangeEnd;
    const struct
    {
        SliderSpinWidget* pMoved;
        double value, begin, end;
        int changes;
    } rows[] = {{pBegin, 0.6, 0.5, 0.5, 2}, {pEnd, 0.3, 0.4, 0.4, 2}, {pBegin, 0.2, 0.2, 0.5, 1}};
    for (const auto& row : rows)
    {
        pEnd->setValue(0.5);
        pBegin->setValue(0.4);
        QSignalSpy changes(&combine, &CombineWidget::valueChanged);
        row.pMoved->setValue(row.value);
        EXPECT_DOUBLE_EQ(pBegin->value(), row.begin);
        EXPECT_DOUBLE_EQ(pEnd->value(), row.end);
        EXPECT_EQ(changes.count(), row.changes);
    }
}

TEST_F(DynamicRangePagesTest, FramesAreShownAndGreyed)
{
    auto& hdr = shown<Hdr1_2Widget>("High Dynamic Range 1.2");
    EXPECT_TRUE(hdr.pRadioButton3Dol->isChecked());
    hdr.pRadioButton2Dol->click();
    EXPECT_FALSE(hdr.pCombineWidgetLongShortVeryShort->isVisible());
    EXPECT_TRUE(hdr.pCombineWidgetLongShort->isVisible());
    refresh();
    EXPECT_TRUE(hdr.pCombineWidgetLongShortVeryShort->isVisible()) << "as the board has it";
    // A board that does not tell leaves the choice.
    board->answerSet("Hdr::statusGet"_id, "status", Json::Value());
    for (auto* pChoice : {hdr.pRadioButton2Dol, hdr.pRadioButton3Dol})
    {
        pChoice->click();
        refresh();
        EXPECT_TRUE(pChoice->isChecked());
    }
    const Hdr1_2Widget fresh(nullptr, "Fresh");
    EXPECT_TRUE(fresh.pRadioButton2Dol->isChecked() && fresh.pRadioButtonLong->isChecked());
    EXPECT_TRUE(fresh.pCombineWidgetLongShortVeryShort->isHidden());

    const auto free = [&]
    {
        return hdr.pGroupBoxMode->isEnabled() + hdr.pGroupBoxBaseFrame->isEnabled() +
               hdr.pCombineWidgetLongShort->isEnabled() + hdr.pCombineWidgetLongShortVeryShort->isEnabled();
    };
    hdr.pCheckBoxNative->click();
    EXPECT_EQ(free(), 0);
    hdr.pCheckBoxNative->click();
    EXPECT_EQ(free(), 4);
}

TEST_F(DynamicRangePagesTest, BaseFrameTravelsWithTheNextChange)
{
    auto& hdr = shown<Hdr1_2Widget>("High Dynamic Range 1.2");
    const auto mode = [this] { return record<Hdr::Config>("Hdr", "config", Hdr::V1_2).v1_2.mode; };
    hdr.pRadioButtonShort->click();
    EXPECT_EQ(mode(), Hdr::Config::V1_2::LongShort);
    type(hdr.pCombineWidgetLongShort->pSliderSpinWidgetExtensionBit, "2");
    EXPECT_EQ(mode(), Hdr::Config::V1_2::LongShortVeryShort);
    auto answer = record<Hdr::Config>("Hdr", "config", Hdr::V1_2);
    for (const auto told : {Hdr::Config::V1_2::LongShortVeryShort, Hdr::Config::V1_2::Sum})
    {
        answer.v1_2.mode = told;
        answerSet("Hdr::configGet"_id, "config", answer);
        hdr.pRadioButtonLong->click();
        refresh();
        EXPECT_TRUE(hdr.pRadioButtonShort->isChecked());
    }
}

TEST_F(DynamicRangePagesTest, MovedRatioGivesWay)
{
    auto& ahdr = shown<AhdrWidget>("Auto High Dynamic Range");
    const auto ratio = [this] { return record<Ahdr::Config>("Ahdr").v1.ratio; };
    auto* pMax = ahdr.sliderSpinWidgets[AhdrWidget::RatioMax];
    auto* pMin = ahdr.sliderSpinWidgets[AhdrWidget::RatioMin];
    type(pMin, "4");
    type(pMax, "2");
    EXPECT_EQ(ratio().max, 4);
    EXPECT_EQ(pMax->value(), 4);
    type(pMax, "8");
    type(pMin, "9");
    EXPECT_EQ(ratio().min, 8);
    EXPECT_EQ(pMin->value(), 8);
}

TEST_F(DynamicRangePagesTest, AutomaticSetPointsBelongToAuto)
{
    auto& ahdr = shown<AhdrWidget>("Auto High Dynamic Range");
    board->requestsClear();
    ahdr.pCheckBoxSetPointAuto->toggle();
    EXPECT_EQ(board->requestCount(), 0u) << "hidden in Manual";
    refresh();
    ahdr.pComboBoxWorkMode->setCurrentText("Auto");
    EXPECT_TRUE(ahdr.pCheckBoxSetPointAuto->isVisible() && ahdr.pCheckBoxSetPoint2Auto->isVisible());

    // What a read brings goes back as it came, whatever the sliders can show.
    auto answer = record<Ahdr::Config>("Ahdr");
    answer.v1.isAuto = false;
    answer.v1.isAutoSetPoint = false;
    answer.v1.c = 7.53;
    answer.v1.ratio.max = 300;
    answerSet("Ahdr::configGet"_id, "config", answer);
    board->requestsClear();
    refresh();
    EXPECT_EQ(sent("Ahdr::configSet"_id), 1u);
    EXPECT_EQ(lastQuery("Ahdr::configSet"_id)["config"].asString(), t_common::Base64::encode(answer));
    EXPECT_FALSE(ahdr.pCheckBoxSetPointAuto->isVisible() || ahdr.pCheckBoxSetPoint2Auto->isVisible());
}

TEST_F(DynamicRangePagesTest, CurveThatAReadChecksIsDrawnAndSent)
{
    auto& wdr = shown<Wdr1Widget>("Global Wide Dynamic Range");
    const auto& curve = *static_cast<QwtPlotCurve*>(wdr.pWdrPlot->itemList(QwtPlotItem::Rtti_PlotCurve).first());
    EXPECT_EQ(curve.sample(0), QPointF(8, 0));
    EXPECT_EQ(curve.sample(1), QPointF(136, 724)) << "WDR_0.45";
    EXPECT_EQ(curve.sample(32), QPointF(4104, 4095));

    const auto checked = [&]
    {
        for (const auto* pButton : wdr.pGroupBoxCurves->findChildren<QRadioButton*>())
            if (pButton->isChecked())
                return pButton->text();
        return QString();
    };
    // One value apart from WDR_1.00, in either array: not that curve, and the last one stays.
    auto answer = rest::recordZero<Wdr::Config>();
    answer.v1.curve = wdr.wdrCurves.last()->wdrCurve;
    const auto read = [&]
    {
        answerSet("Wdr::configGet"_id, "curve", answer);
        board->requestsClear();
        refresh();
        return sent("Wdr::configSet"_id);
    };
    auto& [Ym, dY, padding] = answer.v1.curve;
    const std::pair<void*, uint8_t> spots[] = {{&Ym[0], 1}, {&Ym[32], 1}, {&dY[0], 1}, {&dY[32], 1}};
    for (const auto& [pSpot, bit] : spots)
    {
        *static_cast<uint8_t*>(pSpot) ^= bit;
        EXPECT_EQ(read(), 0u);
        *static_cast<uint8_t*>(pSpot) ^= bit;
    }
    EXPECT_EQ(checked(), "WDR_0.45");
    EXPECT_EQ(read(), 1u);
    EXPECT_EQ(checked(), "WDR_1.00");
    EXPECT_EQ(curve.sample(32), QPointF(4104, 3971));

    // What a board refuses is drawn all the same.
    board->answersClear();
    board->faultSet({Fault::Error, "Wdr::configSet"_id});
    wdr.pGroupBoxCurves->findChildren<QRadioButton*>().first()->click();
    EXPECT_EQ(curve.sample(1), QPointF(136, 1218));
}

// The button that goes off must not count as the refused change of the one that goes on.
TEST_F(DynamicRangePagesTest, CurveIsNotSentToABoardThatWasNotRead)
{
    auto& wdr = shown<Wdr1Widget>("Global Wide Dynamic Range");
    reconnect();
    const auto before = board->recordGet("Wdr", 0, "curve");
    wdr.pGroupBoxCurves->findChildren<QRadioButton*>().first()->click();
    EXPECT_EQ(board->recordGet("Wdr", 0, "curve"), before);
    EXPECT_EQ(status(), "Not sent: the board's values had not been read yet");
    EXPECT_TRUE(wdr.pGroupBoxCurves->findChildren<QRadioButton*>()[3]->isChecked());
}
