#include "tuning-client/source/module/ec-widget.h"

#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-rest/source/ae.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QProgressBar>
#include <QVBoxLayout>

#include <cmath>

using rest::Ae;
using shortcut::NoSignals;

EcWidget::EcWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Exposure Control", false),
      pSliderSpinWidgetGain(new SliderSpinWidget(tr("Gain"), nullptr)),
      pSliderSpinWidgetIntegration(new SliderSpinWidget(tr("Integration Time (ms)"), nullptr)),
      pProgressBarExposure(new QProgressBar),
      pTimer(new QTimer(this)),
      config(rest::recordZero<rest::Sensor::Config>()),
      status(rest::recordZero<rest::Sensor::Status>())
{
    pSliderSpinWidgetGain->setDecimals(4);
    pSliderSpinWidgetIntegration->setDecimals(2);
    auto* pGroupBox = new QGroupBox(tr("Exposure"));
    auto* pGroupLayout = new QVBoxLayout(pGroupBox);
    pGroupLayout->addWidget(pProgressBarExposure);
    pProgressBarExposure->setAccessibleName(pGroupBox->title());
    pProgressBarExposure->setValue(0);

    int row = 0;
    for (QWidget* pWidget : {static_cast<QWidget*>(pSliderSpinWidgetGain),
                             static_cast<QWidget*>(pSliderSpinWidgetIntegration), static_cast<QWidget*>(pGroupBox)})
        pGridLayoutScrollArea->addWidget(pWidget, row++, 0);
    pGridLayoutScrollArea->setRowStretch(row, 1);

    connectWrite(pSliderSpinWidgetGain, &SliderSpinWidget::valueChanged, [this] { configSet(); });
    connectWrite(pSliderSpinWidgetIntegration, &SliderSpinWidget::valueChanged, [this] { configSet(); });

    pTimer->setInterval(1000);
    connectTick(pTimer, [this] { exposureShow(); });
}

void EcWidget::configSet()
{
    if (!pSliderSpinWidgetGain->isEnabled() || !pSliderSpinWidgetIntegration->isEnabled())
        return;
    config._long.gain = float(pSliderSpinWidgetGain->value());
    config._long.integrationTime = float(pSliderSpinWidgetIntegration->value() / 1000);
    rest::Sensor().configSet(config);
}

void EcWidget::updateStatus()
{
    // The generation is not known here: a board that refuses the second is taken for the first. One that is silent
    // would only be so once more.
    bool aeEnabled = false;
    Ae::Config ae;
    try
    {
        Ae().enableGet(aeEnabled, Ae::V2).configGet(ae, Ae::V2);
    }
    catch (const t_common::NoAnswer&)
    {
        throw;
    }
    catch (const std::exception&)
    {
        Ae().enableGet(aeEnabled, Ae::V1).configGet(ae, Ae::V1);
    }

    pSliderSpinWidgetGain->setEnabled(!aeEnabled);
    pSliderSpinWidgetIntegration->setEnabled(!aeEnabled);
    // Green while the exposure is in manual hands.
    statusBarLabelLed(!aeEnabled, aeEnabled ? tr("EC OFF") : tr("EC ON"));
    shortcut::timerSet(pTimer, aeEnabled);

    rest::Sensor().configGet(config).statusGet(status);
    NoSignals::setRange(pSliderSpinWidgetGain, status.gain.min, status.gain.max);
    NoSignals::setValue(pSliderSpinWidgetGain, config._long.gain);

    // Integration times on the grid of the mains: 8 ms for 120 Hz, 10 ms for 100 Hz.
    const float s = ae.v1.ecm.flickerPeriod == Ae::Config::V1::Ecm::FlickerPeriod120Hz ? 8 : 10;
    const auto onGrid = [s](float seconds) { return std::trunc(s * std::floor(1000 * seconds / s)); };
    NoSignals::setRange(pSliderSpinWidgetIntegration, onGrid(status.integrationTime.min),
                        onGrid(status.integrationTime.max));
    NoSignals::setValue(pSliderSpinWidgetIntegration, 1000 * config._long.integrationTime);
}

void EcWidget::afterShow() { pTimer->start(); }

void EcWidget::exposureShow()
{
    rest::Sensor().configGet(config).statusGet(status);
    const float largest = status.gain.max * status.integrationTime.max - status.gain.min * status.integrationTime.min;
    const float percent = 100 * (config._long.integrationTime * config._long.gain) / largest;
    // Slightly above 100 at the very end of the range, and the bar would ignore that.
    if (std::isfinite(percent))
        NoSignals::setValue(pProgressBarExposure, int(std::trunc(qBound(0.0f, percent, 100.0f))));
}
