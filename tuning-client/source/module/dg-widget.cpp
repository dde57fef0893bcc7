#include "tuning-client/source/module/dg-widget.h"

#include <QPushButton>

using rest::Dg;

DgWidget::DgWidget(QWidget* pParent)
    : EnableSliderAbstractWidget(pParent, "Digital Gain", 1), config(rest::recordZero<Dg::Config>())
{
    shortcut::withdraw({pPushButtonRest});
    binding.add(slider(0, tr("Digital Gain"), 1, 255.99, 2), &Dg::Config::gain);
    form(pGridLayoutScrollArea).stretch();
}

void DgWidget::configSet()
{
    binding.store(config);
    Dg().configSet(config);
}

void DgWidget::enableSet(bool isEnable) { Dg().enableSet(isEnable); }

void DgWidget::updateStatus()
{
    bool isEnable = false;
    Dg().enableGet(isEnable).configGet(config);
    enableBoxShow(isEnable);
    binding.show(config);
}
