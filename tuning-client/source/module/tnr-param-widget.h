#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dnr3.h"

/// The temporal filter of "3D Noise Reduction 3". Its switch is a field of the record.
class TnrParamWidget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit TnrParamWidget(QWidget* pParent);

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
        Sum
    };

    rest::Dnr3::Config config;

private:
    shortcut::RecordBinding<rest::Dnr3::Config::V3::Tnr> binding;
};
