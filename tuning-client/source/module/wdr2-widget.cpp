#include "tuning-client/source/module/wdr2-widget.h"

using rest::Wdr;

Wdr2Widget::Wdr2Widget(QWidget* pParent) : EnableSliderAbstractWidget(pParent, "Wide Dynamic Range 2", Sum)
{
    ledWordsSet(tr("WDR2 ON"), tr("WDR2 OFF"));
    binding.add(slider(Strength, tr("Strength"), 0, 99.99), &Wdr::Config::V2::strength);
    form(pGridLayoutScrollArea).stretch();
}

void Wdr2Widget::configSet()
{
    auto config = rest::recordZero<Wdr::Config>();
    binding.store(config.v2);
    Wdr().configSet(config, Wdr::V2);
}

/// The controls follow with the next read only.
void Wdr2Widget::enableSet(bool isEnable) { Wdr().enableSet(isEnable, Wdr::V2); }

void Wdr2Widget::reset() { resetSend<Wdr>(Wdr::V2); }

void Wdr2Widget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Wdr::Config>();
    Wdr().enableGet(isEnable, Wdr::V2).configGet(config, Wdr::V2);
    enableShow(isEnable);
    binding.show(config.v2);
}
