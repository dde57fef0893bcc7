#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dpf.h"

/// "Denoising Prefilter": the switch carries the values with it.
class DpfWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit DpfWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QDoubleSpinBox *pDoubleSpinBoxGradient, *pDoubleSpinBoxOffset, *pDoubleSpinBoxMin, *pDoubleSpinBoxDiv;
    QGroupBox *pGroupBoxStrength, *pGroupBoxWeight;
    QSpinBox *pSpinBoxGreen, *pSpinBoxRedBlue;

private:
    void enableSet(bool isEnable);
    void freeSet(bool isFree);

    shortcut::RecordBinding<rest::Dpf::Config> binding;
};
