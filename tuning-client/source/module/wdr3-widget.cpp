#include "tuning-client/source/module/wdr3-widget.h"

using rest::Wdr;

Wdr3Widget::Wdr3Widget(QWidget* pParent) : EnableAutoLevelSliderAbstractWidget(pParent, "Wide Dynamic Range 3", Sum)
{
    using V3 = Wdr::Config::V3;
    ledWordsSet(tr("WDR3 ON"), tr("WDR3 OFF"));
    binding.add(pSliderSpinWidgetLevel, &V3::autoLevel)
        .add(slider(Strength, tr("Strength"), 0, 128), &V3::strength)
        .add(slider(MaxGain, tr("Max Gain"), 0, 128), &V3::gainMax)
        .add(slider(GlobalCurve, tr("Global Curve"), 0, 128), &V3::strengthGlobal);
    form(pGridLayoutScrollArea).stretch();
}

void Wdr3Widget::configSet()
{
    auto config = rest::recordZero<Wdr::Config>();
    config.v3.isAuto = isAuto();
    binding.store(config.v3);
    Wdr().configSet(config, Wdr::V3);
}

void Wdr3Widget::editTable() { tableEdit<Wdr>(Wdr::V3); }

void Wdr3Widget::enableSet(bool isEnable) { enableSend<Wdr>(isEnable, Wdr::V3); }

void Wdr3Widget::reset() { resetSend<Wdr>(Wdr::V3); }

void Wdr3Widget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Wdr::Config>();
    Wdr().enableGet(isEnable, Wdr::V3).configGet(config, Wdr::V3);
    binding.show(config.v3);
    stateShow(isEnable, config.v3.isAuto);
}
