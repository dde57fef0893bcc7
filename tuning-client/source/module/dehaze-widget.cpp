#include "tuning-client/source/module/dehaze-widget.h"

#include "tuning-rest/source/dehaze.h"

#include <QPushButton>

using rest::Dehaze;

DehazeWidget::DehazeWidget(QWidget* pParent, const QString& name) : EnableSliderAbstractWidget(pParent, name, 0)
{
    ledWordsSet(tr("Dehaze ON"), tr("Dehaze OFF"));
    shortcut::withdraw({pPushButtonRest});
    form(pGridLayoutScrollArea).stretch();
}

void DehazeWidget::enableSet(bool isEnable) { Dehaze().enableSet(isEnable); }

void DehazeWidget::updateStatus()
{
    bool isEnable = false;
    Dehaze().enableGet(isEnable);
    ledShow(isEnable);
    enableBoxShow(isEnable);
}
