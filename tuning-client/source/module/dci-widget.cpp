#include "tuning-client/source/module/dci-widget.h"

#include "tuning-client/source/control/marker-picker.h"
#include "tuning-client/source/control/marker.h"
#include "tuning-client/source/control/plot.h"
#include "tuning-client/source/control/transfer-curve-data.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_symbol.h>

using rest::Dci;

DciWidget::DciWidget(QWidget* pParent)
    : EnableAutoSliderAbstractWidget(pParent, "Dynamic Contrast Improvement", Sum),
      pQwtPlot(new QwtPlot),
      pQwtPlotCurve(plot::transferDress(*pQwtPlot, tr("Contrast Curve"))),
      config(rest::recordZero<Config>())
{
    using Exponent = Config::Exponent;
    ledWordsSet(tr("DCI ON"), tr("DCI OFF"));
    pCheckBoxEnable->setText(tr("Enable Dynamic Contrast Improvement"));
    shortcut::withdraw({pCheckBoxEnable, pPushButtonRest});
    modeBuild();
    binding.add(slider(ExponentLow, tr("Low Exponent"), 0, 2, 1), &Config::exponent, &Exponent::low)
        .add(slider(ExponentMiddle, tr("Middle Exponent"), 0, 2, 1), &Config::exponent, &Exponent::middle)
        .add(slider(ExponentHigh, tr("High Exponent"), 0, 2, 1), &Config::exponent, &Exponent::high);
    plotBuild();
}

void DciWidget::modeBuild()
{
    pButtonGroupMode = shortcut::radioBox(
        tr("Mode"), {{tr("2 Sections"), Config::Mode2Sections}, {tr("3 Sections"), Config::Mode3Sections}}, 2);
    pRadioButton2Sections = shortcut::radioOf(pButtonGroupMode, Config::Mode2Sections);
    pRadioButton3Sections = shortcut::radioOf(pButtonGroupMode, Config::Mode3Sections);
    form(pGridLayoutReserved).wide(shortcut::boxOf(pButtonGroupMode));

    // A switch toggles both, and sends once.
    connectWrite(pRadioButton2Sections, &QRadioButton::toggled,
                 [this]
                 {
                     modeSet(pRadioButton2Sections);
                     sectionsChosen();
                 });
    connectGuarded(pRadioButton3Sections, &QRadioButton::toggled, [this] { modeSet(pRadioButton3Sections); });
    // Sections may be chosen by a click on the button that is checked already.
    connectWrite(pButtonGroupMode, &QButtonGroup::idClicked,
                 [this]
                 {
                     if (!hasSections())
                         sectionsChosen();
                 });
}

void DciWidget::plotBuild()
{
    pQwtPlot->setAxisScale(QwtPlot::xBottom, 0, 64);
    pQwtPlot->setAxisScale(QwtPlot::yLeft, 0, 1024);
    pMarkerStart = markerAdd(Qt::gray, {0, 0}, {0, 0, 0, 1024}, &Config::start);
    pMarkerInflection = markerAdd(Qt::yellow, {20, 100}, {0, 0, 64, 1024}, &Config::inflection);
    pMarkerInflection2 = markerAdd(Qt::green, {40, 300}, {0, 0, 64, 1024}, &Config::inflection2);
    pMarkerEnd = markerAdd(Qt::gray, {64, 500}, {64, 0, 0, 1024}, &Config::end);
    pMarkerPicker = new MarkerPicker(pQwtPlot);
    connectWrite(pMarkerPicker, &MarkerPicker::markerMoved, [this] { configSet(); });
    form(pGridLayoutScrollArea).wide(pQwtPlot);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount() - 1, 1);
}

Marker* DciWidget::markerAdd(const QColor& color, const QPointF& value, const QRectF& constrain,
                             Config::Point Config::*field)
{
    auto* pMarker = new Marker;
    pMarker->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, QBrush(color), QPen(Qt::white), QSize(16, 16)));
    pMarker->setValue(value);
    pMarker->constrain = constrain;
    pMarker->attach(pQwtPlot);
    points.append({pMarker, field});
    return pMarker;
}

/// Not while the board works by a histogram.
bool DciWidget::hasSections() const { return config.mode <= Config::Mode3Sections; }

/// The user has chosen sections: the buttons tell the mode from now on.
void DciWidget::sectionsChosen()
{
    config.mode = pRadioButton3Sections->isChecked() ? Config::Mode3Sections : Config::Mode2Sections;
    histogramTell();
    configSet();
}

/// Tells why the curve cannot be edited, for as long as that is so.
void DciWidget::histogramTell()
{
    const auto text = tr("Histogram mode: choose sections to edit the curve");
    auto* pStatusBar = statusBar();
    if (pStatusBar && !hasSections())
        pStatusBar->showMessage(text, 0);
    else if (pStatusBar && pStatusBar->currentMessage() == text)
        pStatusBar->clearMessage();
}

void DciWidget::modeSet(QRadioButton*)
{
    const bool has3Sections = pRadioButton3Sections->isChecked();
    sliderSpinWidgets[ExponentMiddle]->setVisible(has3Sections);
    for (const int index : {ExponentLow, ExponentHigh})
        sliderSpinWidgets[index]->setVisible(true);
    if (!has3Sections)
        pMarkerPicker->drop(pMarkerInflection2);
    for (const auto& point : qAsConst(points))
        if (!pMarkerPicker->isHeld(point.pMarker))
            point.pMarker->setVisible(has3Sections || point.pMarker != pMarkerInflection2);
}

void DciWidget::replot()
{
    const auto exponent = [this](int index) { return sliderSpinWidgets[index]->value(); };
    const auto inflection = pMarkerInflection->value();
    const auto inflection2 = pMarkerInflection2->value();
    const double startY = pMarkerStart->yValue();
    const double endY = pMarkerEnd->yValue();
    // By a histogram the board has another curve: the last one stays.
    if (hasSections() && pRadioButton3Sections->isChecked())
        pQwtPlotCurve->setData(new DciCurve3SectionData(exponent(ExponentLow), exponent(ExponentMiddle),
                                                        exponent(ExponentHigh), inflection.x(), inflection.y(), startY,
                                                        endY, inflection2.x(), inflection2.y()));
    else if (hasSections() && pRadioButton2Sections->isChecked())
        pQwtPlotCurve->setData(new DciCurve2SectionData(exponent(ExponentLow), exponent(ExponentHigh), inflection.x(),
                                                        inflection.y(), startY, endY));
    pQwtPlot->replot();
}

void DciWidget::configSet()
{
    replot();
    binding.store(config);
    config.isAuto = isAuto();
    for (const auto& point : qAsConst(points))
        config.*point.field = {uint16_t(point.pMarker->xValue()), uint16_t(point.pMarker->yValue())};
    Dci().configSet(config);
}

void DciWidget::editTable() { tableEdit<Dci>(); }

void DciWidget::updateStatus()
{
    bool isEnable = false;
    Dci().enableGet(isEnable).configGet(config);
    enableBoxShow(isEnable);
    workModeShow(config.isAuto);
    ledShow(isEnable);
    shortcut::NoSignals::setCheckedId(pButtonGroupMode, int(config.mode));
    modeSet(pRadioButton2Sections);
    binding.show(config);
    for (const auto& point : qAsConst(points))
        if (!pMarkerPicker->isHeld(point.pMarker))
            point.pMarker->setValue((config.*point.field).x, (config.*point.field).y);
    EnableAutoSliderAbstractWidget::updateStatus();
    replot();
    histogramTell();
}
