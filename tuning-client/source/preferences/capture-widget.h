#pragma once

#include "tuning-client/source/preferences/settings-abstract-widget.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

/// How captures are taken and where they land.
class CaptureWidget : public SettingsAbstractWidget
{
    Q_OBJECT

public:
    explicit CaptureWidget(QWidget* pParent);

    QCheckBox* pCheckBoxAe;
    QCheckBox* pCheckBoxAf;
    QCheckBox* pCheckBoxAwb;
    QComboBox* pComboBoxImageType;
    QLineEdit* pLineEditOutputDir;

private:
    void imageTypesAdd();
    void outputDirChoose();
};
