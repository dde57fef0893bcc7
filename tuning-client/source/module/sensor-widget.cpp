#include "tuning-client/source/module/sensor-widget.h"

#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/image/mosaic.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-rest/source/camera.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimerEvent>

using rest::Sensor;

SensorWidget::SensorWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Sensor Control", false),
      pCheckBoxTestPattern(new QCheckBox),
      pComboBoxResolution(new QComboBox),
      pLabelSensorBayerPatternValue(new QLabel(tr("Not Found"))),
      pLabelSensorConnectValue(new QLabel(tr("Not Found"))),
      pPushButtonDriverChange(new QPushButton(tr("Change Driver"))),
      pPushButtonDriverList(new QPushButton(tr("Select Sensor Driver (*.drv)")))
{
    auto* pDriverLayout = new QGridLayout;
    pDriverLayout->addWidget(pPushButtonDriverList, 0, 0);
    pDriverLayout->addWidget(pPushButtonDriverChange, 0, 1);
    pDriverLayout->setColumnStretch(0, 1);
    for (auto* pLabel : {pLabelSensorBayerPatternValue, pLabelSensorConnectValue})
    {
        pLabel->setTextFormat(Qt::PlainText);
        pLabel->setFrameStyle(6);
    }

    auto* pFormLayout = new QFormLayout;
    pGridLayoutScrollArea->addLayout(pFormLayout, 0, 0);
    pGridLayoutScrollArea->setRowStretch(1, 1);
    pFormLayout->addRow(tr("Sensor Driver"), pDriverLayout);
    pFormLayout->addRow(tr("Resolution"), pComboBoxResolution);
    pFormLayout->addRow(tr("Enable Test Pattern"), pCheckBoxTestPattern);
    pFormLayout->addRow(tr("Connection Status"), pLabelSensorConnectValue);
    pFormLayout->addRow(tr("Bayer Pattern"), pLabelSensorBayerPatternValue);
    // The row holds a layout, so the form gave its label no buddy.
    qobject_cast<QLabel*>(pFormLayout->labelForField(pDriverLayout))->setBuddy(pPushButtonDriverList);
    pPushButtonDriverList->setAccessibleName(tr("Sensor Driver"));
    pComboBoxResolution->setAccessibleName(tr("Resolution"));
    pCheckBoxTestPattern->setAccessibleName(tr("Enable Test Pattern"));

    auto* pMenu = new QMenu(this);
    pPushButtonDriverList->setMenu(pMenu);
    connectGuarded(pMenu, &QMenu::aboutToShow,
                   [this, pMenu]
                   {
                       shortcut::remoteMenuFill(pMenu, "drv",
                                                [this, pMenu](const QString& name) {
                                                    pMenu->addAction(shortcut::menuText(name), this,
                                                                     [this, name]
                                                                     { pPushButtonDriverList->setText(name); });
                                                });
                   });
    connectLong(pPushButtonDriverChange, &QPushButton::clicked,
                [this]
                {
                    Sensor().driverChange(pPushButtonDriverList->text().toStdString());
                    emit refresh();
                });
    connectWrite(pComboBoxResolution, QOverload<int>::of(&QComboBox::currentIndexChanged), [this] { configSet(); });
    connectWrite(pCheckBoxTestPattern, &QCheckBox::toggled, [this] { configSet(); });

    timerId = startTimer(1000, Qt::CoarseTimer);
}

void SensorWidget::timerEvent(QTimerEvent* pEvent)
{
    if (pEvent->timerId() != timerId)
    {
        AbstractWidget::timerEvent(pEvent);
        return;
    }
    killTimer(timerId);
    emit refresh();
}

void SensorWidget::configSet()
{
    // Read first: the other fields keep their values on the board.
    Sensor::Config config;
    Sensor().configGet(config);
    config.isTestPattern = pCheckBoxTestPattern->isChecked();
    // Before the first read there is none to choose, and 0x0 would stop the sensor.
    if (pComboBoxResolution->currentIndex() >= 0)
        config.resolution = pComboBoxResolution->currentData(Qt::UserRole).value<Sensor::Config::Resolution>();
    Sensor().configSet(config);
}

void SensorWidget::updateStatus()
{
    if (isInit)
    {
        isInit = false;
        readSkip();
        return;
    }
    int32_t count = 0;
    int32_t index = 0;
    rest::Camera().inputInfo(count, index);
    if (auto* pMainWindow = mainWindow())
        pMainWindow->inputFollow(index);

    Sensor::Config config;
    Sensor::Status status;
    Sensor().configGet(config).statusGet(status);
    pPushButtonDriverList->setText(QString::fromStdString(rest::recordText(status.driverName)));

    const bool isConnected = status.isConnected;
    pLabelSensorConnectValue->setStyleSheet(isConnected ? "QLabel { color : green; }" : "QLabel { color : red; }");
    pLabelSensorConnectValue->setText(isConnected ? tr("Connected") : tr("Disconnected"));
    statusBarLabelLed(isConnected, isConnected ? tr("Sensor Connected") : tr("Sensor Disconnected"));

    resolutionShow(status.resolutionCollection.resolution);
    shortcut::NoSignals::setChecked(pCheckBoxTestPattern, config.isTestPattern);
    const auto pattern = mosaic::name(config.bayerPattern);
    pLabelSensorBayerPatternValue->setText(pattern.isNull() ? tr("Not Found") : pattern);
}

void SensorWidget::resolutionShow(const Sensor::Config::Resolution& resolution)
{
    const auto text = QString("%1x%2").arg(resolution.width).arg(resolution.height);
    shortcut::NoSignals::refill(pComboBoxResolution, {{text, QVariant::fromValue(resolution)}});
}
