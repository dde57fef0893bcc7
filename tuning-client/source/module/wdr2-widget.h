#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/wdr.h"

/// "Wide Dynamic Range 2": one strength.
class Wdr2Widget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Wdr2Widget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        Strength,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Wdr::Config::V2> binding;
};
