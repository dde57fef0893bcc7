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

#include <QComboBox>

using board::Fault;
using rest::Dnr2;

namespace
{
enum Id
{
    Cnr2ConfigSet = 4001002,
    Dnr2ConfigSet = 4001502,
    Dnr2EnableSet = 4001504,
    Dnr3ConfigGet = 4001601,
    Dnr3EnableGet = 4001603,
    Dnr3EnableSet,
    DpccConfigGet = 4001701,
    DpccConfigSet,
    DpccEnableSet = 4001704,
    DpfConfigSet = 4001802,
    DpfEnableSet = 4001804
};

class NoisePagesTest : public BoardTest
{
protected:
    template <class Page>
    Page& shown(const char* name)
    {
        return dynamic_cast<Page&>(page(name));
    }

    void boardSwitch(int64_t id, int generation, bool isEnable)
    {
        Json::Value query;
        query["function"] = "test";
        query["id"] = Json::Int64(id);
        if (generation >= 0)
            query["generation"] = generation;
        query["enable"] = isEnable;
        EXPECT_EQ(board->execute(query)["error"].asInt(), 0);
    }

    void refresh() { emit pMainWindow->refresh(); }
};
} // namespace

TEST_F(NoisePagesTest, StaticOpacityGivesWayInASecondRecord)
{
    boardSwitch(Dnr2EnableSet, Dnr2::V5, false);
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
        EXPECT_EQ(sentConfig.v5.blendOpacity._static, i == 0 ? 30 : 20) << "as it stood, then as it was corrected";
        EXPECT_EQ(sentConfig.v5.blendOpacity.moving, 20);
    }
}

TEST_F(NoisePagesTest, FrameFreesItsInnerPagesWhileItsModuleIsOff)
{
    auto& v3 = shown<Dnr3V3Widget>("3D Noise Reduction 3");
    EXPECT_TRUE(v3.pTnrParamWidget->isEnabled() && v3.pDnr2V5Widget->isEnabled());
    boardSwitch(Dnr3EnableSet, 1, true);
    refresh();
    EXPECT_FALSE(v3.pTnrParamWidget->isEnabled() || v3.pDnr2V5Widget->isEnabled());
    EXPECT_TRUE(v3.pCheckBoxEnable->isChecked());
    EXPECT_EQ(led().toolTip(), "2DNR v5 ON") << "of the inner page";

    boardSwitch(Dnr3EnableSet, 2, true);
    board->requestsClear();
    auto& v32 = shown<Dnr3V32Widget>("3D Noise Reduction 3.2");
    EXPECT_TRUE(v32.pTnr2ParamWidget->isEnabled() && v32.pDnr2V5Widget->isEnabled());
    EXPECT_EQ(sent(Dnr3EnableGet), 0u);
    EXPECT_EQ(sent(Dnr3ConfigGet), 4u) << "the frame and the temporal page, twice each";
    for (const auto* pBox : {v3.pCheckBoxEnable, v3.pCheckBoxNoiseCurveEnable, v32.pCheckBoxEnable})
        EXPECT_TRUE(pBox->isHidden());
}

TEST_F(NoisePagesTest, InnerPagesStandWhereThereIsRoom)
{
    auto& frame = shown<Dnr3V3Widget>("3D Noise Reduction 3");
    const auto isBeside = [&]
    {
        QApplication::processEvents();
        const auto temporal = frame.pTnrParamWidget->geometry();
        const auto spatial = frame.pDnr2V5Widget->geometry();
        return temporal.top() == spatial.top() && temporal.right() < spatial.left();
    };
    frame.setFixedWidth(1200);
    EXPECT_TRUE(isBeside());
    frame.setFixedWidth(450);
    EXPECT_FALSE(isBeside());
    EXPECT_LT(frame.pTnrParamWidget->geometry().bottom(), frame.pDnr2V5Widget->geometry().top());
    frame.setFixedWidth(1200);
    EXPECT_TRUE(isBeside());
}

TEST_F(NoisePagesTest, LumaOrChromaNoiseReductionStaysOn)
{
    auto& cnr = shown<Cnr2Widget>("Color Noise Reduction 2");
    EXPECT_FALSE(cnr.pSliderSpinWidgetBit->isEnabled());
    cnr.pCheckBoxYnrEnable->click();
    EXPECT_EQ(sent(Cnr2ConfigSet), 1u);
    EXPECT_TRUE(cnr.pSliderSpinWidgetBit->isEnabled() && cnr.pDoubleSpinBoxMerge3->isEnabled());
    cnr.pCheckBoxCnrEnable->click();
    EXPECT_EQ(status(), "Cannot disable YNR and CNR both!");
    EXPECT_TRUE(cnr.pCheckBoxCnrEnable->isChecked());
    EXPECT_EQ(sent(Cnr2ConfigSet), 1u);
    EXPECT_TRUE(cnr.pSliderSpinWidgetBit->isEnabled()) << "as before";
    refresh();
    EXPECT_FALSE(cnr.pSliderSpinWidgetBit->isEnabled()) << "the other one is on";
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
    board->faultSet({Fault::Error, DpfConfigSet});
    dpf.pCheckBoxEnable->click();
    EXPECT_EQ(sent(DpfEnableSet), 0u) << "not with other values";
    EXPECT_TRUE(dpf.pGroupBoxStrength->isEnabled());
    board->faultsClear();
    dpf.pCheckBoxEnable->click(); // off, and on again
    board->requestsClear();
    dpf.pCheckBoxEnable->click();
    const auto requests = board->requests();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].id, DpfEnableSet);
    const auto& query = requests[0].query;
    EXPECT_EQ(query["adaptive"], false);
    const std::pair<const char*, double> expected[] = {{"gradient", 1.25}, {"offset", -2.5},   {"min", 3.75},
                                                       {"div", 5},         {"sigma.green", 6}, {"sigma.red.blue", 7}};
    for (const auto& [key, value] : expected)
        EXPECT_EQ(query[key].asDouble(), value) << key;
}

TEST_F(NoisePagesTest, DefectSetsAreNumberedFromOne)
{
    boardSwitch(DpccEnableSet, -1, false);
    auto& dpcc = shown<DpccWidget>("Defect Pixel Cluster Correction");
    const std::pair<uint32_t, const char*> rows[] = {{6, "set6"}, {0, ""}, {1, "set1"}, {7, ""}, {0xFFFFFFFF, ""}};
    for (const auto& [index, text] : rows)
    {
        answerSet(DpccConfigGet, "config", rest::Dpcc::Config{index});
        refresh();
        EXPECT_EQ(dpcc.pComboBoxSet->currentText(), text) << index;
    }
    board->faultSet({Fault::Error, DpccEnableSet});
    dpcc.pCheckBoxEnable->click();
    EXPECT_FALSE(dpcc.pComboBoxSet->isEnabled()) << "after a failure too";
    EXPECT_TRUE(status().startsWith("Server: "));
}
