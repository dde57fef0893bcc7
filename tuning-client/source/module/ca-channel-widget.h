#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/ca.h"

class QRadioButton;
class QwtPlot;
class QwtPlotCurve;

/// Colour adjustment, a page of "Color Adjustment", whose box switches it. The official spelling.
class CaChannelWidegt : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit CaChannelWidegt(QWidget* pParent);

    using EnableAutoSliderAbstractWidget::configSet;
    void configSet() override;
    void editTable() override;
    void updateStatus() override;

    /// Draws the curve of the controls.
    void replot();

    QwtPlot* pQwtPlot;
    QwtPlotCurve* pQwtPlotCurve;
    QRadioButton* pRadioButtonBrightness;
    QRadioButton* pRadioButtonSaturation;
    QRadioButton* pRadioButtonBrightnessAndSaturation;
    QRadioButton* pRadioButtonCurveS;
    QRadioButton* pRadioButtonCurveParabolic;

private:
    void groupsBuild();
    void curveChosen(bool isS);

    enum
    {
        Inflection,
        Exponent,
        ParabolicFactor,
        Sum
    };

    shortcut::RecordBinding<rest::Ca::Config> binding;
};
