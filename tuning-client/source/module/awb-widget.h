#pragma once

#include "tuning-client/source/abstract-widget.h"

class QComboBox;
class QLineEdit;
class QPushButton;

/// "Auto White Balance": runs the board's auto white balance and watches its projections. Mode, profile and damping are
/// free while it is off; they go to the board when it is switched on.
class AwbWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit AwbWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QCheckBox* pCheckBoxDampingEnable;
    QComboBox* pComboBoxMode;
    QComboBox* pComboBoxIllumination;
    QPushButton* pPushButtonReset;
    QLineEdit* pLineEditRgIndoor;
    QLineEdit* pLineEditRgOutdoor;
    QLineEdit* pLineEditRgMax;
    QLineEdit* pLineEditRgMaxSky;
    QTimer* pTimer;

private:
    void rowsBuild();
    void enableSet(bool isEnable);
    void settingsEnable(bool isEnabled);
    void statusShow();
};
