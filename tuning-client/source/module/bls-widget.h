#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/bls.h"

/// "Black Level Subtraction": the level of each channel.
class BlsWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit BlsWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    SliderSpinWidget* pSliderSpinWidgetRed;
    SliderSpinWidget* pSliderSpinWidgetGreenR;
    SliderSpinWidget* pSliderSpinWidgetGreenB;
    SliderSpinWidget* pSliderSpinWidgetBlue;

private:
    shortcut::RecordBinding<rest::Bls::Config> binding;
};
