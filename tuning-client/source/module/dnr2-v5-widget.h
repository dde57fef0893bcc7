#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dnr2.h"

/// "2D Noise Reduction 5": a page of its own, and beside the temporal filters.
class Dnr2V5Widget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    Dnr2V5Widget(QWidget* pParent, const QString& name);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        BlendOpacityStatic,
        BlendOpacityMoving,
        DenoiseStrength,
        Sigma,
        Sum
    };

    rest::Dnr2::Config config;

protected:
    void changed(QObject* pControl) override;

private:
    shortcut::RecordBinding<rest::Dnr2::Config::V5> binding;
};
