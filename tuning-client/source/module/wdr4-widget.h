#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/wdr.h"

/// "Wide Dynamic Range 4": strengths, contrast and flat regions.
class Wdr4Widget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Wdr4Widget(QWidget* pParent);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        Strength,
        StrengthHigh,
        StrengthLow,
        StrengthGlobal,
        Contrast,
        FlatStrength,
        FlatThreshold,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Wdr::Config::V4> binding;
};
