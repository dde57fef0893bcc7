#include "tuning-client/source/module/input-widget.h"

#include "tuning-client/source/module/image-widget.h"
#include "tuning-client/source/module/sensor-widget.h"

// The name is the official one: the page shares its stored settings with the dewarp page.
InputWidget::InputWidget(QWidget* pParent)
    : MultiWidget(pParent, "Dewarp"), pImageWidget(new ImageWidget(nullptr)), pSensorWidget(new SensorWidget(nullptr))
{
    addWidget(pSensorWidget, tr("Sensor Control"));
    addWidget(pImageWidget, tr("Image Control"));
}
