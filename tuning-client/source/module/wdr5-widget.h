#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/wdr.h"

/// "Wide Dynamic Range 5": strengths, flat regions, entropy, weights, gains and saturation.
class Wdr5Widget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Wdr5Widget(QWidget* pParent);

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
        Contrast,
        FlatLevel,
        EntropySlope,
        EntropyBase,
        FlatLevelGlobal,
        FixedWeight,
        MaxGain,
        MinGain,
        Degamma,
        DiffHigh,
        DiffLow,
        LogWeight,
        SatRange,
        SatThrGainUp,
        SatThrGainDown,
        Sum
    };

    QCheckBox *pCheckBoxFlat, *pCheckBoxGcm;

private:
    shortcut::RecordBinding<rest::Wdr::Config::V5> binding;
};
