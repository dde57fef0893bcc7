#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/ge.h"

/// "Green Equilibrate": how strongly the two greens are brought together.
class GeWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit GeWidget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void updateStatus() override;

    enum
    {
        Strength,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Ge::Config> binding;
};
