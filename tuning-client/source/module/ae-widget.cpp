#include "tuning-client/source/module/ae-widget.h"

#include "tuning-client/source/control/exposure-plot.h"
#include "tuning-client/source/control/histogram-plot.h"
#include "tuning-client/source/control/scene.h"
#include "tuning-rest/source/sensor.h"

#include <QGridLayout>
#include <QTabWidget>

using rest::Ae;
using V1 = Ae::Config::V1;

AeWidget::AeWidget(QWidget* pParent) : AeWidget(pParent, Ae::V1, tr("AE ON"), tr("AE OFF")) {}

AeWidget::AeWidget(QWidget* pParent, Ae::Generation generation_, const QString& on, const QString& off)
    : EnableSliderAbstractWidget(pParent, "Auto Exposure", Sum),
      pTabWidget(new QTabWidget),
      pTimer(new QTimer(this)),
      config(rest::recordZero<Ae::Config>()),
      pHistPlot(new HistPlot(nullptr)),
      pScene(new Scene(nullptr)),
      pExposurePlot(new ExposurePlot(nullptr)),
      generation(generation_)
{
    ledWordsSet(on, off);
    controlsBuild();
    plotsBuild();
    connectTick(pTimer,
                [this]
                {
                    if (pCheckBoxEnable->isChecked())
                        updateStatusPlot();
                });
}

void AeWidget::controlsBuild()
{
    using Ecm = V1::Ecm;
    shortcut::Form rows(this, pGridLayoutReserved,
                        [this](QObject* pControl)
                        {
                            configSet();
                            if (pControl == pComboBoxMode)
                                emit refresh();
                        });
    pCheckBoxAfps = rows.checkBox(tr("AFPS"));
    pComboBoxFlickerPeriod = rows.comboBox(tr("Flicker Avoidance Period"), {{tr("Off"), Ecm::FlickerPeriodOff},
                                                                            {tr("100Hz"), Ecm::FlickerPeriod100Hz},
                                                                            {tr("120Hz"), Ecm::FlickerPeriod120Hz}});
    pComboBoxMode = rows.comboBox(tr("Scene Evaluation Mode"), {{tr("Disabled (Setpoint)"), V1::ModeDisable},
                                                                {tr("Fix (Static ROI)"), V1::ModeFix},
                                                                {tr("Adaptive (Adaptive ROI)"), V1::ModeAdaptive}});
    binding.add(pCheckBoxAfps, &V1::ecm, &Ecm::isAfps)
        .addOr(0, pComboBoxFlickerPeriod, &V1::ecm, &Ecm::flickerPeriod)
        .add(pComboBoxMode, &V1::mode)
        .add(slider(SetPoint, tr("Set Point"), 0, 255, 1), &V1::setPoint)
        .add(slider(Tolerance, tr("Tolerance"), 0, 100, 1), &V1::tolerance)
        .add(slider(DampingOver, tr("Damping Over"), 0, 1, 2), &V1::dampingOver)
        .add(slider(DampingUnder, tr("Damping Under"), 0, 1, 2), &V1::dampingUnder);
}

void AeWidget::plotsBuild()
{
    pSliderSpinWidgetSampleInterval = new SliderSpinWidget(
        tr("Sample Interval (second)"), 0.3, 1, 1, [this](double seconds) { pTimer->setInterval(int(1000 * seconds)); },
        nullptr);
    pSliderSpinWidgetSampleInterval->setValue(1);
    pTabWidget->addTab(pHistPlot, tr("Histogram"));
    pTabWidget->addTab(pScene, tr("Scene Luminance"));
    pTabWidget->addTab(pExposurePlot, tr("Exposure"));
    auto page = form(pGridLayoutScrollArea);
    page.wide(pSliderSpinWidgetSampleInterval);
    page.wide(pTabWidget);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount() - 1, 1);
}

QVector<QWidget*> AeWidget::childrenWidgets() const
{
    auto widgets = EnableSliderAbstractWidget::childrenWidgets();
    widgets.removeAll(pTabWidget);
    return widgets;
}

void AeWidget::configSet()
{
    binding.store(config.v1);
    Ae().configSet(config, generation);
}

void AeWidget::enableSet(bool isEnable) { enableSend<Ae>(isEnable, generation); }

void AeWidget::reset()
{
    resetSend<Ae>(generation);
    emit refresh();
}

void AeWidget::updateStatus()
{
    bool isEnable = false;
    Ae().enableGet(isEnable, generation).configGet(config, generation);
    enableShow(isEnable);
    shortcut::timerSet(pTimer, isEnable);
    binding.show(config.v1);
}

void AeWidget::updateStatusPlot()
{
    Ae::Status status;
    Ae().statusGet(status, generation);
    pHistPlot->populate(16, status.histogram.v1._16);
    sampleShow(status);
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
