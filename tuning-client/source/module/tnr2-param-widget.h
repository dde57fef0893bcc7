#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dnr3.h"

/// The temporal filter of "3D Noise Reduction 3.2". Its switch is a field of the record, and it has no Auto to show.
class Tnr2ParamWidget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Tnr2ParamWidget(QWidget* pParent);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        NoiseLevel,
        MotionSlope,
        SadWeight,
        FilterLength,
        FilterLength2,
        NoiseLevelA,
        NoiseLevelB,
        Strength,
        RangeH,
        RangeV,
        DilateH,
        PreWeight,
        LumaPixelSlop,
        LumaPixelSlopShift,
        LumaPixelSlopMin,
        LumaPixelValShift,
        Sum
    };

    QCheckBox *pCheckBoxMotionDilate, *pCheckBoxMotionErode, *pCheckBoxPregamma, *pCheckBoxLumaComp;
    rest::Dnr3::Config config;

private:
    shortcut::RecordBinding<rest::Dnr3::Config::V3_2::Tnr> binding;
};
