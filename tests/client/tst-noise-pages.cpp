// What the pages of noise reduction and defects do beside their rows.

#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tuning-client/source/module/cnr2-widget.h"
#include "tuning-client/source/module/dnr2-v5-widget.h"
#include "tuning-client/source/module/dnr3-v3-widget.h"
#include "tuning-client/source/module/dnr3-v32-widget.h"
#include "tuning-client/source/module/dpcc-widget.h"
#include "tuning-client/source/module/dpf-widget.h"
#include "tuning-client/source/module/tnr-param-widget.h"
#include "tuning-client/source/module/tnr2-param-widget.h"
#include "tuning-rest/source/dpcc.h"

#include <cstdlib>

using board::Fault;
using rest::Dnr2;

namespace
{
using NoisePagesTest = BoardTest;
} // namespace

TEST_F(NoisePagesTest, StaticOpacityGivesWayInASecondRecord)
{
    boardSwitch("Dnr2::enableSet"_id, false, Dnr2::V5);
    auto& dnr = shown<Dnr2V5Widget>("2D Noise Reduction 5");
    board->requestsClear();
    type(dnr.sliderSpinWidgets[Dnr2V5Widget::BlendOpacityStatic], "30");
    EXPECT_EQ(dnr.sliderSpinWidgets[Dnr2V5Widget::BlendOpacityStatic]->value(), 20);
    const auto requests = board->requests();
    ASSERT_EQ(requests.size(), 2u);
    for (int i : {0, 1})
    {
        auto sentConfig = rest::recordZero<Dnr2::Config>();
        t_common::Base64::decode(requests[size_t(i)].query["config"].asString(), sentConfig);
        EXPECT_EQ(sentConfig.v5.blendOpacity._static, i == 0 ? 30 : 20) << "record " << i;
        EXPECT_EQ(sentConfig.v5.blendOpacity.moving, 20);
    }
}

// One failure, one limit of time: nothing follows a record that was not sent.
TEST_F(NoisePagesTest, PairThatIsNotSentIsNotCorrectedEither)
{
    boardSwitch("Dnr2::enableSet"_id, false, Dnr2::V5);
    auto& dnr = shown<Dnr2V5Widget>("2D Noise Reduction 5");
    reconnect();
    type(dnr.sliderSpinWidgets[Dnr2V5Widget::BlendOpacityStatic], "30");
    EXPECT_EQ(status(), "Not sent: the board's values had not been read yet");
    QApplication::processEvents();
    board->faultSet({Fault::Error, "Dnr2::configSet"_id});
    type(dnr.sliderSpinWidgets[Dnr2V5Widget::BlendOpacityStatic], "30");
    EXPECT_EQ(sent("Dnr2::configSet"_id), 1u);
}

TEST_F(NoisePagesTest, FrameFreesItsInnerPagesWhileItsModuleIsOff)
{
    auto& v3 = shown<Dnr3V3Widget>("3D Noise Reduction 3");
    EXPECT_TRUE(v3.pTnrParamWidget->isEnabled() && v3.pDnr2V5Widget->isEnabled());
    boardSwitch("Dnr3::enableSet"_id, true, 1);
    board->requestsClear();
    refresh();
    EXPECT_FALSE(v3.pTnrParamWidget->isEnabled() || v3.pDnr2V5Widget->isEnabled());
    EXPECT_TRUE(v3.pCheckBoxEnable->isChecked());
    EXPECT_EQ(sent("Dnr3::configGet"_id), 2u) << "the frame and the temporal page";

    boardSwitch("Dnr3::enableSet"_id, true, 2);
    auto& v32 = shown<Dnr3V32Widget>("3D Noise Reduction 3.2");
    board->requestsClear();
    refresh();
    EXPECT_TRUE(v32.pTnr2ParamWidget->isEnabled() && v32.pDnr2V5Widget->isEnabled());
    EXPECT_TRUE(v32.pCheckBoxEnable->isChecked());
    EXPECT_EQ(sent("Dnr3::enableGet"_id), 0u);
    EXPECT_EQ(sent("Dnr3::configGet"_id), 2u);
    for (const auto& request : board->requests())
        EXPECT_TRUE(request.id != "Dnr3::configGet"_id || request.query["generation"] == 2);
    for (const auto* pBox : {v3.pCheckBoxEnable, v3.pCheckBoxNoiseCurveEnable, v32.pCheckBoxEnable})
        EXPECT_TRUE(pBox->isHidden());
}

TEST_F(NoisePagesTest, TemporalFiltersShowTheSwitchOfTheirRecord)
{
    const auto switchedExpect = [this](EnableAutoLevelSliderAbstractWidget& temporal, bool isSliderFree)
    {
        temporal.pCheckBoxEnable->click();
        refresh();
        EXPECT_TRUE(temporal.pCheckBoxEnable->isChecked());
        EXPECT_FALSE(temporal.pPushButtonRest->isEnabled());
        EXPECT_EQ(temporal.sliderSpinWidgets[0]->isEnabled(), isSliderFree);
        const auto* pLevel = temporal.pSliderSpinWidgetLevel->findChild<QDoubleSpinBox*>();
        EXPECT_EQ(pLevel->decimals(), 1);
        EXPECT_EQ(pLevel->minimum(), 1);
        EXPECT_EQ(pLevel->maximum(), 3);
    };
    switchedExpect(*shown<Dnr3V3Widget>("3D Noise Reduction 3").pTnrParamWidget, true);
    switchedExpect(*shown<Dnr3V32Widget>("3D Noise Reduction 3.2").pTnr2ParamWidget, false);
}

TEST_F(NoisePagesTest, LedOfAFrameComesBackAfterAFailureBesideIt)
{
    auto& v3 = shown<Dnr3V3Widget>("3D Noise Reduction 3");
    EXPECT_EQ(led().toolTip(), "2DNR v5 ON");
    v3.pTnrParamWidget->pPushButtonRest->click();
    EXPECT_EQ(led().toolTip(), "2DNR v5 ON");
    board->faultSet({Fault::Error, "Dnr3::configGet"_id});
    v3.pTnrParamWidget->pPushButtonRest->click();
    EXPECT_EQ(led().toolTip(), "");
    board->faultsClear();
    v3.pTnrParamWidget->pPushButtonRest->click();
    EXPECT_EQ(led().toolTip(), "2DNR v5 ON");
}

TEST_F(NoisePagesTest, InnerPagesStandWhereThereIsRoom)
{
    auto& frame = shown<Dnr3V3Widget>("3D Noise Reduction 3");
    const auto* pArea = frame.findChild<QScrollArea*>();
    int stacked = 0;
    for (int step = -20; step <= 20; ++step)
    {
        SCOPED_TRACE(step);
        frame.setFixedSize(1500 - 50 * std::abs(step), 300);
        QApplication::processEvents();
        const auto temporal = frame.pTnrParamWidget->geometry();
        const auto spatial = frame.pDnr2V5Widget->geometry();
        const bool isBeside = temporal.top() == spatial.top() && temporal.right() < spatial.left();
        EXPECT_TRUE(isBeside || temporal.bottom() < spatial.top());
        EXPECT_TRUE(isBeside || frame.width() < 1000);
        stacked += !isBeside;
        EXPECT_EQ(pArea->horizontalScrollBar()->maximum(), 0);
    }
    EXPECT_GT(stacked, 0);
    // More rows need more room, and it is the frame that scrolls.
    frame.pTnrParamWidget->pComboBoxWorkMode->setCurrentText("Auto");
    QApplication::processEvents();
    const auto* pInner = frame.pTnrParamWidget->findChild<QScrollArea*>();
    EXPECT_GE(pInner->viewport()->height(), pInner->widget()->sizeHint().height());
}

TEST_F(NoisePagesTest, LumaOrChromaNoiseReductionStaysOn)
{
    auto& cnr = shown<Cnr2Widget>("Color Noise Reduction 2");
    EXPECT_FALSE(cnr.pSliderSpinWidgetBit->isEnabled());
    for (auto* pLast : {cnr.pCheckBoxCnrEnable, cnr.pCheckBoxYnrEnable})
    {
        auto* pFirst = pLast == cnr.pCheckBoxCnrEnable ? cnr.pCheckBoxYnrEnable : cnr.pCheckBoxCnrEnable;
        board->requestsClear();
        pFirst->click();
        EXPECT_EQ(sent("Cnr2::configSet"_id), 1u);
        const auto values = cnr.pGroupBoxCnr2->findChildren<QAbstractSpinBox*>();
        EXPECT_EQ(values.size(), 14);
        for (const auto* pValue : values)
            EXPECT_TRUE(pValue->isEnabled());
        pLast->click();
        EXPECT_EQ(status(), "Cannot disable YNR and CNR both!");
        EXPECT_TRUE(pLast->isChecked());
        EXPECT_EQ(sent("Cnr2::configSet"_id), 1u);
        EXPECT_TRUE(cnr.pSliderSpinWidgetBit->isEnabled()) << "as before";
        refresh();
        for (const auto* pValue : values)
            EXPECT_FALSE(pValue->isEnabled()) << "the other one is on";
        pFirst->click();
    }
}

TEST_F(NoisePagesTest, PrefilterSendsItsValuesWhenItIsSwitchedOn)
{
    auto& dpf = shown<DpfWidget>("Denoising Prefilter");
    dpf.pDoubleSpinBoxGradient->setValue(1.25);
    dpf.pDoubleSpinBoxOffset->setValue(-2.5);
    dpf.pDoubleSpinBoxMin->setValue(3.75);
    dpf.pDoubleSpinBoxDiv->setValue(5);
    dpf.pSpinBoxGreen->setValue(6);
    dpf.pSpinBoxRedBlue->setValue(7);
    board->requestsClear();
    board->faultSet({Fault::Error, "Dpf::configSet"_id});
    dpf.pCheckBoxEnable->click();
    EXPECT_EQ(sent("Dpf::enableSet"_id), 0u) << "not with other values";
    EXPECT_TRUE(dpf.pGroupBoxStrength->isEnabled());
    board->faultsClear();
    dpf.pCheckBoxEnable->click(); // off, and on again
    board->requestsClear();
    dpf.pCheckBoxEnable->click();
    const auto requests = board->requests();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].id, "Dpf::enableSet"_id);
    const auto& query = requests[0].query;
    EXPECT_EQ(query["adaptive"], false);
    const std::pair<const char*, double> expected[] = {{"gradient", 1.25}, {"offset", -2.5},   {"min", 3.75},
                                                       {"div", 5},         {"sigma.green", 6}, {"sigma.red.blue", 7}};
    for (const auto& [key, value] : expected)
        EXPECT_EQ(query[key].asDouble(), value) << key;
}

TEST_F(NoisePagesTest, DefectSetsAreNumberedFromOne)
{
    boardSwitch("Dpcc::enableSet"_id, false);
    auto& dpcc = shown<DpccWidget>("Defect Pixel Cluster Correction");
    const std::pair<uint32_t, const char*> rows[] = {{6, "set6"}, {0, ""}, {1, "set1"}, {7, ""}, {0xFFFFFFFF, ""}};
    for (const auto& [index, text] : rows)
    {
        answerSet("Dpcc::configGet"_id, "config", rest::Dpcc::Config{index});
        refresh();
        EXPECT_EQ(dpcc.pComboBoxSet->currentText(), text) << index;
    }
    dpcc.configSet();
    EXPECT_EQ(record<rest::Dpcc::Config>("Dpcc").index_set, 6u) << "of an empty box";
}
