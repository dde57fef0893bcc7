#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/hdr.h"

class QPushButton;

/// "High Dynamic Range 2 Lite": one page, whose record is made anew from the controls at each change. The board does
/// not tell whether the module runs.
class Hdr2_LiteWidget : public AbstractWidget
{
    Q_OBJECT

public:
    Hdr2_LiteWidget(QWidget* pParent, const QString& name);

    using AbstractWidget::configSet;

    void configSet();
    void reset();
    void updateStatus() override;

    QPushButton* pPushButtonRest; // The official spelling.
    QCheckBox *pCheckBoxEnable, *pCheckBoxDgain;
    QGroupBox *pGroupBoxControl, *pGroupBoxPreprocess, *pGroupBoxInterpolation, *pGroupBoxStitching;
    QComboBox *pComboBoxBypassSelect, *pComboBoxBaseFrame, *pComboBoxStitching;
    QDoubleSpinBox *pDoubleSpinBls0, *pDoubleSpinBls1, *pDoubleSpinBls2, *pDoubleSpinBls3;
    QDoubleSpinBox *pDoubleSpinDgain00, *pDoubleSpinDgain01, *pDoubleSpinDgain02, *pDoubleSpinDgain03;
    QDoubleSpinBox *pDoubleSpinDgain10, *pDoubleSpinDgain11, *pDoubleSpinDgain12, *pDoubleSpinDgain13;
    QDoubleSpinBox *pDoubleSpinDgain20, *pDoubleSpinDgain21, *pDoubleSpinDgain22, *pDoubleSpinDgain23;
    QDoubleSpinBox *pDoubleSpinDgain30, *pDoubleSpinDgain31, *pDoubleSpinDgain32, *pDoubleSpinDgain33;
    QDoubleSpinBox *pDoubleSpinColorWeight0, *pDoubleSpinColorWeight1, *pDoubleSpinColorWeight2;
    QDoubleSpinBox *pDoubleSpinBoxRatio0, *pDoubleSpinBoxRatio1;
    QDoubleSpinBox *pDoubleSpinBoxTr00, *pDoubleSpinBoxTr01, *pDoubleSpinBoxTr10, *pDoubleSpinBoxTr11;
    QDoubleSpinBox *pDoubleSpinBoxTr20, *pDoubleSpinBoxTr21, *pDoubleSpinBoxTr30, *pDoubleSpinBoxTr31;
    QDoubleSpinBox *pDoubleSpinBoxTr40, *pDoubleSpinBoxTr41, *pDoubleSpinBoxTr50, *pDoubleSpinBoxTr51;
    QDoubleSpinBox *pDoubleSpinBoxExtendBit0, *pDoubleSpinBoxExtendBit1;

private:
    void controlBuild(shortcut::Form control);
    void preprocessBuild(shortcut::Form preprocess);
    void stitchingBuild(shortcut::Form stitching);

    shortcut::RecordBinding<rest::Hdr::Config::V2_LITE> binding;
};
