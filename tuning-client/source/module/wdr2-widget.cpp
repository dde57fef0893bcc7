#include "tuning-client/source/module/wdr2-widget.h"

#include "tuning-rest/source/wdr.h"

#include <cmath>

using rest::Wdr;

Wdr2Widget::Wdr2Widget(QWidget* pParent) : EnableSliderAbstractWidget(pParent, "Wide Dynamic Range 2", Sum)
{
    ledWordsSet(tr("WDR2 ON"), tr("WDR2 OFF"));
    sliderSpinWidgets[Strength]->setText(tr("Strength"));
    sliderSpinWidgets[Strength]->setDecimals(0);
    form(pGridLayoutScrollArea).stretch();
}

void Wdr2Widget::configSet()
{
    auto config = rest::recordZero<Wdr::Config>();
    config.v2.strength = float(std::trunc(sliderSpinWidgets[Strength]->value()));
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
    shortcut::NoSignals::setValue(sliderSpinWidgets[Strength], config.v2.strength);
}
