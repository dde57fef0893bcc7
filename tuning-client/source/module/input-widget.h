#pragma once

#include "tuning-client/source/control/multi-widget.h"

class ImageWidget;
class SensorWidget;

/// "Input Control": where the pipeline's input comes from, a sensor or a stored image.
class InputWidget : public MultiWidget
{
    Q_OBJECT

public:
    explicit InputWidget(QWidget* pParent);

    ImageWidget* pImageWidget;
    SensorWidget* pSensorWidget;
};
