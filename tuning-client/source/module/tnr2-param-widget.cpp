#include "tuning-client/source/module/tnr2-param-widget.h"

#include <QCheckBox>

using rest::Dnr3;

Tnr2ParamWidget::Tnr2ParamWidget(QWidget* pParent)
    : EnableAutoLevelSliderAbstractWidget(pParent, "TNR2 Param", Sum), config(rest::recordZero<Dnr3::Config>())
{
    using Tnr = Dnr3::Config::V3_2::Tnr;
    pCheckBoxEnable->setText(tr("Enable TNR2"));
    pSliderSpinWidgetLevel->setDecimals(1);
    pSliderSpinWidgetLevel->setRange(1, 3);
    auto page = form(pGridLayoutScrollArea);
    pCheckBoxMotionDilate = page.textCheckBox(tr("Enable Motion Dilation"));
    pCheckBoxMotionErode = page.textCheckBox(tr("Enable Motion Erosion"));
    pCheckBoxPregamma = page.textCheckBox(tr("Enable Noise Model"));
    pCheckBoxLumaComp = page.textCheckBox(tr("Enable Luma Compensation"));
    binding.add(pCheckBoxEnable, &Tnr::tnrEn)
        .add(pCheckBoxMotionDilate, &Tnr::motionDilateEn)
        .add(pCheckBoxMotionErode, &Tnr::motionErodeEn)
        .add(pCheckBoxPregamma, &Tnr::pregammaEn)
        .add(pCheckBoxLumaComp, &Tnr::lumaCompEn)
        .add(slider(NoiseLevel, tr("Noise Level"), 0, 1024), &Tnr::noiseLevel)
        .add(slider(MotionSlope, tr("Motion Slope"), 1, 1023), &Tnr::thrMotionSlope)
        .add(slider(SadWeight, tr("Sad Weight"), 0, 16), &Tnr::sadWeight)
        .add(slider(FilterLength, tr("Filter Length"), 0, 1024), &Tnr::filterLen)
        .add(slider(FilterLength2, tr("Filter Length 2"), 0, 1024), &Tnr::filterLen2)
        .add(slider(NoiseLevelA, tr("Noise Level a"), 0, 1000), &Tnr::noiselevelA)
        .add(slider(NoiseLevelB, tr("Noise Level b"), 0, 10000), &Tnr::noiselevelB)
        .add(slider(Strength, tr("Strength"), 0, 128), &Tnr::strength)
        .add(slider(RangeH, tr("Range h"), 3, 7), &Tnr::rangeH)
        .add(slider(RangeV, tr("Range v"), 3, 7), &Tnr::rangeV)
        .add(slider(DilateH, tr("Dilate h"), 3, 7), &Tnr::dilateH)
        .add(slider(PreWeight, tr("Preweight"), 0, 32), &Tnr::preweight)
        .add(slider(LumaPixelSlop, tr("Luma Pixel Slope"), 0, 255), &Tnr::lumaPixelSlop)
        .add(slider(LumaPixelSlopShift, tr("Luma Pixel Slope Shift"), 0, 15), &Tnr::lumaPixelSlopShift)
        .add(slider(LumaPixelSlopMin, tr("Luma Pixel Slope Min"), 0, 128), &Tnr::lumaPixelSlopMin)
        .add(slider(LumaPixelValShift, tr("Luma Pixel Val Shift"), 0, 255), &Tnr::lumaPixelValShift);
    page.stretch();
}

/// Whatever mode and level the board has, it keeps them.
void Tnr2ParamWidget::configSet()
{
    binding.store(config.v3_2.tnr);
    Dnr3().configSet(config, Dnr3::V3_2);
}

void Tnr2ParamWidget::editTable() { tableEdit<Dnr3>(Dnr3::V3_2); }

void Tnr2ParamWidget::enableSet(bool isEnable)
{
    configSet();
    childrenWidgetsEnableSet(!isEnable);
}

void Tnr2ParamWidget::reset() { resetSend<Dnr3>(Dnr3::V3_2); }

void Tnr2ParamWidget::updateStatus()
{
    Dnr3().configGet(config, Dnr3::V3_2);
    binding.show(config.v3_2.tnr);
    workModeShow(false);
    // Last: a running module greys its sliders in Manual too.
    childrenWidgetsEnableSet(!config.v3_2.tnr.tnrEn);
}
