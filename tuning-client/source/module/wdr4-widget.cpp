#include "tuning-client/source/module/wdr4-widget.h"

using rest::Wdr;

Wdr4Widget::Wdr4Widget(QWidget* pParent) : EnableAutoLevelSliderAbstractWidget(pParent, "Wide Dynamic Range 4", Sum)
{
    using V4 = Wdr::Config::V4;
    ledWordsSet(tr("WDR4 ON"), tr("WDR4 OFF"));
    binding.add(pSliderSpinWidgetLevel, &V4::autoLevel)
        .add(slider(Strength, tr("Strength"), 0, 128), &V4::strength)
        .add(slider(StrengthHigh, tr("High Strength"), 0, 128), &V4::strengthHigh)
        .add(slider(StrengthLow, tr("Low Strength"), 0, 255), &V4::strengthLow)
        .add(slider(StrengthGlobal, tr("Global Strength"), 0, 128), &V4::strengthGlobal)
        .add(slider(Contrast, tr("Contrast"), -1023, 1023), &V4::contrast)
        .add(slider(FlatStrength, tr("Flat Strength"), 0, 19), &V4::flatStrength)
        .add(slider(FlatThreshold, tr("Flat Threshold"), 0, 20), &V4::flatThreshold);
    form(pGridLayoutScrollArea).stretch();
}

void Wdr4Widget::configSet()
{
    auto config = rest::recordZero<Wdr::Config>();
    config.v4.isAuto = isAuto();
    binding.store(config.v4);
    Wdr().configSet(config, Wdr::V4);
}

void Wdr4Widget::editTable() { tableEdit<Wdr>(Wdr::V4); }

void Wdr4Widget::enableSet(bool isEnable) { enableSend<Wdr>(isEnable, Wdr::V4); }

void Wdr4Widget::reset() { resetSend<Wdr>(Wdr::V4); }

void Wdr4Widget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Wdr::Config>();
    Wdr().enableGet(isEnable, Wdr::V4).configGet(config, Wdr::V4);
    binding.show(config.v4);
    stateShow(isEnable, config.v4.isAuto);
}
