#include "tuning-client/source/module/ee-widget.h"

using rest::Ee;

EeWidget::EeWidget(QWidget* pParent) : EnableAutoSliderAbstractWidget(pParent, "Edge Enhance", Sum)
{
    using Config = rest::CamEngineEeConfig_t;
    ledWordsSet(tr("EE ON"), tr("EE OFF"));
    pCheckBoxEnable->setText(tr("Enable Edge Enhancement"));
    binding.add(slider(EdgeGain, tr("Edge Gain"), 0, 65535), &Config::edgeGain)
        .add(slider(Strength, tr("Strength"), 0, 128), &Config::strength)
        .add(slider(UvGain, tr("UV Gain"), 0, 65535), &Config::uvGain)
        .add(slider(YGainDown, tr("Y Gain Down"), 0, 65535), &Config::yDownGain)
        .add(slider(YGainUp, tr("Y Gain Up"), 0, 65535), &Config::yUpGain);
    form(pGridLayoutScrollArea).stretch();
}

void EeWidget::configSet()
{
    config.isAuto = isAuto();
    binding.store(config.config);
    Ee().configSet(config);
}

void EeWidget::editTable() { tableEdit<Ee>(); }

void EeWidget::enableSet(bool isEnable)
{
    Ee().enableSet(isEnable);
    EnableAutoSliderAbstractWidget::enableSet(isEnable);
    childrenWidgetsEnableSet(!isEnable);
}

void EeWidget::reset()
{
    Ee().reset();
    emit refresh();
    readStatus();
}

void EeWidget::updateStatus()
{
    bool isEnable = false;
    Ee().enableGet(isEnable).configGet(config);
    stateShow(isEnable, config.isAuto);
    binding.show(config.config);
}
