#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/filter.h"

/// "Filter": denoising and sharpening behind the demosaicing.
class FilterWidget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit FilterWidget(QWidget* pParent);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        FilterDenoising,
        FilterSharpening,
        FilterVMode,
        FilterHMode,
        Sum
    };

private:
    shortcut::RecordBinding<rest::Filter::Config> binding;
};
