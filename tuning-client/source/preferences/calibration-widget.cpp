#include "tuning-client/source/preferences/calibration-widget.h"

#include "tuning-client/source/config/config.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CalibrationWidget::CalibrationWidget(QWidget* pParent)
    : SettingsAbstractWidget(pParent, "calibration"),
      pLineEditOutputDir(new QLineEdit(config.preferences.calibration.path))
{
    auto* pLabel = new QLabel(tr("Save Path"));
    pLabel->setBuddy(pLineEditOutputDir);
    pLineEditOutputDir->setReadOnly(true);
    pLineEditOutputDir->setAccessibleName(pLabel->text());
    auto* pPushButtonBrowse = new QPushButton(tr("Browse..."));
    pGridLayoutScrollArea->addWidget(pLabel, 0, 0);
    pGridLayoutScrollArea->addWidget(pLineEditOutputDir, 0, 1);
    pGridLayoutScrollArea->addWidget(pPushButtonBrowse, 0, 2);
    pGridLayoutScrollArea->setRowStretch(1, 1);

    connect(pPushButtonBrowse, &QPushButton::clicked, this,
            [this]
            {
                const auto directory = directoryChoose();
                if (directory.isEmpty())
                    return;
                pLineEditOutputDir->setText(directory);
                config.preferences.calibration.path = directory;
            });
}
