#pragma once

#include "tuning-client/source/preferences/settings-abstract-widget.h"

class QLineEdit;

/// Where calibration files land on this computer.
class CalibrationWidget : public SettingsAbstractWidget
{
    Q_OBJECT

public:
    explicit CalibrationWidget(QWidget* pParent);

    QLineEdit* pLineEditOutputDir;
};
