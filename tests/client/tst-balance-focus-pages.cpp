// What the pages of white balance, focus and stabilisation do beside their rows.

#include "tests/support/board-fixture.h"
#include "tests/support/files.h"
#include "tuning-client/source/module/af-widget.h"
#include "tuning-client/source/module/avs-widget.h"
#include "tuning-client/source/module/awb-widget.h"
#include "tuning-client/source/module/wb-widget.h"
#include "tuning-rest/source/awb.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

using board::Fault;
using rest::Awb;
using rest::Wb;

namespace
{
enum Id
{
    AfAvailableGet = 4000201,
    AfConfigGet,
    AfConfigSet,
    AfEnableGet,
    AfEnableSet,
    AvsConfigGet = 4000401,
    AvsEnableGet = 4000403,
    AvsEnableSet,
    AvsStatusGet,
    AwbConfigGet = 4000501,
    AwbConfigSet,
    AwbEnableGet,
    AwbEnableSet,
    AwbReset,
    AwbStatusGet,
    WbConfigSet = 4003002
};

class BalanceFocusTest : public BoardTest
{
protected:
    template <class Page>
    Page& shown(const char* name)
    {
        return dynamic_cast<Page&>(page(name));
    }

    /// The page as it is with that answer.
    void readWith(int64_t id, const char* key, const Json::Value& value)
    {
        board->answerSet(id, key, value);
        emit pMainWindow->refresh();
    }

    void awbSet(bool isEnable) { readWith(AwbEnableGet, "enable", isEnable); }

    template <class Record>
    void recordSet(const char* className, const Record& value)
    {
        board->recordSet(className, 0, std::string(reinterpret_cast<const char*>(&value), sizeof value));
    }

    static void tick(QTimer* pTimer) { QMetaObject::invokeMethod(pTimer, "timeout"); }
};
} // namespace

TEST_F(BalanceFocusTest, AutoWhiteBalanceGetsItsSettingsBeforeItRuns)
{
    auto& widget = shown<AwbWidget>("Auto White Balance");
    EXPECT_EQ(widget.pTimer->interval(), 500);
    EXPECT_TRUE(widget.pTimer->isActive());
    widget.pCheckBoxEnable->click();
    EXPECT_FALSE(widget.pTimer->isActive());
    const auto controls = {static_cast<QWidget*>(widget.pComboBoxMode),
                           static_cast<QWidget*>(widget.pComboBoxIllumination),
                           static_cast<QWidget*>(widget.pCheckBoxDampingEnable)};
    const auto freeExpect = [&](bool isFree)
    {
        for (const auto* pControl : controls)
            EXPECT_EQ(pControl->isEnabled(), isFree);
    };
    freeExpect(true);
    widget.pComboBoxMode->setCurrentText("Manual");
    widget.pComboBoxIllumination->setCurrentText("F11");
    widget.pCheckBoxDampingEnable->setChecked(false);

    // What the board did not take it does not run with.
    board->requestsClear();
    board->faultSet({Fault::Error, AwbConfigSet});
    widget.pCheckBoxEnable->click();
    EXPECT_EQ(sent(AwbEnableSet), 0u);
    EXPECT_FALSE(widget.pTimer->isActive());
    freeExpect(true);
    board->faultsClear();
    widget.pCheckBoxEnable->setChecked(false);
    widget.pCheckBoxEnable->setChecked(true);
    const auto taken = record<Awb::Config>("Awb");
    EXPECT_EQ(taken.illuminationProfileIndex, 3);
    EXPECT_FALSE(taken.isAuto);
    EXPECT_FALSE(taken.isDamping);
    EXPECT_TRUE(widget.pTimer->isActive());
    freeExpect(false);

    board->requestsClear();
    widget.pPushButtonReset->click();
    EXPECT_EQ(sent(AwbReset), 1u);
    EXPECT_EQ(widget.pComboBoxIllumination->currentText(), "D50") << "read again";
}

TEST_F(BalanceFocusTest, ProfilesAreHeldToTheRecord)
{
    auto& widget = shown<AwbWidget>("Auto White Balance");
    QApplication::processEvents(); // laid out
    auto settings = record<Awb::Config>("Awb");
    std::memset(settings.profilesName[9], 'x', sizeof settings.profilesName[9]);
    settings.profilesCount = 1000;
    settings.illuminationProfileIndex = 9;
    answerSet(AwbConfigGet, "config", settings);
    emit pMainWindow->refresh();
    EXPECT_EQ(widget.pComboBoxIllumination->count(), 10);
    EXPECT_EQ(widget.pComboBoxIllumination->currentText(), QString(20, 'x'));
    EXPECT_GE(widget.pComboBoxIllumination->sizeHint().width(),
              widget.fontMetrics().horizontalAdvance(QString(20, 'x')));
    for (const int count : {0, -1})
    {
        settings.profilesCount = count;
        answerSet(AwbConfigGet, "config", settings);
        emit pMainWindow->refresh();
        EXPECT_EQ(widget.pComboBoxIllumination->count(), 0);
    }
}

TEST_F(BalanceFocusTest, ProjectionsAreShownOrLeftOut)
{
    auto& widget = shown<AwbWidget>("Auto White Balance");
    ASSERT_TRUE(waitUntil([&] { return widget.pLineEditRgMaxSky->text() == "0.450"; }));
    EXPECT_EQ(widget.pLineEditRgIndoor->text(), "0.050");
    EXPECT_EQ(widget.pLineEditRgOutdoor->text(), "0.250");
    EXPECT_EQ(widget.pLineEditRgMax->text(), "0.600");
    answerSet(AwbStatusGet, "status", Awb::Status{9.9994, 9.9996, -0.5, qQNaN()});
    tick(widget.pTimer);
    EXPECT_EQ(widget.pLineEditRgIndoor->text(), "9.999");
    for (const auto* pLineEdit : {widget.pLineEditRgMax, widget.pLineEditRgMaxSky, widget.pLineEditRgOutdoor})
        EXPECT_EQ(pLineEdit->text(), ".") << "no other number";

    board->faultSet({Fault::Error, AwbStatusGet, -1, 0, "not now"});
    tick(widget.pTimer);
    EXPECT_EQ(status(), "Server: not now");
    EXPECT_TRUE(widget.pTimer->isActive()) << "the next tick tries again";
}

TEST_F(BalanceFocusTest, WhiteBalanceFollowsWhatTheAutoChooses)
{
    auto& widget = shown<WbWidget>("White Balance");
    EXPECT_EQ(widget.pTimer->interval(), 500);
    EXPECT_FALSE(widget.isEnabled());
    const auto isStressed = [](const SliderSpinWidget* pSlider)
    { return pSlider->findChild<QDoubleSpinBox*>()->font().bold(); };
    EXPECT_FALSE(isStressed(widget.pSliderSpinWidgetBlue));
    auto settings = record<Wb::Config>("Wb");
    settings.wbGains.Blue = 2.25f;
    settings.ccMatrix.Coeff[7] = -0.5f;
    recordSet("Wb", settings);
    ASSERT_TRUE(waitUntil([&] { return widget.pSliderSpinWidgetBlue->value() == 2.25; }));
    EXPECT_EQ(widget.pDoubleSpinBoxBlue2->value(), -0.5);
    EXPECT_TRUE(isStressed(widget.pSliderSpinWidgetBlue)) << "a change is seen on a greyed control";
    EXPECT_FALSE(isStressed(widget.pSliderSpinWidgetRed));
    EXPECT_FALSE(widget.isEnabled());
    tick(widget.pTimer);
    EXPECT_FALSE(isStressed(widget.pSliderSpinWidgetBlue)) << "it has settled";
    settings.wbGains.Red = 3;
    recordSet("Wb", settings);
    awbSet(false);
    EXPECT_FALSE(isStressed(widget.pSliderSpinWidgetRed)) << "no longer the auto's";
    EXPECT_FALSE(widget.pTimer->isActive());
    EXPECT_TRUE(widget.isEnabled());

    // The auto takes over while the user types: his text is not for the board.
    pMainWindow->activateWindow();
    auto* pBox = widget.pSliderSpinWidgetRed->findChild<QDoubleSpinBox*>();
    pBox->setFocus();
    ASSERT_TRUE(waitUntil([&] { return pBox->hasFocus(); }));
    pBox->selectAll();
    QTest::keyClicks(pBox, "1.5");
    awbSet(true);
    EXPECT_EQ(pBox->value(), 3);
    EXPECT_EQ(sent(WbConfigSet), 0u);
    EXPECT_TRUE(widget.pTimer->isActive());
}

TEST_F(BalanceFocusTest, FocusThatIsNotThereGreysThePage)
{
    auto& widget = shown<AfWidget>("Auto Focus");
    board->requestsClear();
    readWith(AfAvailableGet, "available", false);
    EXPECT_FALSE(widget.isEnabled());
    EXPECT_EQ(sent(AfEnableGet), sent(AfAvailableGet)) << "the rest is asked all the same";
    EXPECT_EQ(sent(AfConfigGet), sent(AfAvailableGet));
    EXPECT_EQ(led().toolTip(), "AF OFF");
    readWith(AfAvailableGet, "available", true);
    EXPECT_TRUE(widget.isEnabled());
}

TEST_F(BalanceFocusTest, FocusKeepsItsBoxAndAnAlgorithmWithoutAName)
{
    auto& widget = shown<AfWidget>("Auto Focus");
    for (const unsigned algorithm : {4u, 4294967295u, 0u})
    {
        readWith(AfConfigGet, "algorithm", algorithm);
        EXPECT_EQ(widget.pComboBoxSearchAlgorithm->currentIndex(), -1) << algorithm;
    }
    widget.pCheckBoxOneshot->click();
    EXPECT_EQ(lastQuery(AfConfigSet)["algorithm"], 0);

    board->faultSet({Fault::Error, AfEnableSet});
    widget.pCheckBoxEnable->click();
    EXPECT_FALSE(widget.pCheckBoxOneshot->isEnabled()) << "after a failure as well";
    EXPECT_FALSE(widget.pComboBoxSearchAlgorithm->isEnabled());
    emit pMainWindow->refresh();
    EXPECT_TRUE(widget.pCheckBoxEnable->isChecked()) << "no read sets it";
    EXPECT_TRUE(widget.pComboBoxSearchAlgorithm->isEnabled());
}

// Read, switch and group box each have a rule of their own.
TEST_F(BalanceFocusTest, StabilisationGreysItsParametersByThreeRules)
{
    auto& widget = shown<AvsWidget>("Auto Video Stabilization");
    const auto* pSlider = widget.pSliderSpinWidgetDampTheta;
    const auto* pTheta = pSlider->findChild<QDoubleSpinBox*>();
    EXPECT_EQ(widget.pTimer->interval(), 1000);
    for (const bool isEnable : {false, true})
        for (const bool isUseParams : {false, true})
        {
            SCOPED_TRACE(std::string(isEnable ? "on" : "off") + (isUseParams ? ", by parameters" : ""));
            board->answerSet(AvsEnableGet, "enable", isEnable);
            readWith(AvsConfigGet, "use.params", isUseParams);
            EXPECT_EQ(widget.pTimer->isActive(), isEnable);
            EXPECT_EQ(widget.pGroupBoxUseParams->isEnabled(), isEnable);
            EXPECT_EQ(widget.pGroupBoxUseParams->isChecked(), isUseParams);
            EXPECT_EQ(pTheta->isEnabled(), isEnable && isUseParams);
            EXPECT_EQ(str(widget.pPlotDamp->title().text()),
                      isUseParams ? "Damping function (from parameters)" : "Damping function (explicit itp. pts)");
        }
    widget.pGroupBoxUseParams->setChecked(false);
    EXPECT_TRUE(pTheta->isEnabled()) << "until the next read";
    widget.pGroupBoxUseParams->setChecked(true);
    EXPECT_FALSE(pTheta->isEnabled());

    widget.pCheckBoxEnable->click();
    EXPECT_TRUE(widget.pGroupBoxUseParams->isEnabled());
    EXPECT_FALSE(widget.pTimer->isActive());
    board->faultSet({Fault::Error, AvsEnableSet});
    widget.pCheckBoxEnable->click();
    EXPECT_FALSE(widget.pGroupBoxUseParams->isEnabled()) << "after a failure as well";
    EXPECT_FALSE(widget.pTimer->isActive());
}

TEST_F(BalanceFocusTest, StabilisationShowsItsCurveAndItsStatus)
{
    auto& widget = shown<AvsWidget>("Auto Video Stabilization");
    EXPECT_EQ(widget.pLabelDisplacement->text(), "Not Found");
    ASSERT_TRUE(waitUntil([&] { return widget.pLabelDisplacement->text() == "+3,-2"; }));
    EXPECT_EQ(widget.pLabelOffset->text(), "+12,+8");

    const auto& curve = *widget.pPlotCurveDamp;
    ASSERT_EQ(curve.dataSize(), 50u);
    EXPECT_EQ(curve.sample(1), QPointF(0.0204, 0.5002));
    const std::pair<int, size_t> counts[] = {{7, 7}, {1000, 50}, {0, 0}, {-1, 0}};
    for (const auto& [told, points] : counts)
    {
        readWith(AvsConfigGet, "count", told);
        EXPECT_EQ(curve.dataSize(), points) << told;
    }
    // A label at each tenth, or at each second one where there is no room for that.
    auto& plot = *widget.pPlotDamp;
    const auto labels = [&](const QSize& size)
    {
        plot.resize(size);
        QResizeEvent resized(size, {});
        QApplication::sendEvent(&plot, &resized);
        return plot.axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick).size();
    };
    EXPECT_EQ(labels(3 * plot.minimumSize()), 13);
    EXPECT_EQ(labels(plot.minimumSize()), 6);
}
