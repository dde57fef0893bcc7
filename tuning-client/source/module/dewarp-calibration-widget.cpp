#include "tuning-client/source/module/dewarp-calibration-widget.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/control/calibration-dialog.h"
#include "tuning-client/source/file/file-menu.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <stdexcept>

using clb::TuningCalibration;
using Parameters = TuningCalibration::DewarpParameters;

namespace
{
QGroupBox* boxesOf(const QString& title, bool isChecked, const QVector<QPair<QString, QCheckBox**>>& boxes)
{
    auto* pGroupBox = new QGroupBox(title);
    auto* pLayout = new QVBoxLayout(pGroupBox);
    for (const auto& box : boxes)
    {
        *box.second = new QCheckBox(box.first);
        (*box.second)->setChecked(isChecked);
        pLayout->addWidget(*box.second);
    }
    return pGroupBox;
}
} // namespace

DewarpCalibrationWidget::DewarpCalibrationWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Dewarp", false, Role::Part),
      pGroupBoxFisheye(boxesOf(tr("Fisheye"), true,
                               {{tr("Check Condition Number"), &pCheckBoxFisheyeCheckCond},
                                {tr("Fix Skew"), &pCheckBoxFisheyeFixSkew},
                                {tr("Recompute Extrinsic"), &pCheckBoxFisheyeRecomputeExtrinsic}})),
      pGroupBoxWideAngle(boxesOf(tr("Wide Angle"), false,
                                 {{tr("Fix Aspect Ratio"), &pCheckBoxWideAngleFixAspectRatio},
                                  {tr("Fix Principal Point"), &pCheckBoxWideAngleFixPrincipalPoint},
                                  {tr("Zero Tangential Distortion"), &pCheckBoxWideAngleZeroTangentDist}})),
      pPushButtonLoadImage(new QPushButton(tr("Select Images to Calibrate"))),
      pLabelReport(new QLabel),
      pTableReport(new QTableWidget(0, 3))
{
    auto* pGrid = pGridLayoutScrollArea;
    pGrid->addWidget(boardBuild(), 0, 0);
    pGrid->addWidget(patternBuild(), 0, 1);
    pGrid->addWidget(modeBuild(), 0, 2);
    auto* pModes = new QVBoxLayout;
    pModes->addWidget(pGroupBoxFisheye);
    pModes->addWidget(pGroupBoxWideAngle);
    pModes->addStretch();
    pGrid->addLayout(pModes, 0, 3);
    pGrid->addWidget(pPushButtonLoadImage, 1, 0, 1, 2);
    pCheckBoxFisheyeRecomputeExtrinsic->setToolTip(
        tr("Without it the first guess of where the board was stays, and the errors become large"));
    reportBuild();
    connectGuarded(pPushButtonLoadImage, &QPushButton::clicked, [this] { calibrate(); });
}

QGroupBox* DewarpCalibrationWidget::boardBuild()
{
    auto* pGroupBox = new QGroupBox(tr("Board Size Corner"));
    shortcut::Form form(this, new QGridLayout(pGroupBox), {});
    form.spinBoxes(tr("Horizontal"), {&pSpinBoxCornerHorizontal}, 5, 10);
    form.spinBoxes(tr("Vertical"), {&pSpinBoxCornerVertical}, 5, 10);
    form.stretch();
    pSpinBoxCornerHorizontal->setValue(9);
    pSpinBoxCornerVertical->setValue(7);
    return pGroupBox;
}

QGroupBox* DewarpCalibrationWidget::patternBuild()
{
    auto* pGroup = shortcut::radioBox(tr("Pattern"), {{tr("Acircles"), Parameters::Acircles},
                                                      {tr("Chessboard"), Parameters::Chessboard},
                                                      {tr("Circles"), Parameters::Circles}});
    pRadioButtonAcircles = shortcut::radioOf(pGroup, Parameters::Acircles);
    pRadioButtonChessboard = shortcut::radioOf(pGroup, Parameters::Chessboard);
    pRadioButtonCircles = shortcut::radioOf(pGroup, Parameters::Circles);
    pRadioButtonChessboard->setChecked(true);
    return shortcut::boxOf(pGroup);
}

QGroupBox* DewarpCalibrationWidget::modeBuild()
{
    auto* pGroup = shortcut::radioBox(
        tr("Mode"), {{tr("Fisheye"), Parameters::Fisheye}, {tr("Wide Angle"), Parameters::WideAngle}});
    pRadioButtonFisheye = shortcut::radioOf(pGroup, Parameters::Fisheye);
    pRadioButtonWideAngle = shortcut::radioOf(pGroup, Parameters::WideAngle);
    pRadioButtonFisheye->setChecked(true);
    pGroupBoxWideAngle->hide();
    const auto optionsShow = [this](bool isFisheye)
    {
        pGroupBoxFisheye->setVisible(isFisheye);
        pGroupBoxWideAngle->setVisible(!isFisheye);
    };
    connect(pRadioButtonFisheye, &QRadioButton::toggled, this, optionsShow);
    return shortcut::boxOf(pGroup);
}

void DewarpCalibrationWidget::reportBuild()
{
    pLabelReport->setTextFormat(Qt::PlainText);
    pLabelReport->setWordWrap(true);
    pLabelReport->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pTableReport->setAccessibleName(tr("Report"));
    pTableReport->setHorizontalHeaderLabels({tr("Image"), tr("Error in Pixels"), tr("Left Out Because")});
    pTableReport->horizontalHeader()->setStretchLastSection(true);
    pTableReport->setEditTriggers(QTableWidget::NoEditTriggers);
    pTableReport->setSelectionBehavior(QTableWidget::SelectRows);
    pTableReport->hide();
    pGridLayoutScrollArea->addWidget(pLabelReport, 2, 0, 1, 4);
    pGridLayoutScrollArea->addWidget(pTableReport, 3, 0, 1, 4);
    pGridLayoutScrollArea->setRowStretch(3, 1);
    pGridLayoutScrollArea->setColumnStretch(3, 1);
}

lens::Model DewarpCalibrationWidget::lensModel() const
{
    return pRadioButtonFisheye->isChecked() ? lens::Model::Fisheye : lens::Model::WideAngle;
}

Parameters DewarpCalibrationWidget::parametersGet(const QStringList& files) const
{
    Parameters parameters;
    const auto time = QDateTime::currentDateTime().toString("yyyy-MM-dd_HH-mm-ss");
    parameters.outputFileName = (config.preferences.calibration.path + "/dewarp_" + time + ".yml").toStdString();
    parameters.width = pSpinBoxCornerHorizontal->value();
    parameters.height = pSpinBoxCornerVertical->value();
    parameters.frameNumbers = files.size();
    parameters.aspectRatio = 1;
    if (pRadioButtonFisheye->isChecked())
    {
        parameters.mode = Parameters::Fisheye;
        parameters.modeConfig.fisheye = {pCheckBoxFisheyeCheckCond->isChecked(), pCheckBoxFisheyeFixSkew->isChecked(),
                                         pCheckBoxFisheyeRecomputeExtrinsic->isChecked()};
    }
    else
    {
        parameters.mode = Parameters::WideAngle;
        parameters.modeConfig.wideAngle = {pCheckBoxWideAngleFixAspectRatio->isChecked(),
                                           pCheckBoxWideAngleFixPrincipalPoint->isChecked(),
                                           pCheckBoxWideAngleZeroTangentDist->isChecked()};
    }
    parameters.pattern = pRadioButtonAcircles->isChecked()     ? Parameters::Acircles
                         : pRadioButtonChessboard->isChecked() ? Parameters::Chessboard
                                                               : Parameters::Circles;
    for (const auto& file : files)
        parameters.images.push_back(file.toStdString());
    return parameters;
}

void DewarpCalibrationWidget::calibrate()
{
    const auto files = QFileDialog::getOpenFileNames(this, tr("Select File"), QDir::currentPath(), tr("Image (*.jpg)"));
    if (files.isEmpty())
        return;
    const auto parameters = parametersGet(files);
    auto* pDialog = new CalibrationDialog(this, parameters);
    pDialog->setAttribute(Qt::WA_DeleteOnClose);
    connectGuarded(pDialog, &CalibrationDialog::finished,
                   [this, pDialog, file = QString::fromStdString(parameters.outputFileName)]
                   { finish(*pDialog, file); });
    pDialog->show();
}

void DewarpCalibrationWidget::finish(const CalibrationDialog& dialog, const QString& file)
{
    reportShow(dialog, file);
    if (!dialog.failure().isEmpty())
        throw std::runtime_error(dialog.failure().toStdString());
    if (!dialog.report().fileFailure.empty())
        shortcut::messageShow(statusBar(), QString::fromStdString(dialog.report().fileFailure));
    emit calibrationDone(dialog.result());
}

void DewarpCalibrationWidget::reportShow(const CalibrationDialog& dialog, const QString& file)
{
    const auto& report = dialog.report();
    const auto& views = report.views;
    const auto used = std::count_if(views.begin(), views.end(), [](const auto& view) { return view.isUsed; });
    auto text = dialog.failure();
    if (text.isEmpty())
        text = tr("Reprojection error %1 pixels over %2 of %3 images. ")
                   .arg(report.error, 0, 'f', 3)
                   .arg(used)
                   .arg(views.size()) +
               (report.fileFailure.empty() ? tr("Saved as %1").arg(file) : QString::fromStdString(report.fileFailure));
    pLabelReport->setText(text);

    pTableReport->setRowCount(int(views.size()));
    for (int row = 0; row < pTableReport->rowCount(); ++row)
    {
        const auto& view = views[size_t(row)];
        const auto path = QString::fromStdString(view.path);
        const QStringList texts{QFileInfo(path).fileName(), view.isUsed ? QString::number(view.error, 'f', 3) : "",
                                QString::fromStdString(view.reason)};
        for (int column = 0; column < texts.size(); ++column)
        {
            auto* pItem = new QTableWidgetItem(texts[column]);
            pItem->setToolTip(column == 0 ? Qt::convertFromPlainText(path) : QString());
            pTableReport->setItem(row, column, pItem);
        }
    }
    pTableReport->resizeColumnsToContents();
    pTableReport->setVisible(!views.empty());
}
