#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/wdr.h"

/// "Wide Dynamic Range 3": strength, gain and global curve.
class Wdr3Widget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Wdr3Widget(QWidget* pParent);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        Strength,
        MaxGain,
        GlobalCurve,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Wdr::Config::V3> binding;
};
