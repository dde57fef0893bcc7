#pragma once

#include "tuning-client/source/control/multi-widget.h"

class DewarpCalibrationWidget;
class DewarpTuningWidget;

/// "Dewarp": the camera and its lens, computed from pictures or loaded, and what the board makes of them.
class DewarpWidget : public MultiWidget
{
    Q_OBJECT

public:
    explicit DewarpWidget(QWidget* pParent);

    DewarpCalibrationWidget* pDewarpCalibrationWidget;
    DewarpTuningWidget* pDewarpTuningWidget;
};
