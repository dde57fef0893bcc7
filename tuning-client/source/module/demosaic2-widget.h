#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/part-widget.h"
#include "tuning-rest/source/demosaic.h"

class QTabWidget;

/// The tabs of "Demosaicing 2" edit one record, each through pointers that the page sets.
using DeMosaic2Page = PartWidget;

/// What holds for all pixels.
class DeMosaic2PageGlobal : public DeMosaic2Page
{
    Q_OBJECT

public:
    explicit DeMosaic2PageGlobal(QWidget* pParent);

    void updateStatus() override;

    rest::DeMosaic::Config::V2* pGlobal = nullptr;
    SliderSpinWidget* pSliderSpinWidgetInterplationDirectionThresholdMin;
    SliderSpinWidget* pSliderSpinWidgetInterplationDirectionThresholdMax;
    SliderSpinWidget *pSliderSpinWidgetThreshold, *pSliderSpinWidgetDenoiseStrength, *pSliderSpinWidgetSharpenSize;

private:
    shortcut::RecordBinding<rest::DeMosaic::Config::V2> binding;
};

/// Removal of moire.
class DeMosaic2PageDeMoire : public DeMosaic2Page
{
    Q_OBJECT

public:
    explicit DeMosaic2PageDeMoire(QWidget* pParent);

    void updateStatus() override;

    rest::DeMosaic::Config::V2::Demoire* pDeMoire = nullptr;
    QCheckBox* pCheckBoxEnable;
    SliderSpinWidget *pSliderSpinWidgetAreaThreshold, *pSliderSpinWidgetSaturationShrink;
    SliderSpinWidget *pSliderSpinWidgetThresholdR1, *pSliderSpinWidgetThresholdR2;
    SliderSpinWidget *pSliderSpinWidgetThresholdT1, *pSliderSpinWidgetThresholdT2Shift;
    SliderSpinWidget *pSliderSpinWidgetEdgeR1, *pSliderSpinWidgetEdgeR2;
    SliderSpinWidget *pSliderSpinWidgetEdgeT1, *pSliderSpinWidgetEdgeT2Shift;

private:
    shortcut::RecordBinding<rest::DeMosaic::Config::V2::Demoire> binding;
};

/// Removal of purple fringes.
class DeMosaic2PageDePurple : public DeMosaic2Page
{
    Q_OBJECT

public:
    explicit DeMosaic2PageDePurple(QWidget* pParent);

    void updateStatus() override;

    rest::DeMosaic::Config::V2::DePurple* pDePurple = nullptr;
    QCheckBox* pCheckBoxEnable;
    QComboBox* pComboBoxCbCrMode;
    SliderSpinWidget *pSliderSpinWidgetSaturationShrink, *pSliderSpinWidgetThreshold;

private:
    shortcut::RecordBinding<rest::DeMosaic::Config::V2::DePurple> binding;
};

/// Sharpening of areas and of lines, and its filter.
class DeMosaic2PageSharpen : public DeMosaic2Page
{
    Q_OBJECT

public:
    explicit DeMosaic2PageSharpen(QWidget* pParent);

    void updateStatus() override;

    // The spelling of the controls is the system's own.
    rest::DeMosaic::Config::V2::Sharpen* pSharpen = nullptr;
    rest::DeMosaic::Config::V2::SharpenFilter* pSharpenFilter = nullptr;
    rest::DeMosaic::Config::V2::SharpenLine* pSharpenLine = nullptr;
    QCheckBox *pCheckBoxEnable, *pCheckBoxEnableSharpenLine;
    SliderSpinWidget *pSliderSpinWidgetClipBlack, *pSliderSpinWidgetClipWhite;
    SliderSpinWidget *pSliderSpinWidgetFactorBlack, *pSliderSpinWidgetFactorWhite;
    SliderSpinWidget *pSliderSpinWidgetRatioR1, *pSliderSpinWidgetRatioR2, *pSliderSpinWidgetRatioR3;
    SliderSpinWidget *pSliderSpinWidgetSharppenFilter00, *pSliderSpinWidgetSharppenFilter01;
    SliderSpinWidget *pSliderSpinWidgetSharppenFilter02, *pSliderSpinWidgetSharppenFilter10;
    SliderSpinWidget *pSliderSpinWidgetSharppenFilter11, *pSliderSpinWidgetSharppenFilter12;
    SliderSpinWidget *pSliderSpinWidgetSharppenFilter20, *pSliderSpinWidgetSharppenFilter21;
    SliderSpinWidget* pSliderSpinWidgetSharppenFilter22;
    SliderSpinWidget *pSliderSpinWidgetSharppenLineRatioR1, *pSliderSpinWidgetSharppenLineRatioR2;
    SliderSpinWidget *pSliderSpinWidgetSharppenLineShift1, *pSliderSpinWidgetSharppenLineStrength;
    SliderSpinWidget* pSliderSpinWidgetSharppenLineT1;
    SliderSpinWidget *pSliderSpinWidgetThresholdT1, *pSliderSpinWidgetThresholdT2Shift;
    SliderSpinWidget *pSliderSpinWidgetThresholdT3, *pSliderSpinWidgetThresholdT4Shift;

private:
    void amountsBuild(shortcut::Form& sharpen);
    void filterBuild(shortcut::Form filter);
    void lineBuild(shortcut::Form line);
    void thresholdsBuild(shortcut::Form threshold);

    shortcut::RecordBinding<rest::DeMosaic::Config::V2::Sharpen> binding;
    shortcut::RecordBinding<rest::DeMosaic::Config::V2::SharpenFilter> bindingFilter;
    shortcut::RecordBinding<rest::DeMosaic::Config::V2::SharpenLine> bindingLine;
};

/// Protection of skin, by its colour.
class DeMosaic2PageSkin : public DeMosaic2Page
{
    Q_OBJECT

public:
    explicit DeMosaic2PageSkin(QWidget* pParent);

    void updateStatus() override;

    rest::DeMosaic::Config::V2::Skin* pSkin = nullptr;
    QCheckBox* pCheckBoxEnable;
    SliderSpinWidget *pSliderSpinWidgetCbMin, *pSliderSpinWidgetCbMax;
    SliderSpinWidget *pSliderSpinWidgetCrMin, *pSliderSpinWidgetCrMax;
    SliderSpinWidget *pSliderSpinWidgetYMin, *pSliderSpinWidgetYMax;

private:
    shortcut::RecordBinding<rest::DeMosaic::Config::V2::Skin> binding;
};

/// "Demosaicing 2": five tabs on one record, which goes out whole with each change.
class DeMosaic2Widget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit DeMosaic2Widget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    DeMosaic2PageGlobal* pDeMosaic2PageGlobal;
    DeMosaic2PageDeMoire* pDeMosaic2PageDeMoire;
    DeMosaic2PageDePurple* pDeMosaic2PageDePurple;
    DeMosaic2PageSharpen* pDeMosaic2PageSharppen;
    DeMosaic2PageSkin* pDeMosaic2PageSkin;
    QTabWidget* pTabWidget;
    rest::DeMosaic::Config config;

private:
    void tabAdd(DeMosaic2Page* pPage, const QString& text);
};
