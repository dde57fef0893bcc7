#include "tuning-client/source/module/demosaic-widget.h"

#include "tuning-rest/source/demosaic.h"

#include <QCheckBox>

using rest::DeMosaic;

DeMosaicWidget::DeMosaicWidget(QWidget* pParent) : EnableSliderAbstractWidget(pParent, "Demosaicing", Sum)
{
    pCheckBoxEnable->setText(tr("Enable DeMosaic"));
    slider(TextureDetectionThreshold, tr("Texture Detection Threshold"), 0, 255);
    form(pGridLayoutScrollArea).stretch();
}

void DeMosaicWidget::configSet()
{
    auto config = rest::recordZero<DeMosaic::Config>();
    config.v1.threshold = uint8_t(sliderSpinWidgets[TextureDetectionThreshold]->value());
    // The bypass runs with the switch, not against it.
    config.v1.isBypass = pCheckBoxEnable->isChecked();
    childrenWidgetsEnableSet(!pCheckBoxEnable->isChecked());
    DeMosaic().configSet(config, DeMosaic::V1);
}

void DeMosaicWidget::enableSet(bool isEnable) { enableSend<DeMosaic>(isEnable, DeMosaic::V1); }

void DeMosaicWidget::reset() { resetSend<DeMosaic>(DeMosaic::V1); }

void DeMosaicWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<DeMosaic::Config>();
    DeMosaic().enableGet(isEnable, DeMosaic::V1).configGet(config, DeMosaic::V1);
    enableShow(isEnable);
    shortcut::NoSignals::setValue(sliderSpinWidgets[TextureDetectionThreshold], config.v1.threshold);
}
