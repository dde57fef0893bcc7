#include "tuning-client/source/module/cnr-widget.h"

#include "tuning-client/source/shortcut/form.h"

using rest::Cnr;

CnrWidget::CnrWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Color Noise Reduction"),
      pCheckBoxEnable(new QCheckBox(tr("Enable Color Noise Reduction")))
{
    shortcut::Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    page.wide(pCheckBoxEnable);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Cnr().enableSet(isEnable); }, [this](bool isFree) { freeSet(isFree); });
    pSliderSpinWidgetThresholdC1 = page.slider(tr("Threshold Color Channel 1"), 0, 32767);
    pSliderSpinWidgetThresholdC2 = page.slider(tr("Threshold Color Channel 2"), 0, 32767);
    binding.add(pSliderSpinWidgetThresholdC1, &Cnr::Config::tc1).add(pSliderSpinWidgetThresholdC2, &Cnr::Config::tc2);
    page.stretch();
}

void CnrWidget::freeSet(bool isFree)
{
    shortcut::enabledSet({pSliderSpinWidgetThresholdC1, pSliderSpinWidgetThresholdC2}, isFree);
}

void CnrWidget::configSet()
{
    Cnr::Config config;
    binding.store(config);
    Cnr().configSet(config);
}

void CnrWidget::updateStatus()
{
    bool isEnable = false;
    Cnr::Config config;
    Cnr().enableGet(isEnable).configGet(config);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    freeSet(!isEnable);
    binding.show(config);
}
