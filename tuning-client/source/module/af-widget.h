#pragma once

#include "tuning-client/source/abstract-widget.h"

class QComboBox;

/// "Auto Focus": switches the board's auto focus and chooses how it searches. Disabled as a whole where the board has
/// no focus.
class AfWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit AfWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();

    /// Does not set the enable box.
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QCheckBox* pCheckBoxOneshot;
    QComboBox* pComboBoxSearchAlgorithm;

private:
    void settingsEnable(bool isEnabled);
};
