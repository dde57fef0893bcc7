#include "tuning-client/source/module/dewarp-widget.h"

#include "tuning-client/source/module/dewarp-calibration-widget.h"
#include "tuning-client/source/module/dewarp-tuning-widget.h"

DewarpWidget::DewarpWidget(QWidget* pParent)
    : MultiWidget(pParent, "Dewarp"),
      pDewarpCalibrationWidget(new DewarpCalibrationWidget(this)),
      pDewarpTuningWidget(new DewarpTuningWidget(this))
{
    addWidget(pDewarpCalibrationWidget, tr("Calibration"));
    addWidget(pDewarpTuningWidget, tr("Tuning"));
    connectGuarded(pDewarpCalibrationWidget, &DewarpCalibrationWidget::calibrationDone,
                   [this](clb::TuningCalibration::DewarpResult result)
                   {
                       const shortcut::WaitCursor waiting;
                       pDewarpTuningWidget->lensModelSet(pDewarpCalibrationWidget->lensModel());
                       pDewarpTuningWidget->configSet(result);
                   });
}
