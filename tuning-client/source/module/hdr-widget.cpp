#include "tuning-client/source/module/hdr-widget.h"

#include <QPushButton>

using rest::Hdr;

HdrWidget::HdrWidget(QWidget* pParent) : EnableSliderAbstractWidget(pParent, "High Dynamic Range", Sum)
{
    using V1 = Hdr::Config::V1;
    ledWordsSet(tr("HDR ON"), tr("HDR OFF"));
    shortcut::withdraw({pPushButtonRest});
    binding.add(slider(ExtensionBit, tr("Extension Bit"), 0, 4), &V1::extensionBit)
        .add(slider(ExposureRatio, tr("Exposure Ratio"), 1, 64), &V1::exposureRatio);
    form(pGridLayoutScrollArea).stretch();
}

void HdrWidget::configSet()
{
    auto config = rest::recordZero<Hdr::Config>();
    binding.store(config.v1);
    Hdr().configSet(config, Hdr::V1);
}

/// The controls follow with the next read only.
void HdrWidget::enableSet(bool isEnable) { Hdr().enableSet(isEnable, Hdr::V1); }

void HdrWidget::reset()
{
    Hdr().reset(Hdr::V1);
    emit refresh();
}

void HdrWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Hdr::Config>();
    Hdr().enableGet(isEnable, Hdr::V1).configGet(config, Hdr::V1);
    enableShow(isEnable);
    binding.show(config.v1);
}
