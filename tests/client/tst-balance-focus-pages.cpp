// What the pages of white balance, focus and stabilisation do beside their rows.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/module/af-widget.h"
#include "tuning-client/source/module/avs-widget.h"
#include "tuning-client/source/module/awb-widget.h"
#include "tuning-client/source/module/wb-widget.h"
#include "tuning-rest/source/awb.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

using board::Fault;
using rest::Awb;
using rest::Wb;

namespace
{
class BalanceFocusTest : public BoardTest
{
protected:
    /// The page reads this answer.
    void read(int64_t id, const char* key, const Json::Value& value)
    {
        board->answerSet(id, key, value);
        emit pMainWindow->refresh();
    }
};
} // namespace

TEST_F(BalanceFocusTest, AutoWhiteBalanceGetsItsSettingsBeforeItRuns)
{
    auto& widget = shown<AwbWidget>("Auto White Balance");
    EXPECT_EQ(widget.pTimer->interval(), 500);
    widget.pCheckBoxEnable->click();
    EXPECT_FALSE(widget.pTimer->isActive());
    EXPECT_TRUE(widget.pComboBoxIllumination->isEnabled());
    widget.pComboBoxMode->setCurrentText("Manual");
    widget.pComboBoxIllumination->setCurrentText("F11");
    widget.pCheckBoxDampingEnable->setChecked(false);

    board->faultSet({Fault::Error, "Awb::configSet"_id});
    widget.pCheckBoxEnable->click();
    EXPECT_EQ(sent("Awb::enableSet"_id), 1u) << "what the board did not take it does not run with";
    EXPECT_TRUE(widget.pComboBoxIllumination->isEnabled());
    board->faultsClear();
    widget.pCheckBoxEnable->setChecked(false);
    widget.pCheckBoxEnable->setChecked(true);
    const auto taken = record<Awb::Config>("Awb");
    EXPECT_EQ(taken.illuminationProfileIndex, 3);
    EXPECT_FALSE(taken.isAuto);
    EXPECT_FALSE(taken.isDamping);
    EXPECT_TRUE(widget.pTimer->isActive());
    EXPECT_FALSE(widget.pComboBoxIllumination->isEnabled());

    read("Awb::enableGet"_id, "enable", true);
    EXPECT_TRUE(widget.pTimer->isActive());
    read("Awb::enableGet"_id, "enable", false);
    EXPECT_FALSE(widget.pTimer->isActive());
}

TEST_F(BalanceFocusTest, ProfilesAreHeldToTheRecord)
{
    auto& box = *shown<AwbWidget>("Auto White Balance").pComboBoxIllumination;
    auto settings = record<Awb::Config>("Awb");
    std::memset(settings.profilesName[9], 'x', sizeof settings.profilesName[9]);
    settings.illuminationProfileIndex = 9;
    for (const auto& [told, shown] : {std::pair(0, 0), {-1, 0}, {1000, 10}})
    {
        settings.profilesCount = told;
        read("Awb::configGet"_id, "config", t_common::Base64::encode(settings));
        EXPECT_EQ(box.count(), shown);
    }
    EXPECT_EQ(box.currentText(), QString(20, 'x'));
    EXPECT_GE(box.sizeHint().width(), box.fontMetrics().horizontalAdvance(box.currentText())) << "cut";
}

TEST_F(BalanceFocusTest, ProjectionsAreShownOrLeftOut)
{
    auto& widget = shown<AwbWidget>("Auto White Balance");
    ASSERT_TRUE(waitUntil([&] { return widget.pLineEditRgMaxSky->text() == "0.450"; }));
    EXPECT_EQ(widget.pLineEditRgIndoor->text(), "0.050");
    EXPECT_EQ(widget.pLineEditRgOutdoor->text(), "0.250");
    EXPECT_EQ(widget.pLineEditRgMax->text(), "0.600");
    answerSet("Awb::statusGet"_id, "status", Awb::Status{9.9994, 9.9996, -0.5, qQNaN()});
    tick(widget.pTimer);
    EXPECT_EQ(widget.pLineEditRgIndoor->text(), "9.999");
    for (const auto* pLineEdit : {widget.pLineEditRgMax, widget.pLineEditRgMaxSky, widget.pLineEditRgOutdoor})
    {
        EXPECT_EQ(pLineEdit->text(), ".") << "no other number";
        EXPECT_FALSE(pLineEdit->isEnabled());
    }
}

TEST_F(BalanceFocusTest, WhiteBalanceFollowsWhatTheAutoChooses)
{
    auto& widget = shown<WbWidget>("White Balance");
    EXPECT_EQ(widget.pTimer->interval(), 500);
    auto* pBlue = widget.pSliderSpinWidgetBlue->findChild<QDoubleSpinBox*>();
    auto* pRed = widget.pSliderSpinWidgetRed->findChild<QDoubleSpinBox*>();
    auto settings = record<Wb::Config>("Wb");
    settings.wbGains.Blue = 2.25f;
    settings.ccMatrix.Coeff[7] = -0.5f;
    recordSet("Wb", settings);
    EXPECT_FALSE(pBlue->font().bold());
    ASSERT_TRUE(waitUntil([&] { return pBlue->value() == 2.25; }));
    EXPECT_EQ(widget.pDoubleSpinBoxBlue2->value(), -0.5);
    EXPECT_FALSE(widget.isEnabled());
    EXPECT_TRUE(pBlue->font().bold()) << "a change is seen on a greyed control";
    EXPECT_FALSE(pRed->font().bold());
    tick(widget.pTimer);
    EXPECT_FALSE(pBlue->font().bold()) << "it has settled";
    settings.wbGains.Red = 3;
    recordSet("Wb", settings);
    read("Awb::enableGet"_id, "enable", false);
    EXPECT_FALSE(pRed->font().bold()) << "no longer the auto's";
    EXPECT_FALSE(widget.pTimer->isActive());
    EXPECT_TRUE(widget.isEnabled());

    // Greyed before its values are asked for: a failure there does not free it.
    board->faultSet({Fault::Error, "Wb::configGet"_id});
    read("Awb::enableGet"_id, "enable", true);
    EXPECT_FALSE(widget.isEnabled());
    EXPECT_TRUE(widget.pTimer->isActive());
    board->faultsClear();
    read("Awb::enableGet"_id, "enable", false);
}

TEST_F(BalanceFocusTest, FocusMayBeMissingAndKeepsItsBox)
{
    auto& widget = shown<AfWidget>("Auto Focus");
    board->requestsClear();
    read("Af::availableGet"_id, "available", false);
    EXPECT_FALSE(widget.isEnabled());
    EXPECT_EQ(sent("Af::enableGet"_id) + sent("Af::configGet"_id), 2u) << "asked all the same";
    read("Af::availableGet"_id, "available", true);
    EXPECT_TRUE(widget.isEnabled());

    for (const unsigned algorithm : {4u, 4294967295u, 0u})
    {
        read("Af::configGet"_id, "algorithm", algorithm);
        EXPECT_EQ(widget.pComboBoxSearchAlgorithm->currentIndex(), -1) << algorithm;
    }
    widget.pCheckBoxOneshot->click();
    EXPECT_EQ(lastQuery("Af::configSet"_id)["algorithm"], 0);

    board->faultSet({Fault::Error, "Af::enableSet"_id});
    widget.pCheckBoxEnable->click();
    emit pMainWindow->refresh();
    EXPECT_TRUE(widget.pCheckBoxEnable->isChecked()) << "no read sets it";
    EXPECT_TRUE(widget.pCheckBoxOneshot->isEnabled());
}

TEST_F(BalanceFocusTest, StabilisationGreysByReadBySwitchAndByGroupBox)
{
    auto& widget = shown<AvsWidget>("Auto Video Stabilization");
    const auto* pTheta = widget.pSliderSpinWidgetDampTheta;
    const auto& group = *widget.pGroupBoxUseParams;
    for (const bool isEnable : {false, true})
        for (const bool isUseParams : {false, true})
        {
            SCOPED_TRACE(std::string(isEnable ? "on" : "off") + (isUseParams ? ", by parameters" : ""));
            board->answerSet("Avs::enableGet"_id, "enable", isEnable);
            read("Avs::configGet"_id, "use.params", isUseParams);
            EXPECT_EQ(widget.pTimer->isActive(), isEnable);
            EXPECT_EQ(group.isEnabled(), isEnable);
            EXPECT_EQ(group.isChecked(), isUseParams);
            EXPECT_EQ(pTheta->isEnabled(), isEnable && isUseParams);
            EXPECT_EQ(str(widget.pPlotDamp->title().text()),
                      isUseParams ? "Damping function (from parameters)" : "Damping function (explicit itp. pts)");
        }
    widget.pCheckBoxEnable->click();
    EXPECT_TRUE(group.isEnabled());
    EXPECT_FALSE(widget.pTimer->isActive());
}

TEST_F(BalanceFocusTest, StabilisationShowsItsCurveAndItsStatus)
{
    auto& widget = shown<AvsWidget>("Auto Video Stabilization");
    EXPECT_EQ(widget.pTimer->interval(), 1000);
    EXPECT_EQ(widget.pLabelDisplacement->text(), "Not Found");
    tick(widget.pTimer);
    EXPECT_EQ(widget.pLabelDisplacement->text(), "+3,-2");
    EXPECT_EQ(widget.pLabelOffset->text(), "+12,+8");

    const auto& curve = *widget.pPlotCurveDamp;
    for (const auto& [told, shown] : {std::pair(0, 0u), {-1, 0u}, {7, 7u}, {1000, 50u}})
    {
        read("Avs::configGet"_id, "count", told);
        EXPECT_EQ(curve.dataSize(), shown) << told;
    }
    EXPECT_EQ(curve.sample(1), QPointF(0.0204, 0.5002));
    // A label at each tenth, or at each second one where there is no room for that.
    auto& plot = *widget.pPlotDamp;
    const auto labels = [&](const QSize& size)
    {
        QResizeEvent resized(size, {});
        plot.resize(size);
        QApplication::sendEvent(&plot, &resized);
        return plot.axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick).size();
    };
    EXPECT_EQ(labels(3 * plot.minimumSize()), 13);
    EXPECT_EQ(labels(plot.minimumSize()), 6);
}
