#pragma once

#include "tuning-client/source/preferences/settings-abstract-widget.h"

class QCheckBox;

/// How the main window behaves.
class WindowWidget : public SettingsAbstractWidget
{
    Q_OBJECT

public:
    explicit WindowWidget(QWidget* pParent);

    QCheckBox* pCheckBoxAutoResize;
};
