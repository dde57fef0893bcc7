#include "tuning-client/source/module/dnr2-v5-widget.h"

#include "tuning-client/source/shortcut/value-pair.h"

using rest::Dnr2;

Dnr2V5Widget::Dnr2V5Widget(QWidget* pParent, const QString& name)
    : EnableAutoSliderAbstractWidget(pParent, name, Sum), config(rest::recordZero<Dnr2::Config>())
{
    using V5 = Dnr2::Config::V5;
    ledWordsSet(tr("2DNR v5 ON"), tr("2DNR v5 OFF"));
    binding
        .add(slider(BlendOpacityStatic, tr("Blending Opacity Static"), 0, 100), &V5::blendOpacity,
             &V5::BlendOpacity::_static)
        .add(slider(BlendOpacityMoving, tr("Blending Opacity Moving"), 0, 100), &V5::blendOpacity,
             &V5::BlendOpacity::moving)
        .add(slider(DenoiseStrength, tr("Blending Slope"), 0.1, 32, 1), &V5::denoiseStrength)
        .add(slider(Sigma, tr("Sigma"), 0.01, 100, 2), &V5::sigma);
    form(pGridLayoutScrollArea).stretch();
}

/// Sends the pair even where it is out of order, and then what it has become.
void Dnr2V5Widget::changed(QObject* pControl)
{
    configSet();
    auto* pStatic = sliderSpinWidgets[BlendOpacityStatic];
    auto* pMoving = sliderSpinWidgets[BlendOpacityMoving];
    for (auto* pSlider : {pStatic, pMoving})
        if (pControl == pSlider && shortcut::giveWay(pSlider, pStatic, pMoving))
            configSet();
}

void Dnr2V5Widget::configSet()
{
    config.v5.isAuto = isAuto();
    binding.store(config.v5);
    Dnr2().configSet(config, Dnr2::V5);
}

void Dnr2V5Widget::editTable() { tableEdit<Dnr2>(Dnr2::V5); }

void Dnr2V5Widget::enableSet(bool isEnable) { enableSend<Dnr2>(isEnable, Dnr2::V5); }

void Dnr2V5Widget::reset() { resetSend<Dnr2>(Dnr2::V5); }

void Dnr2V5Widget::updateStatus()
{
    bool isEnable = false;
    Dnr2().enableGet(isEnable, Dnr2::V5).configGet(config, Dnr2::V5);
    enableBoxShow(isEnable);
    workModeShow(config.v5.isAuto);
    binding.show(config.v5);
    ledShow(isEnable);
    // Last: a running module greys its sliders in Manual too.
    childrenWidgetsEnableSet(!isEnable);
}
