#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/cac.h"

class CacPlot;
class QLineEdit;

/// "Chromatic Aberration Correction": the switch, and a watch on the coefficients that the running block uses.
class CacWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit CacWidget(QWidget* pParent);

    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QGroupBox* pGroupBox;
    QDoubleSpinBox *pDoubleSpinBoxRedLinearCoeff, *pDoubleSpinBoxRedSquareCoeff, *pDoubleSpinBoxRedCubicalCoeff;
    QDoubleSpinBox *pDoubleSpinBoxBlueLinearCoeff, *pDoubleSpinBoxBlueSquareCoeff, *pDoubleSpinBoxBlueCubicalCoeff;
    QGroupBox* pGroupBox2;
    QLineEdit* pLineEditRatio;
    QSpinBox* pSpinBoxCenterHoriOffset;
    QSpinBox* pSpinBoxCenterVertOffset;
    QGroupBox* pGroupBox3;
    QLineEdit* pLineEditHoriLimit;
    QLineEdit* pLineEditVertLimit;
    CacPlot* pCacPlot;
    QTimer* pTimer; ///< polls

private:
    void coeffsBuild();
    void constantsBuild();
    void widthRead(bool isEnable);
    void stateShow(bool isEnable);
    void statusShow();

    int width = 0; ///< of the sensor's frame in pixels; 0 for not known
    shortcut::RecordBinding<rest::Cac::Status> binding;
};
