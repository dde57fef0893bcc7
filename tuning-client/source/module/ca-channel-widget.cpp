#include "tuning-client/source/module/ca-channel-widget.h"

#include "tuning-client/source/control/plot.h"
#include "tuning-client/source/control/transfer-curve-data.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

using rest::Ca;
using Config = Ca::Config;

CaChannelWidegt::CaChannelWidegt(QWidget* pParent)
    : EnableAutoSliderAbstractWidget(pParent, QString(), Sum),
      pQwtPlot(new QwtPlot),
      pQwtPlotCurve(plot::transferDress(*pQwtPlot, tr("Color Adjustment Curve"), 8))
{
    ledWordsSet(tr("CA ON"), tr("CA OFF"));
    pCheckBoxEnable->setText(tr("Enable Color Adjustment"));
    shortcut::withdraw({pCheckBoxEnable, pPushButtonRest});
    groupsBuild();
    binding.add(slider(Inflection, tr("S Curve Inflection"), 0, 64), &Config::curveSInflection)
        .add(slider(Exponent, tr("S Curve Exponent"), 1, 30), &Config::curveSExponent)
        .add(slider(ParabolicFactor, tr("Parabolic Factor"), 0, 2, 1), &Config::curveParabolicFactor);
    pQwtPlot->setAxisScale(QwtPlot::xBottom, 0, 64);
    pQwtPlot->setAxisScale(QwtPlot::yLeft, 0, 1024);
    form(pGridLayoutScrollArea).wide(pQwtPlot);
}

void CaChannelWidegt::groupsBuild()
{
    auto* pMode = shortcut::radioBox(tr("Mode"), {{tr("Brightness"), Config::Brightness},
                                                  {tr("Saturation"), Config::Saturation},
                                                  {tr("Brightness && Saturation"), Config::BrightnessSaturation}});
    auto* pCurve =
        shortcut::radioBox(tr("Curve"), {{tr("S Curve"), Config::S}, {tr("Parabolic Curve"), Config::Parabolic}});
    binding.add(pMode, &Config::mode).add(pCurve, &Config::curve);
    pRadioButtonBrightness = shortcut::radioOf(pMode, Config::Brightness);
    pRadioButtonSaturation = shortcut::radioOf(pMode, Config::Saturation);
    pRadioButtonBrightnessAndSaturation = shortcut::radioOf(pMode, Config::BrightnessSaturation);
    pRadioButtonCurveS = shortcut::radioOf(pCurve, Config::S);
    pRadioButtonCurveParabolic = shortcut::radioOf(pCurve, Config::Parabolic);
    auto* pRow = new QHBoxLayout;
    pRow->addWidget(shortcut::boxOf(pMode));
    pRow->addWidget(shortcut::boxOf(pCurve));
    pGridLayoutReserved->addLayout(pRow, pGridLayoutReserved->rowCount(), 0, 1, shortcut::Form::columns);

    // Each of the two buttons that a switch toggles sends.
    for (auto* pButton : pMode->buttons())
        connectWrite(pButton, &QAbstractButton::toggled, [this] { configSet(); });
    // The choice of the curve goes out with the next change.
    connectGuarded(pRadioButtonCurveS, &QAbstractButton::toggled, [this] { curveChosen(true); });
    connectGuarded(pRadioButtonCurveParabolic, &QAbstractButton::toggled, [this] { curveChosen(false); });
}

/// Frees the sliders of that curve. In Auto they stay with the board.
void CaChannelWidegt::curveChosen(bool isS)
{
    for (const int index : {Inflection, Exponent})
        sliderSpinWidgets[index]->setEnabled(isS && !isAuto());
    sliderSpinWidgets[ParabolicFactor]->setEnabled(!isS && !isAuto());
    replot();
}

void CaChannelWidegt::replot()
{
    const auto value = [this](int index) { return sliderSpinWidgets[index]->value(); };
    if (pRadioButtonCurveS->isChecked())
        pQwtPlotCurve->setData(new CaCurveSData(int(value(Inflection)), int(value(Exponent))));
    else if (pRadioButtonCurveParabolic->isChecked())
        pQwtPlotCurve->setData(new CaCurveParabolicData(value(ParabolicFactor)));
    pQwtPlot->replot();
}

void CaChannelWidegt::configSet()
{
    replot();
    auto config = rest::recordZero<Config>();
    binding.store(config);
    config.isAuto = isAuto();
    Ca().configSet(config);
}

void CaChannelWidegt::editTable() { tableEdit<Ca>(); }

void CaChannelWidegt::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Config>();
    Ca().enableGet(isEnable).configGet(config);
    enableBoxShow(isEnable);
    workModeShow(config.isAuto);
    ledShow(isEnable);
    binding.show(config);
    EnableAutoSliderAbstractWidget::updateStatus();
    replot();
}
