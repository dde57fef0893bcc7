#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dg.h"

/// "Digital Gain": one gain, free while it is applied.
class DgWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit DgWidget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void updateStatus() override;

    rest::Dg::Config config;

private:
    shortcut::RecordBinding<rest::Dg::Config> binding;
};
