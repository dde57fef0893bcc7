#include "tuning-client/source/module/dpf-widget.h"

#include "tuning-client/source/shortcut/form.h"

using rest::Dpf;

DpfWidget::DpfWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Denoising Prefilter"), pCheckBoxEnable(new QCheckBox(tr("Enable Denoising Prefilter")))
{
    using Config = Dpf::Config;
    shortcut::Form page(this, pGridLayoutScrollArea, {});
    page.wide(pCheckBoxEnable);
    connectSwitch(
        pCheckBoxEnable, [this](bool isEnable) { enableSet(isEnable); }, [this](bool isFree) { freeSet(isFree); });
    auto strength = page.group(tr("Strength"));
    pGroupBoxStrength = strength.groupBox();
    const auto row = [&](const QString& text, QDoubleSpinBox** ppBox, double min, double max, float Config::*pField)
    { binding.add(strength.spinBoxes(text, {ppBox}, min, max, 2).first(), pField); };
    row(tr("Gradient"), &pDoubleSpinBoxGradient, 0, 128, &Config::gradient);
    row(tr("Offset"), &pDoubleSpinBoxOffset, -128, 128, &Config::offset);
    row(tr("Minimum Bound"), &pDoubleSpinBoxMin, 0, 128, &Config::minimumBound);
    row(tr("Division Factor"), &pDoubleSpinBoxDiv, 0, 64, &Config::divisionFactor);
    auto weight = page.group(tr("Weight"));
    pGroupBoxWeight = weight.groupBox();
    binding.add(weight.spinBoxes(tr("Sigma Green"), {&pSpinBoxGreen}, 1, 255).first(), &Config::sigmaGreen)
        .add(weight.spinBoxes(tr("Sigma Red/Blue"), {&pSpinBoxRedBlue}, 1, 255).first(), &Config::sigmaRedBlue);
    page.stretch();
}

void DpfWidget::enableSet(bool isEnable)
{
    if (isEnable)
        configSet();
    Dpf().enableSet(isEnable);
}

void DpfWidget::freeSet(bool isFree) { shortcut::enabledSet({pGroupBoxStrength, pGroupBoxWeight}, isFree); }

/// The values are the user's, so the block does not adapt them.
void DpfWidget::configSet()
{
    Dpf::Config config;
    binding.store(config);
    Dpf().configSet(config);
}

void DpfWidget::updateStatus()
{
    bool isEnable = false;
    Dpf::Config config;
    Dpf().enableGet(isEnable).configGet(config);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    freeSet(!isEnable);
    binding.show(config);
}
