#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"

/// "LUT 3D": the switch of the colour look-up table.
class Lut3dWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Lut3dWidget(QWidget* pParent);

    void enableSet(bool isEnable) override;
    void updateStatus() override;
};
