// What the pages with curves do beside their rows: markers, what sends and when, the switch over two modules.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/gamma-channel-widget.h"
#include "tuning-client/source/control/gamma2-channel-widget.h"
#include "tuning-client/source/control/histogram-plot.h"
#include "tuning-client/source/control/marker-picker.h"
#include "tuning-client/source/control/marker.h"
#include "tuning-client/source/module/ca-channel-widget.h"
#include "tuning-client/source/module/ca-widget.h"
#include "tuning-client/source/module/dci-widget.h"
#include "tuning-client/source/module/gc-widget.h"
#include "tuning-client/source/module/gc2-widget.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

using board::Fault;
using Config = rest::Dci::Config;

namespace
{
class CurvePagesTest : public BoardTest
{
protected:
    /// The contrast page on a record of three sections, ready for the mouse.
    DciWidget& dci()
    {
        auto settings = record<Config>("Dci");
        settings.mode = Config::Mode3Sections;
        settings.histogram = {1, 2, 3, 4, 5};
        recordSet("Dci", settings);
        return shown<DciWidget>("Dynamic Contrast Improvement");
    }

    CaWidget& ca() { return dynamic_cast<CaWidget&>(page("Color Adjustment")); }

    Config sentConfig() { return record<Config>("Dci"); }

    /// The place of plot coordinates in the window.
    QPoint at(const QwtPlot* pPlot, double x, double y) const
    {
        const QPoint pixel(qRound(pPlot->canvasMap(QwtPlot::xBottom).transform(x)),
                           qRound(pPlot->canvasMap(QwtPlot::yLeft).transform(y)));
        return pPlot->canvas()->mapTo(pMainWindow.get(), pixel);
    }

    // By the window, as the mouse does it.
    void press(const QPoint& place) { QTest::mousePress(pMainWindow->windowHandle(), Qt::LeftButton, {}, place); }

    void move(const QPoint& place)
    {
        QTest::mouseMove(pMainWindow->windowHandle(), place);
        QApplication::processEvents();
    }

    void release(const QPoint& place) { QTest::mouseRelease(pMainWindow->windowHandle(), Qt::LeftButton, {}, place); }

    void drag(const QPoint& from, const QPoint& to)
    {
        press(from);
        move(to);
        release(to);
    }

    static SliderSpinWidget* slider(const EnableAutoSliderAbstractWidget& widget, int index)
    {
        return widget.sliderSpinWidgets[index];
    }

    /// The actions of the plot's menu; the one of that text is chosen.
    static QStringList menu(QwtPlot* pPlot, const QString& chosen = {})
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {}, QPoint(100, 100));
        return popup([&] { QApplication::sendEvent(pPlot->canvas(), &event); }, chosen);
    }
};
} // namespace

TEST_F(CurvePagesTest, DragSendsOneRecordInsideItsLimits)
{
    auto& widget = dci();
    auto* pPlot = widget.pQwtPlot;
    auto expected = sentConfig();
    drag(at(pPlot, 20, 276), at(pPlot, 10, 100));
    EXPECT_EQ(board->requestCount(), 0u) << "few pixels, but many units of the plot";

    const auto home = at(pPlot, 20, 256);
    press(at(pPlot, 27, 256));
    EXPECT_FALSE(widget.pMarkerInflection->isVisible()) << "drawn by the overlay";
    move(at(pPlot, 50, 600));
    QTest::mouseClick(pMainWindow->windowHandle(), Qt::RightButton, {}, at(pPlot, 50, 600));
    move(at(pPlot, 80, -200));
    EXPECT_EQ(widget.pMarkerInflection->value(), QPointF(64, 0));
    move(at(pPlot, -3, 2000));
    EXPECT_EQ(widget.pMarkerInflection->value(), QPointF(0, 1024));
    // A poll leaves the marker in the hand.
    emit widget.refresh();
    EXPECT_EQ(widget.pMarkerInflection->value(), QPointF(0, 1024));
    EXPECT_FALSE(widget.pMarkerInflection->isVisible());
    EXPECT_EQ(sent("Dci::configSet"_id), 0u);
    // Onto the other one, which lies above it.
    const auto other = at(pPlot, 44, 768);
    move(other);
    release(other);
    EXPECT_EQ(sent("Dci::configSet"_id), 1u);
    EXPECT_TRUE(widget.pMarkerInflection->isVisible());
    expected.inflection = {uint16_t(widget.pMarkerInflection->xValue()), uint16_t(widget.pMarkerInflection->yValue())};
    EXPECT_NEAR(expected.inflection.x, 44, 1);
    EXPECT_NEAR(expected.inflection.y, 768, 4);
    EXPECT_EQ(bytes(sentConfig()), bytes(expected)) << "all else goes back as it was";
    EXPECT_GT(widget.pMarkerInflection->z(), widget.pMarkerInflection2->z());
    drag(other, home);
    EXPECT_NEAR(sentConfig().inflection.x, 20, 1) << "the raised one answers";
    EXPECT_EQ(sentConfig().inflection2.x, 44);

    drag(at(pPlot, 0, 0), at(pPlot, 30, 500));
    EXPECT_EQ(widget.pMarkerStart->xValue(), 0);
    EXPECT_NEAR(sentConfig().start.y, 500, 4);
    EXPECT_EQ(sent("Dci::configSet"_id), 3u);
}

TEST_F(CurvePagesTest, DragEndsWithThePageAndNeedsAFreeOne)
{
    auto& widget = dci();
    press(at(widget.pQwtPlot, 20, 256));
    move(at(widget.pQwtPlot, 30, 300));
    page("Register");
    EXPECT_EQ(sent("Dci::configSet"_id), 1u);
    EXPECT_TRUE(widget.pMarkerInflection->isVisible());
    page("Dynamic Contrast Improvement");
    board->requestsClear();
    widget.setEnabled(false);
    const int x = sentConfig().inflection.x;
    drag(at(widget.pQwtPlot, x, sentConfig().inflection.y), at(widget.pQwtPlot, 50, 600));
    EXPECT_EQ(board->requestCount(), 0u);
    EXPECT_EQ(int(widget.pMarkerInflection->xValue()), x);
}

TEST_F(CurvePagesTest, ArrowsChooseAndMoveAMarker)
{
    auto& widget = dci();
    pMainWindow->activateWindow();
    auto* pCanvas = widget.pQwtPlot->canvas();
    slider(widget, DciWidget::ExponentHigh)->findChild<QDoubleSpinBox*>()->setFocus();
    QTest::keyClick(pMainWindow->windowHandle(), Qt::Key_Tab);
    ASSERT_TRUE(waitUntil([&] { return pCanvas->hasFocus(); }));
    EXPECT_TRUE(widget.pMarkerStart->isChosen);
    QTest::keyClick(pCanvas, Qt::Key_Left);
    QTest::keyClick(pCanvas, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_TRUE(widget.pMarkerInflection->isChosen);
    EXPECT_FALSE(widget.pMarkerStart->isChosen);
    EXPECT_EQ(sent("Dci::configSet"_id), 0u);
    QTest::keyPress(pCanvas, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyPress(pCanvas, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyPress(pCanvas, Qt::Key_Left);
    EXPECT_EQ(sent("Dci::configSet"_id), 0u) << "until the key is released";
    QTest::keyRelease(pCanvas, Qt::Key_Left);
    EXPECT_EQ(sent("Dci::configSet"_id), 1u);
    EXPECT_EQ(sentConfig().inflection.x, 19);
    EXPECT_EQ(sentConfig().inflection.y, 276);
    EXPECT_TRUE(widget.pMarkerInflection->isVisible());
    // The focus takes a held key along.
    QTest::keyPress(pCanvas, Qt::Key_Down);
    pCanvas->clearFocus();
    EXPECT_EQ(sent("Dci::configSet"_id), 2u);
    EXPECT_EQ(sentConfig().inflection.y, 275);
    EXPECT_FALSE(widget.pMarkerInflection->isChosen);
}

TEST_F(CurvePagesTest, HistogramModeStaysUntilSectionsAreChosen)
{
    auto& widget = dci();
    auto settings = sentConfig();
    settings.mode = Config::ModeHistogram;
    settings.end.y = 10;
    recordSet("Dci", settings);
    const auto curveEnd = [&] { return widget.pQwtPlotCurve->sample(64).y(); };
    for (auto* pButton : {widget.pRadioButton3Sections, widget.pRadioButton2Sections})
    {
        recordSet("Dci", settings);
        emit pMainWindow->refresh();
        EXPECT_EQ(status(), "Histogram mode: choose sections to edit the curve");
        EXPECT_EQ(curveEnd(), pButton == widget.pRadioButton3Sections ? 1024 : 10) << "the last curve";
        EXPECT_TRUE(widget.pRadioButton3Sections->isChecked());
        slider(widget, DciWidget::ExponentLow)->setValue(0.5);
        settings.exponent.low = 0.5;
        EXPECT_EQ(bytes(sentConfig()), bytes(settings));
        board->requestsClear();
        pButton->click();
        EXPECT_EQ(sent("Dci::configSet"_id), 1u);
        EXPECT_EQ(sentConfig().mode,
                  pButton == widget.pRadioButton3Sections ? Config::Mode3Sections : Config::Mode2Sections);
        EXPECT_EQ(sentConfig().histogram.damp, 5);
        EXPECT_EQ(status(), "");
        EXPECT_EQ(curveEnd(), 10);
    }
    EXPECT_FALSE(widget.pMarkerInflection2->isVisible());
    EXPECT_EQ(sentConfig().inflection2.x, 44) << "travels hidden";
}

TEST_F(CurvePagesTest, GammaIsEditedWhileOffAndOneCurveServesAllChannels)
{
    auto settings = rest::recordZero<rest::Gc::Config>();
    for (int i = 0; i < 3; ++i)
    {
        settings.v2.curves[i].gamma = 2 + i;
        settings.v2.curves[i].pX[5] = uint32_t(50 + i);
    }
    recordSet("Gc", settings, rest::Gc::V2);
    auto& widget = dynamic_cast<Gc2Widget&>(page("Gamma Correction 2"));
    EXPECT_FALSE(widget.pSingleChannelWidget->isEnabled()) << "the module runs";
    widget.pCheckBoxEnable->click();
    EXPECT_TRUE(widget.pSingleChannelWidget->isEnabled());
    EXPECT_EQ(sent("Gc::configSet"_id), 0u);
    widget.pSingleChannelWidget->pRadioButtonUser->click();
    EXPECT_EQ(sent("Gc::configSet"_id), 1u);
    settings = record<rest::Gc::Config>("Gc", "config", rest::Gc::V2);
    for (const auto& curve : settings.v2.curves)
        EXPECT_EQ(bytes(curve), bytes(widget.config.v2.curves[0]));
    EXPECT_EQ(settings.v2.curves[2].pX[5], 50u);
    EXPECT_EQ(settings.v2.curves[0].gamma, 2);
}

TEST_F(CurvePagesTest, CurveOfColoursGoesOutWithTheNextChange)
{
    auto& widget = *ca().pCaChannelWidget;
    const auto middle = [&] { return widget.pQwtPlotCurve->sample(0).y(); };
    EXPECT_EQ(middle(), 0);
    board->requestsClear();
    widget.pRadioButtonCurveParabolic->click();
    EXPECT_EQ(board->requestCount(), 0u);
    EXPECT_EQ(middle(), 512) << "seen at once";
    EXPECT_FALSE(slider(widget, 0)->isEnabled());
    EXPECT_FALSE(slider(widget, 1)->isEnabled());
    EXPECT_TRUE(slider(widget, 2)->isEnabled());
    slider(widget, 2)->setValue(1);
    EXPECT_EQ(sent("Ca::configSet"_id), 1u);
    EXPECT_EQ(record<rest::Ca::Config>("Ca").curve, rest::Ca::Config::Parabolic);
    widget.pComboBoxWorkMode->setCurrentText("Auto");
    widget.pRadioButtonCurveS->click();
    EXPECT_FALSE(slider(widget, 0)->isEnabled()) << "the board's";
    EXPECT_EQ(middle(), 0);
}

TEST_F(CurvePagesTest, OneSwitchServesBothModules)
{
    auto& widget = ca();
    for (const char* className : {"Ca", "Dci"})
    {
        auto& channel = *(className[0] == 'C' ? static_cast<EnableAutoSliderAbstractWidget*>(widget.pCaChannelWidget)
                                              : widget.pDciChannelWidget);
        (className[0] == 'C' ? widget.pRadioButtonCa : widget.pRadioButtonDci)->click();
        emit pMainWindow->refresh();
        EXPECT_TRUE(channel.isVisible()) << "chosen as before";
        EXPECT_EQ(led().toolTip().toStdString(), className[0] == 'C' ? "CA OFF" : "DCI OFF");
        channel.pComboBoxWorkMode->setCurrentText("Auto");
        EXPECT_FALSE(channel.pTimer->isActive());
        widget.pCheckBoxEnable->click();
        EXPECT_EQ(led().toolTip().toStdString(), className[0] == 'C' ? "CA ON" : "DCI ON");
        EXPECT_TRUE(channel.pTimer->isActive()) << "the board drives";
        EXPECT_FALSE(widget.pCaChannelWidget->isEnabled());
        EXPECT_FALSE(widget.pDciChannelWidget->isEnabled());
        widget.pCheckBoxEnable->click();
        EXPECT_FALSE(channel.pTimer->isActive());
        EXPECT_TRUE(channel.isEnabled());
    }
    board->requestsClear();
    board->faultSet({Fault::Error, "Ca::enableSet"_id});
    widget.pCheckBoxEnable->click();
    EXPECT_EQ(sent("Dci::enableSet"_id), 0u);
}

TEST_F(CurvePagesTest, EveryPlotHasTitlesAndCopiesItsPictureAndValues)
{
    open();
    int plots = 0;
    for (const auto* pPlot : central().findChildren<QwtPlot*>())
    {
        ++plots;
        EXPECT_FALSE(pPlot->accessibleName().isEmpty());
        for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
            EXPECT_TRUE(!pPlot->axisEnabled(axis) || !pPlot->axisTitle(axis).text().isEmpty());
        EXPECT_EQ(menu(const_cast<QwtPlot*>(pPlot)), QStringList({"Copy picture", "Copy values"}));
    }
    EXPECT_GE(plots, 8);
    auto* pPlot = dci().pQwtPlot;
    menu(pPlot, "Copy values");
    const auto lines = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines.size(), 1 + 65 + 1);
    EXPECT_EQ(lines[0], "Input\tOutput");
    EXPECT_EQ(lines[11], "10\t128");
    const QwtPicker* pPicker = pPlot->canvas()->findChild<QwtPlotPicker*>();
    const auto under = pPicker->trackerText(pPlot->canvas()->mapFrom(pMainWindow.get(), at(pPlot, 32, 512))).text();
    EXPECT_TRUE(QRegularExpression("^Input 3[12]\\.\\d+\nOutput 5\\d\\d$").match(under).hasMatch()) << str(under);
    pPlot->setEnabled(false);
    menu(pPlot, "Copy picture");
    EXPECT_EQ(QApplication::clipboard()->pixmap().size(), pPlot->size()) << "of a running module too";
    menu(page("Auto Exposure").findChild<HistPlot*>(), "Copy values");
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Luminance\tNo. of Pixel\n0\t"));
}

TEST_F(CurvePagesTest, AxesAndMarkersAreThoseOfTheBlock)
{
    const auto expect = [](QwtPlot* pPlot, double xMax, double yMin, double yMax)
    {
        pPlot->updateAxes();
        EXPECT_EQ(pPlot->axisScaleDiv(QwtPlot::xBottom).interval(), QwtInterval(0, xMax));
        EXPECT_EQ(pPlot->axisScaleDiv(QwtPlot::yLeft).interval(), QwtInterval(yMin, yMax));
    };
    expect(ca().pCaChannelWidget->pQwtPlot, 64, 0, 1024);
    for (const char* name : {"Gamma Correction", "Gamma Correction 2"})
        expect(page(name).findChild<QwtPlot*>(), 4100, -10, 1040);
    const DciWidget fresh(nullptr);
    expect(fresh.pQwtPlot, 64, 0, 1024);
    const struct
    {
        const Marker* pMarker;
        QColor color;
        QPointF value;
        QRectF constrain;
    } rows[] = {{fresh.pMarkerStart, Qt::gray, {0, 0}, {0, 0, 0, 1024}},
                {fresh.pMarkerInflection, Qt::yellow, {20, 100}, {0, 0, 64, 1024}},
                {fresh.pMarkerInflection2, Qt::green, {40, 300}, {0, 0, 64, 1024}},
                {fresh.pMarkerEnd, Qt::gray, {64, 500}, {64, 0, 0, 1024}}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.pMarker->symbol()->brush().color(), row.color);
        EXPECT_EQ(row.pMarker->value(), row.value);
        EXPECT_EQ(row.pMarker->constrain, row.constrain);
    }
}

TEST_F(CurvePagesTest, HeldMarkerIsDroppedByWhatEndsItsMove)
{
    auto& widget = dci();
    const auto* pPlot = widget.pQwtPlot;
    const auto value = widget.pMarkerInflection2->value();
    const auto place = at(pPlot, value.x(), value.y());
    press(place);
    move(place + QPoint(20, 0));
    widget.setEnabled(false);
    move(place + QPoint(60, 0));
    release(place + QPoint(60, 0));
    EXPECT_EQ(sent("Dci::configSet"_id), 0u) << "greyed";
    widget.setEnabled(true);
    emit pMainWindow->refresh();

    press(place);
    auto settings = record<Config>("Dci");
    settings.mode = Config::Mode2Sections;
    recordSet("Dci", settings);
    emit pMainWindow->refresh();
    EXPECT_FALSE(widget.pMarkerInflection2->isVisible());
    release(place);
    EXPECT_FALSE(widget.pMarkerInflection2->isVisible());

    // A key that is down when the picker goes.
    widget.pMarkerPicker->plot()->canvas()->setFocus(Qt::TabFocusReason);
    QTest::keyPress(widget.pMarkerPicker->plot()->canvas(), Qt::Key_Right);
    widget.pMarkerPicker->setEnabled(false);
    widget.pMarkerPicker->setEnabled(true);
    QTest::keyRelease(widget.pMarkerPicker->plot()->canvas(), Qt::Key_Right);
    EXPECT_EQ(sent("Dci::configSet"_id), 0u);
}
