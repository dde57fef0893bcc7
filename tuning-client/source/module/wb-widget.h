#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/wb.h"

/// "White Balance": gains and colour correction by hand while auto white balance is off; while it is on the page
/// follows what that chooses.
class WbWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit WbWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    QDoubleSpinBox *pDoubleSpinBoxRed1, *pDoubleSpinBoxRed2, *pDoubleSpinBoxRed3;
    QDoubleSpinBox *pDoubleSpinBoxGreen1, *pDoubleSpinBoxGreen2, *pDoubleSpinBoxGreen3;
    QDoubleSpinBox *pDoubleSpinBoxBlue1, *pDoubleSpinBoxBlue2, *pDoubleSpinBoxBlue3;
    QGroupBox *pGroupBoxColorCorrection, *pGroupBoxWhiteBalance;
    QSpinBox *pSpinBoxOffsetRed, *pSpinBoxOffsetGreen, *pSpinBoxOffsetBlue;
    QTimer* pTimer;
    SliderSpinWidget *pSliderSpinWidgetBlue, *pSliderSpinWidgetGreenR, *pSliderSpinWidgetGreenB, *pSliderSpinWidgetRed;

private:
    void gainsBuild(shortcut::Form gains);
    void correctionBuild(shortcut::Form correction);

    shortcut::RecordBinding<rest::Wb::Config> binding;
};
