#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/ahdr.h"

/// "Auto High Dynamic Range": the algorithm that chooses the exposure ratio.
class AhdrWidget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit AhdrWidget(QWidget* pParent);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;
    void workModeChanged(bool isAuto) override;

    enum
    {
        C,
        C2,
        Ceil,
        SetPoint2,
        Tolerance,
        ObjectFactor,
        RatioMax,
        RatioMin,
        Sum
    };

    QCheckBox *pCheckBoxSetPointAuto, *pCheckBoxSetPoint2Auto;
    rest::Ahdr::Config config;

private:
    void ratioKeep();

    shortcut::RecordBinding<rest::Ahdr::Config::V1> binding;
};
