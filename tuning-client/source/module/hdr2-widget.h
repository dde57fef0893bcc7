#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/part-widget.h"
#include "tuning-rest/source/hdr.h"

class QTabWidget;

/// The tabs of "High Dynamic Range 2" edit one record, each through a pointer that the page sets.
using Hdr2Page = PartWidget;

/// Frames, ratios and black levels.
class Hdr2PageHdr : public Hdr2Page
{
    Q_OBJECT

public:
    explicit Hdr2PageHdr(QWidget* pParent);

    void updateStatus() override;

    rest::Hdr::Config::V2* pHdr = nullptr;
    QComboBox *pComboBoxBypassSelect, *pComboBoxStitching, *pComboBoxBaseFrame;
    QDoubleSpinBox *pDoubleSpinBoxRatio1, *pDoubleSpinBoxRatio2;
    QDoubleSpinBox *pDoubleSpinBoxExtendBit1, *pDoubleSpinBoxExtendBit2;
    QDoubleSpinBox *pDoubleSpinBoxColorWeight1, *pDoubleSpinBoxColorWeight2, *pDoubleSpinBoxColorWeight3;
    QDoubleSpinBox *pDoubleSpinBlsLong0, *pDoubleSpinBlsLong1, *pDoubleSpinBlsLong2, *pDoubleSpinBlsLong3;
    QDoubleSpinBox *pDoubleSpinBlsShort0, *pDoubleSpinBlsShort1, *pDoubleSpinBlsShort2, *pDoubleSpinBlsShort3;
    QDoubleSpinBox *pDoubleSpinBlsVs0, *pDoubleSpinBlsVs1, *pDoubleSpinBlsVs2, *pDoubleSpinBlsVs3;

private:
    shortcut::RecordBinding<rest::Hdr::Config::V2> binding;
};

/// Where the frames are blended.
class Hdr2PageTransRange : public Hdr2Page
{
    Q_OBJECT

public:
    explicit Hdr2PageTransRange(QWidget* pParent);

    void updateStatus() override;

    rest::Hdr::Config::V2* pHdr = nullptr;
    QDoubleSpinBox *pDoubleSpinBoxTr00, *pDoubleSpinBoxTr01, *pDoubleSpinBoxTr10, *pDoubleSpinBoxTr11;
    QDoubleSpinBox *pDoubleSpinBoxTr20, *pDoubleSpinBoxTr21, *pDoubleSpinBoxTr30, *pDoubleSpinBoxTr31;

private:
    shortcut::RecordBinding<rest::Hdr::Config::V2> binding;
};

/// The denoising filter in front of the blending.
class Hdr2PageDpf : public Hdr2Page
{
    Q_OBJECT

public:
    explicit Hdr2PageDpf(QWidget* pParent);

    void updateStatus() override;

    rest::Hdr::Config::V2::Dpf* pDpf = nullptr;
    QCheckBox* pCheckBoxDpf;
    QGroupBox *pGroupBoxDpf, *pGroupBoxNoiseCurve;
    SliderSpinWidget *pSliderSpinWidgetGain, *pSliderSpinWidgetGradient, *pSliderSpinWidgetOffset;
    SliderSpinWidget *pSliderSpinWidgetMin, *pSliderSpinWidgetDiv;
    SliderSpinWidget *pSliderSpinWidgetSigmag, *pSliderSpinWidgetSigmarb;
    QDoubleSpinBox *pDoubleSpinNc0, *pDoubleSpinNc1, *pDoubleSpinNc2, *pDoubleSpinNc3, *pDoubleSpinNc4;
    QDoubleSpinBox *pDoubleSpinNc5, *pDoubleSpinNc6, *pDoubleSpinNc7, *pDoubleSpinNc8, *pDoubleSpinNc9;
    QDoubleSpinBox *pDoubleSpinNc10, *pDoubleSpinNc11, *pDoubleSpinNc12, *pDoubleSpinNc13, *pDoubleSpinNc14;
    QDoubleSpinBox *pDoubleSpinNc15, *pDoubleSpinNc16;

private:
    shortcut::RecordBinding<rest::Hdr::Config::V2::Dpf> binding;
};

/// What keeps moving things from appearing twice.
class Hdr2PageDeghost : public Hdr2Page
{
    Q_OBJECT

public:
    explicit Hdr2PageDeghost(QWidget* pParent);

    void updateStatus() override;

    rest::Hdr::Config::V2::Deghost* pDeghost = nullptr;
    QGroupBox *pGroupBoxMotion, *pGroupBoxDark;
    QComboBox *pComboBoxMotionEnableLs, *pComboBoxMotionEnableLsvs;
    QDoubleSpinBox *pDoubleSpinMotionWeight0, *pDoubleSpinMotionWeight1;
    SliderSpinWidget *pSliderSpinWidgetMotionWeightShort, *pSliderSpinWidgetMotionSatThreshold;
    SliderSpinWidget* pSliderSpinWidgetMotionWeightUpdateThreshold;
    QDoubleSpinBox *pDoubleSpinMotionLtLs0, *pDoubleSpinMotionLtLs1, *pDoubleSpinMotionLtLs2, *pDoubleSpinMotionLtLs3;
    QDoubleSpinBox *pDoubleSpinMotionUtLs0, *pDoubleSpinMotionUtLs1, *pDoubleSpinMotionUtLs2, *pDoubleSpinMotionUtLs3;
    QDoubleSpinBox *pDoubleSpinMotionLtLsvs0, *pDoubleSpinMotionLtLsvs1;
    QDoubleSpinBox *pDoubleSpinMotionLtLsvs2, *pDoubleSpinMotionLtLsvs3;
    QDoubleSpinBox *pDoubleSpinMotionUtLsvs0, *pDoubleSpinMotionUtLsvs1;
    QDoubleSpinBox *pDoubleSpinMotionUtLsvs2, *pDoubleSpinMotionUtLsvs3;
    QDoubleSpinBox *pDoubleSpinDarkLtLs0, *pDoubleSpinDarkLtLs1, *pDoubleSpinDarkLtLs2, *pDoubleSpinDarkLtLs3;
    QDoubleSpinBox *pDoubleSpinDarkUtLs0, *pDoubleSpinDarkUtLs1, *pDoubleSpinDarkUtLs2, *pDoubleSpinDarkUtLs3;
    QDoubleSpinBox *pDoubleSpinDarkLtLsvs0, *pDoubleSpinDarkLtLsvs1, *pDoubleSpinDarkLtLsvs2, *pDoubleSpinDarkLtLsvs3;
    QDoubleSpinBox *pDoubleSpinDarkUtLsvs0, *pDoubleSpinDarkUtLsvs1, *pDoubleSpinDarkUtLsvs2, *pDoubleSpinDarkUtLsvs3;

private:
    void motionBuild(shortcut::Form motion);
    void darkBuild(shortcut::Form dark);

    shortcut::RecordBinding<rest::Hdr::Config::V2::Deghost> binding;
};

/// "High Dynamic Range 2": four tabs on one record, which goes out whole with each change.
class Hdr2Widget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit Hdr2Widget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    Hdr2PageHdr* pHdr2PageHdr;
    Hdr2PageTransRange* pHdr2PageTransRange;
    Hdr2PageDpf* pHdr2PageDpf;
    Hdr2PageDeghost* pHdr2PageDeghost;
    QTabWidget* pTabWidget;
    rest::Hdr::Config config;

private:
    void tabAdd(Hdr2Page* pPage, const QString& text);
};
