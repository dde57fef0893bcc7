#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/sensor.h"

#include <QMetaType>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

Q_DECLARE_METATYPE(rest::Sensor::Config::Resolution)

/// "Sensor Control": driver, resolution and test pattern of the sensor.
class SensorWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit SensorWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    bool isInit = true; ///< until the first updateStatus(), which sends nothing
    QCheckBox* pCheckBoxTestPattern;
    QComboBox* pComboBoxResolution;
    QLabel* pLabelSensorBayerPatternValue;
    QLabel* pLabelSensorConnectValue;
    QPushButton* pPushButtonDriverChange;
    QPushButton* pPushButtonDriverList; ///< its text is the selected driver
    int timerId;                        ///< of the start-up timer

protected:
    void timerEvent(QTimerEvent* pEvent) override;

private:
    void resolutionShow(const rest::Sensor::Config::Resolution& resolution);
};
