#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dnr3.h"

/// "3D Noise Reduction": strength, motion and delta factors.
class Dnr3Widget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    Dnr3Widget(QWidget* pParent, const QString& name);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        Strength,
        MotionFactor,
        DeltaFactor,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Dnr3::Config::V1> binding;
};
