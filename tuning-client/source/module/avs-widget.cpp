#include "tuning-client/source/module/avs-widget.h"

#include "tuning-client/source/control/plot.h"
#include "tuning-client/source/shortcut/form.h"

#include <QGridLayout>
#include <QLabel>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_text_label.h>

using rest::Avs;
using shortcut::NoSignals;

AvsWidget::AvsWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Auto Video Stabilization", false),
      pCheckBoxEnable(new QCheckBox(tr("Enable Auto Video Stabilization"))),
      pLabelDisplacement(new QLabel(tr("Not Found"))),
      pLabelOffset(new QLabel(tr("Not Found"))),
      pTimer(new QTimer(this)),
      pPlotDamp(new QwtPlot)
{
    ledWordsSet(tr("AVS ON"), tr("AVS OFF"));
    plotBuild();
    rowsBuild();
    connectSwitch(
        pCheckBoxEnable,
        [this](bool isEnable)
        {
            Avs().enableSet(isEnable);
            shortcut::timerSet(pTimer, isEnable);
        },
        [this](bool isFree) { pGroupBoxUseParams->setEnabled(isFree); }, shortcut::Grey::Always);
    pTimer->setInterval(1000);
    connectTick(pTimer, [this] { statusShow(); });
}

void AvsWidget::rowsBuild()
{
    using Config = Avs::Config;
    shortcut::Form rows(this, pGridLayoutScrollArea,
                        [this](QObject* pControl)
                        {
                            // The opposite of what a read does, until the next one.
                            if (pControl == pGroupBoxUseParams)
                                paramsEnable(!pGroupBoxUseParams->isChecked());
                            configSet();
                        });
    rows.wide(pCheckBoxEnable);
    auto params = rows.group(tr("Use Params"), true);
    pGroupBoxUseParams = params.groupBox();
    const auto slider = [&](const QString& text, double max, double step, float Config::*pField)
    {
        auto* pSlider = params.slider(text, 0, max, 4);
        pSlider->setSingleStep(step);
        binding.add(pSlider, pField);
        return pSlider;
    };
    pSliderSpinWidgetDampNumOfInterpolationPoints = params.slider(tr("Damp Number of Interpolation Points"), 1, 65536);
    binding.add(pGroupBoxUseParams, &Config::isUseParams)
        .add(pSliderSpinWidgetDampNumOfInterpolationPoints, &Config::numItpPoints);
    pSliderSpinWidgetDampTheta = slider(tr("Damp Theta"), 1, 0.1, &Config::theta);
    pSliderSpinWidgetDampBase = slider(tr("Damp Base Gain"), 1, 0.01, &Config::baseGain);
    pSliderSpinWidgetDampFallOff = slider(tr("Damp Fall Off"), 1, 0.01, &Config::fallOff);
    pSliderSpinWidgetDampAcceleration = slider(tr("Damp Acceleration"), 99.99, 0.1, &Config::acceleration);
    rows.labelled(tr("Displacement"), pLabelDisplacement);
    rows.labelled(tr("Offset"), pLabelOffset);
    rows.wide(pPlotDamp);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount() - 1, 1);
}

void AvsWidget::plotBuild()
{
    const auto title = tr("Damping Function");
    pPlotDamp->setTitle(title);
    pPlotDamp->setAccessibleName(title);
    auto titleFont = pPlotDamp->font();
    titleFont.setBold(true);
    pPlotDamp->titleLabel()->setFont(titleFont);
    plot::shrinkable(*pPlotDamp);
    plot::inspectable(*pPlotDamp);
    pPlotDamp->setCanvasBackground(Qt::darkBlue);
    pPlotDamp->plotLayout()->setAlignCanvasToScales(true);
    for (int axis : {QwtPlot::xBottom, QwtPlot::yLeft})
        plot::stepsFit(*pPlotDamp, axis, -0.1, 1.1, 0.1, "-0.1");
    plot::setAxisTitle(*pPlotDamp, QwtPlot::xBottom, tr("Displacement"));
    plot::setAxisTitle(*pPlotDamp, QwtPlot::yLeft, tr("Damping"));
    plot::gridAdd(*pPlotDamp, Qt::white, Qt::gray)->enableXMin(true);
    pPlotCurveDamp = plot::curveAdd(*pPlotDamp, title, Qt::blue, 8);
}

void AvsWidget::configSet()
{
    Avs::Config config;
    binding.store(config);
    Avs().configSet(config);
}

void AvsWidget::paramsEnable(bool isEnabled)
{
    for (auto* pChild : pGroupBoxUseParams->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        pChild->setEnabled(isEnabled);
}

void AvsWidget::updateStatus()
{
    bool isEnable = false;
    Avs::Config config;
    Avs().enableGet(isEnable).configGet(config);
    shortcut::timerSet(pTimer, isEnable);
    NoSignals::setChecked(pCheckBoxEnable, isEnable);
    binding.show(config);
    pGroupBoxUseParams->setEnabled(isEnable);
    paramsEnable(config.isUseParams);
    ledShow(isEnable);

    pPlotDamp->setTitle(config.isUseParams ? tr("Damping function (from parameters)")
                                           : tr("Damping function (explicit itp. pts)"));
    plot::samplesSet(*pPlotCurveDamp, config.x, config.y, rest::recordCount(config.dampCount, config.x));
    pPlotDamp->replot();
}

void AvsWidget::statusShow()
{
    Avs::Status status;
    Avs().statusGet(status);
    const auto text = [](const Avs::Status::Pair& pair) { return QString::asprintf("%+d,%+d", pair.x, pair.y); };
    pLabelDisplacement->setText(text(status.displacement));
    pLabelOffset->setText(text(status.offset));
}
