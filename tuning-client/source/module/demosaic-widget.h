#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"

/// "Demosaicing": the first generation, of one threshold. The record's bypass follows the enable box.
class DeMosaicWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit DeMosaicWidget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        TextureDetectionThreshold,
        Sum
    };
};
