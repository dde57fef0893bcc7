#include "tuning-client/source/module/lut3d-widget.h"

#include "tuning-rest/source/lut3d.h"

#include <QCheckBox>
#include <QPushButton>

using rest::Lut3d;

Lut3dWidget::Lut3dWidget(QWidget* pParent) : EnableSliderAbstractWidget(pParent, "LUT 3D", 0)
{
    pCheckBoxEnable->setText(tr("Enable 3DLUT"));
    shortcut::withdraw({pPushButtonRest});
    form(pGridLayoutScrollArea).stretch();
}

void Lut3dWidget::enableSet(bool isEnable) { Lut3d().enableSet(isEnable); }

void Lut3dWidget::updateStatus()
{
    bool isEnable = false;
    Lut3d().enableGet(isEnable);
    enableBoxShow(isEnable);
}
