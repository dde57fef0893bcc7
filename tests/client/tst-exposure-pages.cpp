#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/exposure-plot.h"
#include "tuning-client/source/control/histogram-plot.h"
#include "tuning-client/source/control/scene.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/module/ae2-widget.h"
#include "tuning-client/source/module/ec-widget.h"
#include "tuning-common/source/base64.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <qwt_plot_curve.h>
#include <qwt_plot_histogram.h>

#include <cstring>

using board::Fault;
using rest::Ae;

namespace
{
enum Id
{
    AeConfigGet = 4000101,
    AeConfigSet,
    AeEnableGet,
    AeEnableSet,
    AeReset,
    AeStatusGet,
    SensorConfigGet = 80001,
    SensorConfigSet = 80002,
    SensorStatusGet = 80007
};

class ExposurePagesTest : public BoardTest
{
protected:
    void aeEnable(bool isEnable)
    {
        for (int generation : {0, 1})
        {
            Json::Value query;
            query["function"] = "test";
            query["id"] = AeEnableSet;
            query["generation"] = generation;
            query["enable"] = isEnable;
            ASSERT_EQ(board->execute(query)["error"].asInt(), 0);
        }
    }

    template <class Record>
    Record record(const char* className, int generation, const char* key = "config")
    {
        Record value;
        const auto bytes = board->recordGet(className, generation, key);
        EXPECT_EQ(bytes.size(), sizeof value);
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }

    template <class Record>
    void answer(Id id, const char* key, const Record& value)
    {
        board->answerSet(id, key, t_common::Base64::encode(value));
    }

    Ae::Config aeRecord(int generation) { return record<Ae::Config>("Ae", generation); }

    board::Request last(int64_t id) const
    {
        board::Request found;
        for (const auto& request : board->requests())
        {
            if (request.id == id)
                found = request;
        }
        return found;
    }

    AeWidget& ae(const char* name = "Auto Exposure") { return dynamic_cast<AeWidget&>(page(name)); }
    EcWidget& ec() { return dynamic_cast<EcWidget&>(page("Exposure Control")); }

    static void type(SliderSpinWidget* pRow, const char* text)
    {
        auto* pBox = pRow->findChild<QDoubleSpinBox*>();
        pBox->selectAll();
        QTest::keyClicks(pBox, text);
        QTest::keyClick(pBox, Qt::Key_Return);
    }

    static std::vector<double> bars(const AeWidget& widget)
    {
        std::vector<double> values;
        const auto* pHistogram =
            static_cast<QwtPlotHistogram*>(widget.pHistPlot->itemList(QwtPlotItem::Rtti_PlotHistogram).first());
        for (size_t i = 0; i < pHistogram->dataSize(); ++i)
            values.push_back(pHistogram->sample(int(i)).value);
        return values;
    }
};
} // namespace

TEST_F(ExposurePagesTest, ShowsWhatTheBoardReportsInBothGenerations)
{
    const struct
    {
        const char* name;
        int generation;
        const char* on;
        const char* off;
        Ae::Config::V1::Ecm::FlickerPeriod flickerPeriod;
        const char* flicker;
    } cases[] = {{"Auto Exposure", 0, "AE ON", "AE OFF", Ae::Config::V1::Ecm::FlickerPeriod100Hz, "100Hz"},
                 {"Auto Exposure 2", 1, "AE2 ON", "AE2 OFF", Ae::Config::V1::Ecm::FlickerPeriod120Hz, "120Hz"}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.name);
        auto settings = aeRecord(c.generation);
        settings.v1.mode = Ae::Config::V1::ModeAdaptive;
        settings.v1.ecm.flickerPeriod = c.flickerPeriod;
        settings.v1.ecm.isAfps = true;
        settings.v1.setPoint = 61.5f;
        settings.v1.tolerance = 7.5f;
        settings.v1.dampingOver = 0.25f;
        settings.v1.dampingUnder = 0.75f;
        answer(AeConfigGet, "config", settings);
        for (bool isOn : {true, false})
        {
            aeEnable(isOn);
            auto& widget = ae(c.name);
            emit pMainWindow->refresh();
            EXPECT_EQ(widget.pCheckBoxEnable->isChecked(), isOn);
            EXPECT_EQ(widget.sliderSpinWidgets[0]->isEnabled(), !isOn);
            EXPECT_EQ(widget.pPushButtonRest->isEnabled(), !isOn);
            EXPECT_EQ(widget.pSliderSpinWidgetSampleInterval->isEnabled(), !isOn);
            EXPECT_TRUE(widget.pCheckBoxEnable->isEnabled());
            EXPECT_TRUE(widget.pTabWidget->isEnabled());
            EXPECT_EQ(widget.pTimer->isActive(), isOn);
            EXPECT_EQ(led().toolTip(), isOn ? c.on : c.off);
            EXPECT_EQ(widget.pComboBoxMode->currentText(), "Adaptive (Adaptive ROI)");
            EXPECT_EQ(widget.pComboBoxFlickerPeriod->currentText(), c.flicker);
            EXPECT_TRUE(widget.pCheckBoxAfps->isChecked());
            EXPECT_EQ(widget.sliderSpinWidgets[0]->value(), 61.5);
            EXPECT_EQ(widget.sliderSpinWidgets[1]->value(), 7.5);
            EXPECT_EQ(widget.sliderSpinWidgets[2]->value(), 0.25);
            EXPECT_EQ(widget.sliderSpinWidgets[3]->value(), 0.75);
        }
        EXPECT_EQ(last(AeConfigGet).query["generation"].asInt(), c.generation);
        board->answersClear();
    }
    EXPECT_EQ(ae("Auto Exposure 2").objectName(), "Auto Exposure 2");
}

TEST_F(ExposurePagesTest, UnknownEnumeratorsLeaveTheModeAndTurnTheFlickerOff)
{
    aeEnable(false);
    auto& widget = ae();
    auto settings = aeRecord(0);
    settings.v1.mode = Ae::Config::V1::ModeFix;
    answer(AeConfigGet, "config", settings);
    emit pMainWindow->refresh();
    settings.v1.mode = Ae::Config::V1::Mode(77);
    settings.v1.ecm.flickerPeriod = Ae::Config::V1::Ecm::FlickerPeriod(77);
    answer(AeConfigGet, "config", settings);
    emit pMainWindow->refresh();
    EXPECT_EQ(widget.pComboBoxMode->currentText(), "Fix (Static ROI)");
    EXPECT_EQ(widget.pComboBoxFlickerPeriod->currentText(), "Off");
}

TEST_F(ExposurePagesTest, AChangeSendsTheWholeRecordOfItsGeneration)
{
    aeEnable(false);
    for (const char* name : {"Auto Exposure", "Auto Exposure 2"})
    {
        SCOPED_TRACE(name);
        const int generation = std::strcmp(name, "Auto Exposure") == 0 ? 0 : 1;
        auto settings = aeRecord(generation);
        settings.v1.isBypass = true;
        settings.v2.dummy = 0x12345678;
        settings.v1.setPoint = 33;
        settings.v1.mode = Ae::Config::V1::ModeFix;
        settings.v1.ecm.flickerPeriod = Ae::Config::V1::Ecm::FlickerPeriodOff;
        std::string bytes(reinterpret_cast<const char*>(&settings), sizeof settings);
        board->recordSet("Ae", generation, bytes);
        auto& widget = ae(name);
        board->requestsClear();

        type(widget.sliderSpinWidgets[0], "100.5");
        ASSERT_EQ(sent(AeConfigSet), 1u);
        const float setPoint = 100.5f;
        bytes.replace(16, 4, reinterpret_cast<const char*>(&setPoint), 4);
        EXPECT_EQ(t_common::Base64::decode(last(AeConfigSet).query["config"].asString()), bytes);
        EXPECT_EQ(last(AeConfigSet).query["generation"].asInt(), generation);
        EXPECT_EQ(last(AeConfigSet).query["function"].asString(), "rest::Ae::configSet");
        EXPECT_EQ(board->requestCount(), 1u);

        widget.pComboBoxFlickerPeriod->setCurrentIndex(2);
        EXPECT_EQ(aeRecord(generation).v1.ecm.flickerPeriod, Ae::Config::V1::Ecm::FlickerPeriod120Hz);
        board->requestsClear();
        widget.pComboBoxMode->setCurrentIndex(2);
        EXPECT_EQ(aeRecord(generation).v1.mode, Ae::Config::V1::ModeAdaptive);
        EXPECT_EQ(sent(AeConfigSet), 1u);
        EXPECT_EQ(sent(AeConfigGet), 1u) << "the page reads again after a change of mode";
        EXPECT_EQ(aeRecord(generation).v2.dummy, 0x12345678);
    }
}

TEST_F(ExposurePagesTest, EnableAndReset)
{
    for (const char* name : {"Auto Exposure", "Auto Exposure 2"})
    {
        SCOPED_TRACE(name);
        const bool isSecond = std::strcmp(name, "Auto Exposure 2") == 0;
        aeEnable(false);
        auto& widget = ae(name);
        board->requestsClear();
        widget.pCheckBoxEnable->click();
        EXPECT_EQ(sent(AeEnableSet), 1u);
        EXPECT_EQ(last(AeEnableSet).query["generation"].asInt(), isSecond ? 1 : 0);
        EXPECT_FALSE(widget.sliderSpinWidgets[0]->isEnabled());
        EXPECT_TRUE(widget.pTabWidget->isEnabled());
        EXPECT_EQ(sent(AeConfigGet), isSecond ? 1u : 0u);
        EXPECT_EQ(widget.pTimer->isActive(), isSecond) << "the first generation starts sampling at the next read";
        widget.pCheckBoxEnable->click();
        EXPECT_TRUE(widget.sliderSpinWidgets[0]->isEnabled());

        type(widget.sliderSpinWidgets[0], "11");
        board->requestsClear();
        widget.pPushButtonRest->click();
        EXPECT_EQ(sent(AeReset), 1u);
        EXPECT_EQ(sent(AeConfigGet), 2u);
        EXPECT_NE(widget.sliderSpinWidgets[0]->value(), 11);
    }
}

TEST_F(ExposurePagesTest, FailedEnableLeavesTheBoxAndTheControls)
{
    aeEnable(false);
    auto& widget = ae();
    Fault fault;
    fault.text = "no sensor";
    fault.id = AeEnableSet;
    board->faultSet(fault);
    widget.pCheckBoxEnable->click();
    EXPECT_EQ(status(), "Server: no sensor");
    EXPECT_TRUE(widget.pCheckBoxEnable->isChecked());
    EXPECT_TRUE(widget.sliderSpinWidgets[0]->isEnabled());
    EXPECT_TRUE(pMainWindow->statusBar()->styleSheet().contains("darkMagenta"));
    emit pMainWindow->refresh();
    EXPECT_FALSE(widget.pCheckBoxEnable->isChecked());
}

TEST_F(ExposurePagesTest, SamplesAtItsIntervalWhileShown)
{
    for (int generation : {0, 1})
    {
        aeEnable(false);
        auto& widget = ae(generation == 0 ? "Auto Exposure" : "Auto Exposure 2");
        EXPECT_EQ(widget.pTimer->interval(), 1000);
        type(widget.pSliderSpinWidgetSampleInterval, "0.3");
        EXPECT_EQ(widget.pTimer->interval(), 300);

        aeEnable(true);
        emit pMainWindow->refresh();
        EXPECT_EQ(last(AeEnableGet).query["generation"], generation);
        board->requestsClear();
        ASSERT_TRUE(waitUntil([&] { return sent(AeStatusGet) >= 2; }));
        EXPECT_EQ(last(AeStatusGet).query["generation"], generation);
        EXPECT_EQ(sent(AeConfigGet), 0u);
        EXPECT_GE(sent(SensorConfigGet), sent(AeStatusGet) - 1);
    }

    // A box unchecked by a read in between: a tick that was on its way does nothing.
    auto& widget = ae();
    widget.pCheckBoxEnable->blockSignals(true);
    widget.pCheckBoxEnable->setChecked(false);
    board->requestsClear();
    QMetaObject::invokeMethod(widget.pTimer, "timeout");
    EXPECT_EQ(board->requestCount(), 0u);

    page("Exposure Control");
    EXPECT_FALSE(widget.pTimer->isActive());
}

TEST_F(ExposurePagesTest, PlotsFollowTheStatus)
{
    auto status = rest::recordZero<Ae::Status>();
    for (int i = 0; i < 16; ++i)
        status.histogram.v1._16[i] = uint32_t(i + 1);
    for (int i = 0; i < 256; ++i)
        status.histogram.v2._256[i] = uint32_t(1000 + i);
    for (int i = 0; i < 25; ++i)
        status.luminance[i] = uint8_t(i * 10);
    status.objectRegion[7] = 1;
    answer(AeStatusGet, "status", status);
    auto sensor = record<rest::Sensor::Config>("Sensor", 0);
    sensor._long = {3, 0.25f};
    answer(SensorConfigGet, "config", sensor);

    auto& first = ae();
    first.updateStatusPlot();
    ASSERT_EQ(bars(first).size(), 16u);
    EXPECT_EQ(bars(first)[15], 16);
    EXPECT_EQ(first.pScene->findChildren<QLabel*>().size(), 25);
    const auto cell = [&first](int i)
    {
        auto* pLayout = qobject_cast<QGridLayout*>(first.pScene->layout());
        return qobject_cast<QLabel*>(pLayout->itemAtPosition(i / 5, i % 5)->widget());
    };
    EXPECT_EQ(cell(7)->text(), "70");
    EXPECT_EQ(cell(7)->palette().color(cell(7)->backgroundRole()), QColor(70, 70, 70));
    EXPECT_EQ(cell(8)->palette().color(cell(8)->foregroundRole()), QColor(Qt::darkGreen));
    QMap<QString, double> ends;
    for (auto* pItem : first.pExposurePlot->itemList(QwtPlotItem::Rtti_PlotCurve))
    {
        const auto* pCurve = static_cast<QwtPlotCurve*>(pItem);
        ASSERT_GE(pCurve->dataSize(), 1u);
        ends[pCurve->title().text()] = pCurve->sample(int(pCurve->dataSize()) - 1).y();
    }
    EXPECT_EQ(ends["Gain"], 3);
    EXPECT_EQ(ends["Integration Time"], 0.25);

    // The mode without an item in the combo box shows the object region.
    auto settings = aeRecord(0);
    settings.v1.mode = Ae::Config::V1::ModeSum;
    answer(AeConfigGet, "config", settings);
    emit pMainWindow->refresh();
    first.updateStatusPlot();
    EXPECT_EQ(cell(7)->palette().color(cell(7)->foregroundRole()), QColor(Qt::darkGreen));
    EXPECT_EQ(cell(8)->palette().color(cell(8)->foregroundRole()), QColor(Qt::darkRed));

    auto& second = ae("Auto Exposure 2");
    second.updateStatusPlot();
    ASSERT_EQ(bars(second).size(), 256u);
    EXPECT_EQ(bars(second)[255], 16) << "16 coarse bins hide the 256 fine ones";
    EXPECT_EQ(bars(second)[16], 2);
    std::memset(status.histogram.v2._16, 0, sizeof status.histogram.v2._16);
    answer(AeStatusGet, "status", status);
    second.updateStatusPlot();
    EXPECT_EQ(bars(second)[255], 1255);
}

TEST_F(ExposurePagesTest, SetPointBrightensThePictureOnTheScreen)
{
    auto& widget = ae("Auto Exposure 2");
    const auto mean = [&]
    {
        board->advance(300);
        widget.updateStatusPlot();
        double sum = 0;
        for (auto* pLabel : widget.pScene->findChildren<QLabel*>())
            sum += pLabel->text().toDouble();
        return sum / 25;
    };
    const auto setPoint = [&](const char* text)
    {
        widget.pCheckBoxEnable->setChecked(false);
        type(widget.sliderSpinWidgets[0], text);
        widget.pCheckBoxEnable->setChecked(true);
    };
    setPoint("50");
    const double dark = mean();
    setPoint("150");
    const double bright = mean();
    EXPECT_NEAR(dark, 50, 15);
    EXPECT_NEAR(bright, 150, 15);
}

TEST_F(ExposurePagesTest, ExposureControlFollowsAutoExposure)
{
    aeEnable(true);
    auto& widget = ec();
    EXPECT_FALSE(widget.pSliderSpinWidgetGain->isEnabled());
    EXPECT_FALSE(widget.pSliderSpinWidgetIntegration->isEnabled());
    EXPECT_EQ(led().toolTip(), "EC OFF");
    EXPECT_TRUE(widget.pTimer->isActive());
    board->requestsClear();
    widget.configSet();
    EXPECT_EQ(board->requestCount(), 0u) << "nothing is written while the sliders are disabled";

    aeEnable(false);
    emit pMainWindow->refresh();
    EXPECT_TRUE(widget.pSliderSpinWidgetGain->isEnabled());
    EXPECT_EQ(led().toolTip(), "EC ON");
    EXPECT_FALSE(widget.pTimer->isActive()) << "a read with auto exposure off stops the bar";
    page("Auto Exposure");
    ec();
    EXPECT_TRUE(widget.pTimer->isActive()) << "showing starts it in any case";
    page("Auto Exposure");
    EXPECT_FALSE(widget.pTimer->isActive());

    ec();
    const auto status = record<rest::Sensor::Status>("Sensor", 0, "status");
    auto sensor = record<rest::Sensor::Config>("Sensor", 0);
    type(widget.pSliderSpinWidgetGain, "1.75");
    type(widget.pSliderSpinWidgetIntegration, "20");
    EXPECT_EQ(sent(SensorConfigSet), 2u);
    sensor._long = {1.75f, float(20.0 / 1000)};
    const auto written = t_common::Base64::decode(last(SensorConfigSet).query["config"].asString());
    EXPECT_EQ(written, std::string(reinterpret_cast<const char*>(&sensor), sizeof sensor));

    QMetaObject::invokeMethod(widget.pTimer, "timeout");
    const float expected =
        100 * (sensor._long.integrationTime * sensor._long.gain) /
        (status.gain.max * status.integrationTime.max - status.gain.min * status.integrationTime.min);
    EXPECT_EQ(widget.pProgressBarExposure->value(), int(expected));

    // Longer than the sensor can is shown as full.
    sensor._long.gain = 2 * status.gain.max;
    sensor._long.integrationTime = status.integrationTime.max;
    answer(SensorConfigGet, "config", sensor);
    QMetaObject::invokeMethod(widget.pTimer, "timeout");
    EXPECT_EQ(widget.pProgressBarExposure->value(), 100);
}

TEST_F(ExposurePagesTest, ExposureControlRanges)
{
    aeEnable(false);
    auto& widget = ec();
    auto* pGain = widget.pSliderSpinWidgetGain->findChild<QDoubleSpinBox*>();
    auto* pTime = widget.pSliderSpinWidgetIntegration->findChild<QDoubleSpinBox*>();
    EXPECT_EQ(pGain->decimals(), 4);
    EXPECT_EQ(pTime->decimals(), 2);
    EXPECT_EQ(widget.pProgressBarExposure->maximum(), 100);

    auto status = record<rest::Sensor::Status>("Sensor", 0, "status");
    status.gain.min = 1.5f;
    status.gain.max = 12.25f;
    status.integrationTime.min = 0.0171f;
    status.integrationTime.max = 0.0333f;
    auto settings = aeRecord(1);
    const struct
    {
        Ae::Config::V1::Ecm::FlickerPeriod period;
        double lo;
        double hi;
    } cases[] = {{Ae::Config::V1::Ecm::FlickerPeriod120Hz, 16, 32},
                 {Ae::Config::V1::Ecm::FlickerPeriod100Hz, 10, 30},
                 {Ae::Config::V1::Ecm::FlickerPeriodOff, 10, 30}};
    for (const auto& c : cases)
    {
        settings.v1.ecm.flickerPeriod = c.period;
        answer(AeConfigGet, "config", settings);
        answer(SensorStatusGet, "status", status);
        emit pMainWindow->refresh();
        EXPECT_EQ(pGain->minimum(), 1.5);
        EXPECT_EQ(pGain->maximum(), 12.25);
        EXPECT_EQ(pTime->minimum(), c.lo);
        EXPECT_EQ(pTime->maximum(), c.hi);
    }

    status.gain.max = 1;
    answer(SensorStatusGet, "status", status);
    emit pMainWindow->refresh();
    EXPECT_TRUE(this->status().startsWith("Range error")) << this->status().toStdString();
    EXPECT_EQ(pGain->maximum(), 12.25);
}

TEST_F(ExposurePagesTest, ExposureControlFallsBackToTheFirstGeneration)
{
    aeEnable(false);
    auto& widget = ec();
    // The board refuses what carries generation 1: the first of the two tries of each read.
    Fault refusal;
    refusal.id = AeEnableGet;
    refusal.count = 1;
    board->faultSet(refusal);
    board->requestsClear();
    emit widget.refresh();
    std::vector<int> generations;
    for (const auto& request : board->requests())
    {
        if (request.id == AeEnableGet)
            generations.push_back(request.query["generation"].asInt());
    }
    EXPECT_EQ(generations, (std::vector<int>{1, 0}));
    EXPECT_EQ(led().toolTip(), "EC ON");
    refusal.count = 2;
    board->faultSet(refusal);
    board->requestsClear();
    emit widget.refresh();
    EXPECT_EQ(sent(SensorConfigGet), 0u) << "a failure of both ends the read";
    EXPECT_TRUE(status().startsWith("Server: "));
}

TEST_F(ExposurePagesTest, ExposureControlAsksASilentBoardOnce)
{
    auto& widget = ec();
    board->faultSet({Fault::Close, AeEnableGet});
    board->requestsClear();
    emit widget.refresh();
    EXPECT_EQ(sent(AeEnableGet), 1u);
    EXPECT_TRUE(status().startsWith("Connection to ")) << status().toStdString();
}
