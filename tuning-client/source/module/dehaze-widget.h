#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"

/// The switch of the removal of haze.
class DehazeWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    DehazeWidget(QWidget* pParent, const QString& name);

    void enableSet(bool isEnable) override;
    void updateStatus() override;
};
