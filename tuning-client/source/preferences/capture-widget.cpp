#include "tuning-client/source/preferences/capture-widget.h"

#include "tuning-client/source/config/config.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

using rest::Camera;

CaptureWidget::CaptureWidget(QWidget* pParent)
    : SettingsAbstractWidget(pParent, "capture"),
      pCheckBoxAe(new QCheckBox(tr("AE"))),
      pCheckBoxAf(new QCheckBox(tr("AF"))),
      pCheckBoxAwb(new QCheckBox(tr("AWB"))),
      pComboBoxImageType(new QComboBox),
      pLineEditOutputDir(new QLineEdit(config.preferences.capture.path))
{
    const auto labelAdd = [this](const QString& text, int row, QWidget* pBuddy)
    {
        auto* pLabel = new QLabel(text);
        pLabel->setBuddy(pBuddy);
        pGridLayoutScrollArea->addWidget(pLabel, row, 0);
    };
    labelAdd(tr("Save Path"), 0, pLineEditOutputDir);
    pLineEditOutputDir->setReadOnly(true);
    pLineEditOutputDir->setAccessibleName(tr("Save Path"));
    pGridLayoutScrollArea->addWidget(pLineEditOutputDir, 0, 1);
    auto* pPushButtonBrowse = new QPushButton(tr("Browse..."));
    pGridLayoutScrollArea->addWidget(pPushButtonBrowse, 0, 2);
    connect(pPushButtonBrowse, &QPushButton::clicked, this, &CaptureWidget::outputDirChoose);

    labelAdd(tr("Image Type"), 1, pComboBoxImageType);
    pComboBoxImageType->setAccessibleName(tr("Image Type"));
    pGridLayoutScrollArea->addWidget(pComboBoxImageType, 1, 1, 1, 2);
    imageTypesAdd();

    labelAdd(tr("Lock Routine"), 2, pCheckBoxAe);
    auto* pLayoutLock = new QHBoxLayout;
    pGridLayoutScrollArea->addLayout(pLayoutLock, 2, 1, 1, 2);
    const auto lockAdd = [&](QCheckBox* pCheckBox, bool& isLocked)
    {
        pCheckBox->setChecked(isLocked);
        connect(pCheckBox, &QCheckBox::toggled, this, [&isLocked](bool isChecked) { isLocked = isChecked; });
        pLayoutLock->addWidget(pCheckBox);
    };
    auto& capture = config.preferences.capture;
    lockAdd(pCheckBoxAe, capture.isAe);
    lockAdd(pCheckBoxAf, capture.isAf);
    lockAdd(pCheckBoxAwb, capture.isAwb);
    pLayoutLock->addStretch();
    pCheckBoxAf->setEnabled(false);
    pGridLayoutScrollArea->setRowStretch(3, 1);
}

/// A type without an entry leaves the first one showing.
void CaptureWidget::imageTypesAdd()
{
    const struct
    {
        const char* text;
        Camera::SnapshotType type;
    } types[]{{"RAW08 (*.pgm)", Camera::Raw08},
              {"RAW10 (*.pgm)", Camera::Raw10},
              {"RAW12 (*.pgm)", Camera::Raw12},
              {"RAW16 (*.pgm)", Camera::Raw16},
              {"YUV/RGB (*.yuv/*.ppm)", Camera::Yuv}};
    for (const auto& [text, type] : types)
        pComboBoxImageType->addItem(tr(text), int(type));
    auto& snapshotType = config.preferences.capture.snapshotType;
    pComboBoxImageType->setCurrentIndex(qMax(0, pComboBoxImageType->findData(int(snapshotType))));

    const auto choose = [this](int index)
    { config.preferences.capture.snapshotType = Camera::SnapshotType(pComboBoxImageType->itemData(index).toInt()); };
    connect(pComboBoxImageType, QOverload<int>::of(&QComboBox::currentIndexChanged), this, choose);
    // The first entry may be showing without having been chosen.
    connect(pComboBoxImageType, QOverload<int>::of(&QComboBox::activated), this, choose);
}

void CaptureWidget::outputDirChoose()
{
    const auto directory = directoryChoose();
    if (directory.isEmpty())
        return;
    if (directory == QDir::currentPath())
    {
        QMessageBox box(QMessageBox::Information, tr("Select Directory"),
                        tr("Cannot save file to %1, change another directory").arg(directory), QMessageBox::Ok, this);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }
    pLineEditOutputDir->setText(directory);
    config.preferences.capture.path = directory;
}
