#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/cnr2.h"

/// "Color Noise Reduction 2": of luma and chroma, one of which always runs.
class Cnr2Widget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit Cnr2Widget(QWidget* pParent);

    using AbstractWidget::configSet;

    void configSet();
    void updateStatus() override;

    QCheckBox *pCheckBoxYnrEnable, *pCheckBoxCnrEnable;
    QDoubleSpinBox *pDoubleSpinBoxLayer1, *pDoubleSpinBoxLayer2, *pDoubleSpinBoxLayer3, *pDoubleSpinBoxLayer4;
    QDoubleSpinBox *pDoubleSpinBoxMerge1, *pDoubleSpinBoxMerge2, *pDoubleSpinBoxMerge3;
    SliderSpinWidget *pSliderSpinWidgetYSigma, *pSliderSpinWidgetBit;
    SliderSpinWidget *pSliderSpinWidgetCnrStrength1, *pSliderSpinWidgetCnrStrength2, *pSliderSpinWidgetTexture;
    SliderSpinWidget *pSliderSpinWidgetYnrStrength1, *pSliderSpinWidgetYnrStrength2;
    QGroupBox* pGroupBoxCnr2;

private:
    void valuesBuild(shortcut::Form values);
    void switched(QCheckBox* pCheckBox);
    void freeSet(bool isFree);

    shortcut::RecordBinding<rest::Cnr2::Config> binding;
};
