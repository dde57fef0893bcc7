#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/cproc.h"

/// "Color Processing": value ranges, contrast, brightness, saturation and hue.
class CProcWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit CProcWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QLabel* pQLabelChrominanceclippingrangeatoutput;
    QLabel* pQLabelLuminanceinputrangeoffsetprocessing;
    QLabel* pQLabelLuminanceclippingrangeatoutput;
    QComboBox* pComboBoxChromaOut;
    QComboBox* pComboBoxLumaIn;
    QComboBox* pComboBoxLumaOut;
    SliderSpinWidget* pSliderSpinWidgetContrast;
    SliderSpinWidget* pSliderSpinWidgetBrightness;
    SliderSpinWidget* pSliderSpinWidgetSaturation;
    SliderSpinWidget* pSliderSpinWidgetHue;

private:
    void controlsEnableSet(bool isEnable);

    shortcut::RecordBinding<rest::CamEngineCprocConfig_t> binding;
};
