#pragma once

#include "tuning-calibration/source/tuning-calibration.h"
#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/control/lens-model.h"

class CalibrationDialog;
class QGroupBox;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTableWidget;

/// "Calibration" of "Dewarp": computes the camera and its lens from pictures of a pattern.
class DewarpCalibrationWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit DewarpCalibrationWidget(QWidget* pParent);

    /// The model that the coefficients of a calibration are for.
    lens::Model lensModel() const;

    /// What the controls say about a calibration from these pictures; its file is named after the moment.
    clb::TuningCalibration::DewarpParameters parametersGet(const QStringList& files) const;

    QCheckBox *pCheckBoxFisheyeCheckCond, *pCheckBoxFisheyeFixSkew, *pCheckBoxFisheyeRecomputeExtrinsic;
    QCheckBox *pCheckBoxWideAngleFixAspectRatio, *pCheckBoxWideAngleFixPrincipalPoint;
    QCheckBox* pCheckBoxWideAngleZeroTangentDist;
    QGroupBox *pGroupBoxFisheye, *pGroupBoxWideAngle;
    QPushButton* pPushButtonLoadImage;
    QRadioButton *pRadioButtonAcircles, *pRadioButtonChessboard, *pRadioButtonCircles;
    QRadioButton *pRadioButtonFisheye, *pRadioButtonWideAngle;
    QSpinBox *pSpinBoxCornerHorizontal, *pSpinBoxCornerVertical;
    QLabel* pLabelReport;       ///< of the last calibration
    QTableWidget* pTableReport; ///< what became of each picture

signals:
    /// A calibration has a result.
    void calibrationDone(clb::TuningCalibration::DewarpResult result);

private:
    QGroupBox* boardBuild();
    QGroupBox* patternBuild();
    QGroupBox* modeBuild();
    void reportBuild();
    void calibrate();
    void finish(const CalibrationDialog& dialog, const QString& file);
    void reportShow(const CalibrationDialog& dialog, const QString& file);
};
