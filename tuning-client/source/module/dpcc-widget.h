#pragma once

#include "tuning-client/source/abstract-widget.h"

class QCheckBox;
class QComboBox;

/// "Defect Pixel Cluster Correction": one of six sets of thresholds.
class DpccWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit DpccWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QComboBox* pComboBoxSet;
    QLabel* pLabelSet;
};
