#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/avs.h"

class QwtPlot;
class QwtPlotCurve;

/// "Auto Video Stabilization": the damping of the stabiliser, its function as a curve, and what it does just now.
class AvsWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit AvsWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QGroupBox* pGroupBoxUseParams;
    QLabel* pLabelDisplacement;
    QLabel* pLabelOffset;
    SliderSpinWidget* pSliderSpinWidgetDampNumOfInterpolationPoints;
    SliderSpinWidget* pSliderSpinWidgetDampAcceleration;
    SliderSpinWidget* pSliderSpinWidgetDampBase;
    SliderSpinWidget* pSliderSpinWidgetDampFallOff;
    SliderSpinWidget* pSliderSpinWidgetDampTheta;
    QTimer* pTimer;
    QwtPlot* pPlotDamp;
    QwtPlotCurve* pPlotCurveDamp;

private:
    void rowsBuild();
    void plotBuild();
    void paramsEnable(bool isEnabled);
    void statusShow();

    shortcut::RecordBinding<rest::Avs::Config> binding;
};
