#include "tuning-client/source/module/tnr-param-widget.h"

#include <QCheckBox>

using rest::Dnr3;

TnrParamWidget::TnrParamWidget(QWidget* pParent)
    : EnableAutoLevelSliderAbstractWidget(pParent, "TNR Param", Sum), config(rest::recordZero<Dnr3::Config>())
{
    using Tnr = Dnr3::Config::V3::Tnr;
    pCheckBoxEnable->setText(tr("Enable TNR"));
    pSliderSpinWidgetLevel->setDecimals(1);
    pSliderSpinWidgetLevel->setRange(1, 3);
    binding.add(pCheckBoxEnable, &Tnr::isEnable)
        .add(pSliderSpinWidgetLevel, &Tnr::autoLevel)
        .add(slider(NoiseLevel, tr("Noise Level"), 0, 1024), &Tnr::noiseLevel)
        .add(slider(MotionSlope, tr("Motion Slope"), 1, 100), &Tnr::motionSlope)
        .add(slider(SadWeight, tr("SAD Weight"), 0, 16), &Tnr::sadWeight)
        .add(slider(FilterLength, tr("Filter Length"), 0, 1024), &Tnr::filterLength)
        .add(slider(FilterLength2, tr("Filter Length 2"), 0, 100), &Tnr::filterLength2);
    form(pGridLayoutScrollArea).stretch();
}

void TnrParamWidget::configSet()
{
    config.v3.tnr.isAuto = isAuto();
    binding.store(config.v3.tnr);
    Dnr3().configSet(config, Dnr3::V3);
}

void TnrParamWidget::editTable() { tableEdit<Dnr3>(Dnr3::V3); }

void TnrParamWidget::enableSet(bool isEnable)
{
    configSet();
    childrenWidgetsEnableSet(!isEnable);
}

void TnrParamWidget::reset() { resetSend<Dnr3>(Dnr3::V3); }

void TnrParamWidget::updateStatus()
{
    Dnr3().configGet(config, Dnr3::V3);
    stateShow(config.v3.tnr.isEnable, config.v3.tnr.isAuto);
    binding.show(config.v3.tnr);
}
