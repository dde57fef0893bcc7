#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/cnr.h"

/// "Color Noise Reduction": a threshold for each colour channel.
class CnrWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit CnrWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    SliderSpinWidget *pSliderSpinWidgetThresholdC1, *pSliderSpinWidgetThresholdC2;

private:
    void freeSet(bool isFree);

    shortcut::RecordBinding<rest::Cnr::Config> binding;
};
