#include "tuning-client/source/module/dnr3-widget.h"

using rest::Dnr3;

Dnr3Widget::Dnr3Widget(QWidget* pParent, const QString& name) : EnableAutoLevelSliderAbstractWidget(pParent, name, Sum)
{
    using V1 = Dnr3::Config::V1;
    ledWordsSet(tr("3DNR ON"), tr("3DNR OFF"));
    binding.add(pSliderSpinWidgetLevel, &V1::autoLevel)
        .add(slider(Strength, tr("Strength"), 0, 128), &V1::strength)
        .add(slider(MotionFactor, tr("Motion Factor"), 0, 100000), &V1::motionFactor)
        .add(slider(DeltaFactor, tr("Delta Factor"), 0, 1024), &V1::deltaFactor);
    form(pGridLayoutScrollArea).stretch();
}

void Dnr3Widget::configSet()
{
    auto config = rest::recordZero<Dnr3::Config>();
    config.v1.isAuto = isAuto();
    binding.store(config.v1);
    Dnr3().configSet(config, Dnr3::V1);
}

void Dnr3Widget::editTable() { tableEdit<Dnr3>(Dnr3::V1); }

void Dnr3Widget::enableSet(bool isEnable) { enableSend<Dnr3>(isEnable, Dnr3::V1); }

void Dnr3Widget::reset()
{
    resetSend<Dnr3>(Dnr3::V1);
    emit refresh();
}

void Dnr3Widget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Dnr3::Config>();
    Dnr3().enableGet(isEnable, Dnr3::V1).configGet(config, Dnr3::V1);
    stateShow(isEnable, config.v1.isAuto);
    binding.show(config.v1);
}
