#include "tuning-client/source/module/ge-widget.h"

#include <QPushButton>

using rest::Ge;

GeWidget::GeWidget(QWidget* pParent) : EnableSliderAbstractWidget(pParent, "Green Equilibrate", Sum)
{
    shortcut::withdraw({pPushButtonRest});
    binding.add(slider(Strength, tr("Strength"), 0, 511, shortcut::Form::ownDecimals), &Ge::Config::strength);
    form(pGridLayoutScrollArea).stretch();
}

void GeWidget::configSet()
{
    auto config = rest::recordZero<Ge::Config>();
    binding.store(config);
    Ge().configSet(config);
}

void GeWidget::enableSet(bool isEnable) { Ge().enableSet(isEnable); }

void GeWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Ge::Config>();
    Ge().enableGet(isEnable).configGet(config);
    enableBoxShow(isEnable);
    binding.show(config);
}
