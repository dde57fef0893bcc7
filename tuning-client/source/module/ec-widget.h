#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/sensor.h"

class QProgressBar;
class SliderSpinWidget;

/// "Exposure Control": gain and integration time by hand, while auto exposure is off.
class EcWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit EcWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    SliderSpinWidget* pSliderSpinWidgetGain;
    SliderSpinWidget* pSliderSpinWidgetIntegration; ///< milliseconds
    QProgressBar* pProgressBarExposure;             ///< per cent of the largest exposure
    QTimer* pTimer;
    rest::Sensor::Config config;
    rest::Sensor::Status status;

protected:
    void afterShow() override;

private:
    void exposureShow();
};
