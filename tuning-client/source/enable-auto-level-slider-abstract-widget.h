#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"

/// The same with a level slider, which exists in Auto only and stays usable while the module runs.
class EnableAutoLevelSliderAbstractWidget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    EnableAutoLevelSliderAbstractWidget(QWidget* pParent, const QString& name, int count);

    void workModeChanged(bool isAuto) override;

    SliderSpinWidget* pSliderSpinWidgetLevel;

protected:
    /// Without the level slider.
    QVector<QWidget*> childrenWidgets() const override;
};
