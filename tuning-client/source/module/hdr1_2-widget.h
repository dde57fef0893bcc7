#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/hdr.h"

class QRadioButton;

/// How two neighbouring frames are combined: their ratio, and the range in which one passes into the other.
class CombineWidget : public QWidget
{
    Q_OBJECT

public:
    CombineWidget(QString title, QWidget* pParent);

    QGroupBox* pGroupBox;
    SliderSpinWidget* pSliderSpinWidgetExposureRatio;
    SliderSpinWidget* pSliderSpinWidgetExtensionBit;
    SliderSpinWidget* pSliderSpinWidgetTransRangeBegin;
    SliderSpinWidget* pSliderSpinWidgetTransRangeEnd;

signals:
    void valueChanged();

private:
    void rangeKeep(SliderSpinWidget* pMoved, const SliderSpinWidget* pOther);
};

/// "High Dynamic Range 1.2": two or three exposures. The board does not tell whether the module runs.
class Hdr1_2Widget : public AbstractWidget
{
    Q_OBJECT

public:
    Hdr1_2Widget(QWidget* pParent, const QString& name);

    using AbstractWidget::configSet;

    void configSet();
    void updateStatus() override;

    QCheckBox *pCheckBoxEnable, *pCheckBoxNative;
    CombineWidget *pCombineWidgetLongShort, *pCombineWidgetLongShortVeryShort;
    QGroupBox *pGroupBoxMode, *pGroupBoxBaseFrame;
    QRadioButton *pRadioButton2Dol, *pRadioButton3Dol, *pRadioButtonLong, *pRadioButtonShort;

private:
    void modeBuild();
    void freeSet(bool isFree);

    shortcut::RecordBinding<rest::Hdr::Config::V1_2> binding;
};
