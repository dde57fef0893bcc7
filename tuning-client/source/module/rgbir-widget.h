#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/rgbir.h"

class QDoubleSpinBox;
class QGroupBox;
class QSpinBox;

/// "Rgbir": thresholds, black levels and the colour matrix of the RGB-IR block. The record has much more, so that a
/// change is made in what the board has at that moment.
class RgbirWidget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit RgbirWidget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void updateStatus() override;

    SliderSpinWidget* pSliderSpinWidgetDmscthreshold;
    SliderSpinWidget* pSliderSpinWidgetIrthreshold;
    SliderSpinWidget* pSliderSpinWidgetIthreshold;
    SliderSpinWidget* pSliderSpinWidgetBlsRed;
    SliderSpinWidget* pSliderSpinWidgetBlsGreen;
    SliderSpinWidget* pSliderSpinWidgetBlsBlue;
    SliderSpinWidget* pSliderSpinWidgetBlsIr;
    QGroupBox* pGroupBoxDpccth;
    QGroupBox* pGroupBoxDpccmidth;
    QGroupBox* pGroupBoxCcmtx;
    QVector<QSpinBox*> SpinBoxDpccths;
    QVector<QSpinBox*> SpinBoxDpccmidths;
    QVector<QDoubleSpinBox*> SpinBoxCcmtx1s;
    QVector<QDoubleSpinBox*> SpinBoxCcmtx2s;
    QVector<QDoubleSpinBox*> SpinBoxCcmtx3s;
    rest::Rgbir::Config config;

private:
    void arraysBuild(shortcut::Form& page);

    shortcut::RecordBinding<rest::Rgbir::Config> binding;
};
