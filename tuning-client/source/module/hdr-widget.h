#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/hdr.h"

/// "High Dynamic Range": two exposures stitched by a fixed ratio.
class HdrWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit HdrWidget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        ExtensionBit,
        ExposureRatio,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Hdr::Config::V1> binding;
};
