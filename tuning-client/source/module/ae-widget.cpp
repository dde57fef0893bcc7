#include "tuning-client/source/module/ae-widget.h"

#include "tuning-client/source/control/exposure-plot.h"
#include "tuning-client/source/control/histogram-plot.h"
#include "tuning-client/source/control/scene.h"
#include "tuning-rest/source/sensor.h"

#include <QComboBox>
#include <QGridLayout>
#include <QTabWidget>

using rest::Ae;
using V1 = Ae::Config::V1;

AeWidget::AeWidget(QWidget* pParent)
    : EnableSliderAbstractWidget(pParent, "Auto Exposure", Sum),
      pCheckBoxAfps(new QCheckBox),
      pComboBoxMode(new QComboBox),
      pComboBoxFlickerPeriod(new QComboBox),
      pSliderSpinWidgetSampleInterval(new SliderSpinWidget(tr("Sample Interval (second)"), nullptr)),
      pTabWidget(new QTabWidget),
      pTimer(new QTimer(this)),
      config(rest::recordZero<Ae::Config>()),
      pHistPlot(new HistPlot(nullptr)),
      pScene(new Scene(nullptr)),
      pExposurePlot(new ExposurePlot(nullptr))
{
    pComboBoxFlickerPeriod->addItems({tr("Off"), tr("100Hz"), tr("120Hz")});
    pComboBoxMode->addItem(tr("Disabled (Setpoint)"), V1::ModeDisable);
    pComboBoxMode->addItem(tr("Fix (Static ROI)"), V1::ModeFix);
    pComboBoxMode->addItem(tr("Adaptive (Adaptive ROI)"), V1::ModeAdaptive);
    controlAdd(pGridLayoutReserved, tr("AFPS"), pCheckBoxAfps);
    controlAdd(pGridLayoutReserved, tr("Flicker Avoidance Period"), pComboBoxFlickerPeriod);
    controlAdd(pGridLayoutReserved, tr("Scene Evaluation Mode"), pComboBoxMode);
    const auto indexChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connectGuarded(pCheckBoxAfps, &QCheckBox::toggled, [this] { configSet(); });
    connectGuarded(pComboBoxFlickerPeriod, indexChanged, [this] { configSet(); });
    connectGuarded(pComboBoxMode, indexChanged,
                   [this]
                   {
                       configSet();
                       emit refresh();
                   });

    binding.add(pCheckBoxAfps, &V1::ecm, &V1::Ecm::isAfps)
        .add(slider(SetPoint, tr("Set Point"), 0, 255, 1), &V1::setPoint)
        .add(slider(Tolerance, tr("Tolerance"), 0, 100, 1), &V1::tolerance)
        .add(slider(DampingOver, tr("Damping Over"), 0, 1, 2), &V1::dampingOver)
        .add(slider(DampingUnder, tr("Damping Under"), 0, 1, 2), &V1::dampingUnder);

    pSliderSpinWidgetSampleInterval->setDecimals(1);
    pSliderSpinWidgetSampleInterval->setRange(0.3, 1);
    pSliderSpinWidgetSampleInterval->setValue(1);
    const auto intervalSet = [this] { pTimer->setInterval(int(1000 * pSliderSpinWidgetSampleInterval->value())); };
    intervalSet();
    connect(pSliderSpinWidgetSampleInterval, &SliderSpinWidget::valueChanged, this, intervalSet);
    pGridLayoutScrollArea->addWidget(pSliderSpinWidgetSampleInterval, pGridLayoutScrollArea->rowCount(), 0, 1, 2);

    pTabWidget->addTab(pHistPlot, tr("Histogram"));
    pTabWidget->addTab(pScene, tr("Scene Luminance"));
    pTabWidget->addTab(pExposurePlot, tr("Exposure"));
    pGridLayoutScrollArea->addWidget(pTabWidget, pGridLayoutScrollArea->rowCount(), 0, 1, 2);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount() - 1, 1);

    connectTick(pTimer,
                [this]
                {
                    if (pCheckBoxEnable->isChecked())
                        updateStatusPlot();
                });
}

void AeWidget::configSet() { configSend(Ae::V1); }

void AeWidget::enableSet(bool isEnable) { enableSend(isEnable, Ae::V1); }

void AeWidget::reset() { resetSend(Ae::V1); }

void AeWidget::updateStatus() { statusShow(Ae::V1, tr("AE ON"), tr("AE OFF")); }

void AeWidget::updateStatusPlot()
{
    Ae::Status status;
    Ae().statusGet(status, Ae::V1);
    pHistPlot->populate(16, status.histogram.v1._16);
    sampleShow(status);
}

void AeWidget::hideEvent(QHideEvent* pEvent)
{
    AbstractWidget::hideEvent(pEvent);
    pTimer->stop();
}

void AeWidget::configSend(Ae::Generation generation)
{
    auto& v1 = config.v1;
    v1.mode = V1::Mode(pComboBoxMode->currentData().toUInt());
    binding.store(v1);
    const auto flicker = pComboBoxFlickerPeriod->currentText();
    if (flicker == tr("Off"))
        v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriodOff;
    else if (flicker == tr("100Hz"))
        v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriod100Hz;
    else if (flicker == tr("120Hz"))
        v1.ecm.flickerPeriod = V1::Ecm::FlickerPeriod120Hz;
    Ae().configSet(config, generation);
}

void AeWidget::enableSend(bool isEnable, Ae::Generation generation)
{
    Ae().enableSet(isEnable, generation);
    controlsEnableSet(!isEnable);
}

void AeWidget::resetSend(Ae::Generation generation)
{
    Ae().reset(generation);
    updateStatus();
    emit refresh();
}

void AeWidget::statusShow(Ae::Generation generation, const QString& textOn, const QString& textOff)
{
    bool enabled = false;
    Ae().enableGet(enabled, generation).configGet(config, generation);

    shortcut::NoSignals::setChecked(pCheckBoxEnable, enabled);
    controlsEnableSet(!enabled);
    enabled ? pTimer->start() : pTimer->stop();

    const auto& v1 = config.v1;
    const int modeIndex = pComboBoxMode->findData(uint32_t(v1.mode));
    if (modeIndex >= 0)
        shortcut::NoSignals::setCurrentIndex(pComboBoxMode, modeIndex);
    shortcut::NoSignals::setCurrentText(pComboBoxFlickerPeriod,
                                        v1.ecm.flickerPeriod == V1::Ecm::FlickerPeriod100Hz   ? tr("100Hz")
                                        : v1.ecm.flickerPeriod == V1::Ecm::FlickerPeriod120Hz ? tr("120Hz")
                                                                                              : tr("Off"));
    binding.show(v1);
    statusBarLabelLed(enabled, enabled ? textOn : textOff);
}

void AeWidget::sampleShow(const Ae::Status& status)
{
    // The mode that reports an object has no item in the combo box: it is the record that tells.
    if (config.v1.mode == V1::ModeSum)
        pScene->setValues(status.luminance, status.objectRegion);
    else
        pScene->setValues(status.luminance);

    rest::Sensor::Config sensor;
    rest::Sensor().configGet(sensor);
    pExposurePlot->append(sensor._long.gain, sensor._long.integrationTime);
}

void AeWidget::controlsEnableSet(bool isEnable)
{
    childrenWidgetsEnableSet(isEnable);
    pTabWidget->setEnabled(true);
}
