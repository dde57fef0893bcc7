#include "tuning-client/source/module/dnr2-widget.h"

using rest::Dnr2;

Dnr2Widget::Dnr2Widget(QWidget* pParent, const QString& name)
    : EnableAutoLevelSliderAbstractWidget(pParent, name, Sum), config(rest::recordZero<Dnr2::Config>())
{
    using V1 = Dnr2::Config::V1;
    ledWordsSet(tr("2DNR ON"), tr("2DNR OFF"));
    binding.add(pSliderSpinWidgetLevel, &V1::autoLevel)
        .add(slider(DenoisePregammaStrength, tr("Denoise Pre-gamma Strength"), 0, 127), &V1::denoisePregammaStrength)
        .add(slider(DenoiseStrength, tr("Denoise Strength"), 0, 127), &V1::denoiseStrength)
        .add(slider(Sigma, tr("Sigma"), 0.1, 12, 1), &V1::sigma);
    form(pGridLayoutScrollArea).stretch();
}

void Dnr2Widget::configSet()
{
    config.v1.isAuto = isAuto();
    binding.store(config.v1);
    Dnr2().configSet(config, Dnr2::V1);
}

void Dnr2Widget::editTable() { tableEdit<Dnr2>(Dnr2::V1); }

void Dnr2Widget::enableSet(bool isEnable) { enableSend<Dnr2>(isEnable, Dnr2::V1); }

void Dnr2Widget::reset()
{
    resetSend<Dnr2>(Dnr2::V1);
    emit refresh();
}

void Dnr2Widget::updateStatus()
{
    bool isEnable = false;
    Dnr2().enableGet(isEnable, Dnr2::V1).configGet(config, Dnr2::V1);
    stateShow(isEnable, config.v1.isAuto);
    binding.show(config.v1);
}
