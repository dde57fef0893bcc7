#pragma once

#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dnr2.h"

/// "2D Noise Reduction": two strengths and sigma.
class Dnr2Widget : public EnableAutoLevelSliderAbstractWidget
{
    Q_OBJECT

public:
    Dnr2Widget(QWidget* pParent, const QString& name);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        DenoisePregammaStrength,
        DenoiseStrength,
        Sigma,
        Sum
    };

    rest::Dnr2::Config config;

private:
    shortcut::RecordBinding<rest::Dnr2::Config::V1> binding;
};
