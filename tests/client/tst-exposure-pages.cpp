// What the exposure pages do beside their rows.

#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tuning-client/source/control/exposure-plot.h"
#include "tuning-client/source/control/histogram-plot.h"
#include "tuning-client/source/control/scene.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/module/ae2-widget.h"
#include "tuning-client/source/module/ec-widget.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_histogram.h>

using board::Fault;
using rest::Ae;
using V1 = Ae::Config::V1;

namespace
{
class ExposurePagesTest : public BoardTest
{
protected:
    ExposurePagesTest() { aeEnable(false); }

    AeWidget& ae(int generation = 0)
    {
        return dynamic_cast<AeWidget&>(page(generation == 0 ? "Auto Exposure" : "Auto Exposure 2"));
    }

    EcWidget& ec() { return dynamic_cast<EcWidget&>(page("Exposure Control")); }

    static std::vector<double> bars(const AeWidget& widget)
    {
        std::vector<double> values;
        const auto* pHistogram =
            static_cast<QwtPlotHistogram*>(widget.pHistPlot->itemList(QwtPlotItem::Rtti_PlotHistogram).first());
        for (size_t i = 0; i < pHistogram->dataSize(); ++i)
            values.push_back(pHistogram->sample(int(i)).value);
        return values;
    }

    /// The last point of a curve: 0 is the integration time, 1 the gain.
    static double curveEnd(const AeWidget& widget, int index)
    {
        const auto* pItem = widget.pExposurePlot->itemList(QwtPlotItem::Rtti_PlotCurve).at(index);
        const auto& curve = *static_cast<const QwtPlotCurve*>(pItem);
        return curve.dataSize() > 0 ? curve.sample(int(curve.dataSize()) - 1).y() : -1;
    }

    static QLabel& cell(const AeWidget& widget, int row, int column)
    {
        const auto* pLayout = qobject_cast<QGridLayout*>(widget.pScene->layout());
        return *qobject_cast<QLabel*>(pLayout->itemAtPosition(row, column)->widget());
    }

    static QColor color(const QLabel& label) { return label.palette().color(label.foregroundRole()); }
};
} // namespace

TEST_F(ExposurePagesTest, ItemsStandForEnumeratorsAndAllElseGoesBack)
{
    for (const int generation : {0, 1})
    {
        SCOPED_TRACE(generation);
        auto settings = record<Ae::Config>("Ae");
        settings.v1.isBypass = true;
        settings.v2.dummy = 0x12345678;
        settings.v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriod120Hz;
        recordSet("Ae", settings, generation);
        board->requestsClear();
        auto& widget = ae(generation);
        EXPECT_EQ(widget.pComboBoxFlickerPeriod->currentText(), "120Hz");
        QCoreApplication::processEvents();
        EXPECT_EQ(sent("Ae::configSet"_id), 0u) << "what is shown is not sent";
        EXPECT_EQ(sent("Ae::configGet"_id), 2u) << "nor taken for a change, after which the page would read again";
        for (const int item : {2, 0, 1})
        {
            widget.pComboBoxFlickerPeriod->setCurrentIndex(item);
            board->requestsClear();
            widget.pComboBoxMode->setCurrentIndex(item);
            EXPECT_EQ(sent("Ae::configGet"_id), 1u) << "the page reads again after a change of mode";
            settings.v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriod(item);
            settings.v1.mode = V1::Mode(item);
            EXPECT_EQ(board->recordGet("Ae", generation), bytes(settings)) << item;
        }
        settings.v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriod(77);
        settings.v1.mode = V1::Mode(77);
        recordSet("Ae", settings, generation);
        emit pMainWindow->refresh();
        EXPECT_EQ(widget.pComboBoxMode->currentText(), "Fix (Static ROI)") << "stays";
        EXPECT_EQ(widget.pComboBoxFlickerPeriod->currentText(), "Off");
    }
}

TEST_F(ExposurePagesTest, SamplesAtItsIntervalWhileOn)
{
    for (const int generation : {0, 1})
    {
        SCOPED_TRACE(generation);
        aeEnable(false);
        auto& widget = ae(generation);
        EXPECT_EQ(widget.pTimer->interval(), 1000);
        type(widget.pSliderSpinWidgetSampleInterval, "0.3");
        EXPECT_EQ(widget.pTimer->interval(), 300);
        EXPECT_FALSE(widget.pTimer->isActive());
        widget.pCheckBoxEnable->click();
        EXPECT_EQ(widget.pTimer->isActive(), generation == 1) << "the first generation starts at the next read";
        EXPECT_TRUE(widget.pTabWidget->isEnabled());
        emit pMainWindow->refresh();
        board->requestsClear();
        ASSERT_TRUE(waitUntil([&] { return sent("Ae::statusGet"_id) >= 2; }));
        EXPECT_EQ(lastQuery("Ae::statusGet"_id)["generation"], generation);
        EXPECT_EQ(sent("Ae::configGet"_id), 0u);

        // A tick that was on its way does nothing.
        widget.pCheckBoxEnable->click();
        board->requestsClear();
        tick(widget.pTimer);
        EXPECT_EQ(board->requestCount(), 0u);

        type(widget.sliderSpinWidgets[0], "11");
        widget.pPushButtonRest->click();
        EXPECT_EQ(sent("Ae::reset"_id), 1u);
        EXPECT_EQ(sent("Ae::configGet"_id), 2u);
        EXPECT_NE(widget.sliderSpinWidgets[0]->value(), 11);
    }
    EXPECT_EQ(ae(1).objectName(), "Auto Exposure 2") << "it keeps a size of its own";
}

TEST_F(ExposurePagesTest, PlotsFollowTheStatus)
{
    auto status = rest::recordZero<Ae::Status>();
    for (int i = 0; i < 16; ++i)
        status.histogram.v1._16[i] = uint32_t(i + 1);
    for (int i = 0; i < 256; ++i)
        status.histogram.v2._256[i] = uint32_t(1000 + i);
    status.luminance[7] = 70;
    status.objectRegion[7] = 1;
    answerSet("Ae::statusGet"_id, "status", status);
    auto sensor = record<rest::Sensor::Config>("Sensor");
    sensor._long = {3, 0.25f};
    answerSet("Sensor::configGet"_id, "config", sensor);

    auto& first = ae();
    first.updateStatusPlot();
    ASSERT_EQ(bars(first).size(), 16u);
    EXPECT_EQ(bars(first)[15], 16);
    EXPECT_EQ(cell(first, 1, 2).text(), "70");
    EXPECT_EQ(color(cell(first, 1, 3)), QColor(Qt::darkGreen));
    EXPECT_EQ(curveEnd(first, 1), 3);
    EXPECT_EQ(curveEnd(first, 0), 0.25);

    // The mode without an item in the combo box shows the object region.
    auto settings = record<Ae::Config>("Ae");
    settings.v1.mode = V1::ModeSum;
    answerSet("Ae::configGet"_id, "config", settings);
    emit pMainWindow->refresh();
    first.updateStatusPlot();
    EXPECT_EQ(color(cell(first, 1, 2)), QColor(Qt::darkGreen));
    EXPECT_EQ(color(cell(first, 1, 3)), QColor(Qt::darkRed));

    auto& second = ae(1);
    second.updateStatusPlot();
    ASSERT_EQ(bars(second).size(), 256u);
    EXPECT_EQ(bars(second)[255], 16) << "16 coarse bins hide the 256 fine ones";
    EXPECT_EQ(bars(second)[16], 2);
    EXPECT_EQ(curveEnd(second, 1), 3);
    std::memset(status.histogram.v2._16, 0, sizeof status.histogram.v2._16);
    answerSet("Ae::statusGet"_id, "status", status);
    second.updateStatusPlot();
    ASSERT_EQ(bars(second).size(), 256u);
    EXPECT_EQ(bars(second)[255], 1255);
}

TEST_F(ExposurePagesTest, ExposureByHandFollowsAutoExposure)
{
    aeEnable(true);
    auto& widget = ec();
    EXPECT_TRUE(widget.pTimer->isActive());
    EXPECT_EQ(widget.pTimer->interval(), 1000);
    board->requestsClear();
    widget.configSet();
    EXPECT_EQ(board->requestCount(), 0u) << "nothing is written while the sliders are disabled";
    aeEnable(false);
    emit pMainWindow->refresh();
    EXPECT_FALSE(widget.pTimer->isActive()) << "a read with auto exposure off stops the bar";
    ae();
    ec();
    EXPECT_TRUE(widget.pTimer->isActive()) << "showing starts it in any case";

    type(widget.pSliderSpinWidgetGain, "1.75");
    type(widget.pSliderSpinWidgetIntegration, "20");
    auto sensor = record<rest::Sensor::Config>("Sensor");
    EXPECT_EQ(sensor._long.gain, 1.75f);
    EXPECT_EQ(sensor._long.integrationTime, float(20.0 / 1000));
    emit widget.refresh();
    EXPECT_EQ(widget.pSliderSpinWidgetIntegration->value(), 20);

    auto status = record<rest::Sensor::Status>("Sensor", "status");
    status.gain.min = 4;
    status.integrationTime.min = 0.02f;
    answerSet("Sensor::statusGet"_id, "status", status);
    tick(widget.pTimer);
    const float largest = status.gain.max * status.integrationTime.max - status.gain.min * status.integrationTime.min;
    EXPECT_EQ(widget.pProgressBarExposure->value(), int(100 * (sensor._long.integrationTime * 1.75f) / largest));

    // Longer than the sensor can is shown as full.
    sensor._long = {2 * status.gain.max, status.integrationTime.max};
    answerSet("Sensor::configGet"_id, "config", sensor);
    tick(widget.pTimer);
    EXPECT_EQ(widget.pProgressBarExposure->value(), 100);
}

TEST_F(ExposurePagesTest, ExposureByHandHasTheSensorsRanges)
{
    auto& widget = ec();
    auto* pGain = widget.pSliderSpinWidgetGain->findChild<QDoubleSpinBox*>();
    auto* pTime = widget.pSliderSpinWidgetIntegration->findChild<QDoubleSpinBox*>();
    auto status = record<rest::Sensor::Status>("Sensor", "status");
    status.gain.min = 1.5f;
    status.gain.max = 12.25f;
    status.integrationTime.min = 0.0171f;
    status.integrationTime.max = 0.0333f;
    answerSet("Sensor::statusGet"_id, "status", status);
    auto settings = record<Ae::Config>("Ae");
    const std::tuple<int, double, double> cases[] = {{V1::Ecm::FlickerPeriod120Hz, 16, 32},
                                                     {V1::Ecm::FlickerPeriod100Hz, 10, 30},
                                                     {V1::Ecm::FlickerPeriodOff, 10, 30}};
    for (const auto& [period, least, most] : cases)
    {
        settings.v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriod(period);
        answerSet("Ae::configGet"_id, "config", settings);
        emit pMainWindow->refresh();
        EXPECT_EQ(pGain->minimum(), 1.5);
        EXPECT_EQ(pGain->maximum(), 12.25);
        EXPECT_EQ(pTime->minimum(), least);
        EXPECT_EQ(pTime->maximum(), most);
    }
    status.gain.max = 1;
    answerSet("Sensor::statusGet"_id, "status", status);
    emit pMainWindow->refresh();
    EXPECT_TRUE(this->status().startsWith("Range error")) << str(this->status());
    EXPECT_EQ(pGain->maximum(), 12.25);
}

TEST_F(ExposurePagesTest, ExposureByHandFallsBackToTheFirstGeneration)
{
    auto& widget = ec();
    const auto generationsAsked = [&]
    {
        board->requestsClear();
        emit widget.refresh();
        std::string generations;
        for (const auto& request : board->requests())
            if (request.id == "Ae::enableGet"_id)
                generations += request.query["generation"].asString();
        return generations;
    };
    EXPECT_EQ(generationsAsked(), "1");
    board->faultSet({Fault::Error, "Ae::enableGet"_id, 1});
    EXPECT_EQ(generationsAsked(), "10");
    EXPECT_EQ(led().toolTip(), "EC ON");
    board->faultSet({Fault::Error, "Ae::enableGet"_id, 2});
    EXPECT_EQ(generationsAsked(), "10");
    EXPECT_EQ(sent("Sensor::configGet"_id), 0u) << "a failure of both ends the read";
    board->faultSet({Fault::Close, "Ae::enableGet"_id});
    EXPECT_EQ(generationsAsked(), "1") << "a silent board would be silent once more";
    EXPECT_TRUE(status().startsWith("Connection to ")) << str(status());
}
