#include "tuning-client/source/module/wdr5-widget.h"

using rest::Wdr;

Wdr5Widget::Wdr5Widget(QWidget* pParent) : EnableAutoLevelSliderAbstractWidget(pParent, "Wide Dynamic Range 5", Sum)
{
    using V5 = Wdr::Config::V5;
    ledWordsSet(tr("WDR5 ON"), tr("WDR5 OFF"));
    auto rows = form(pGridLayoutReserved);
    pCheckBoxFlat = rows.checkBox(tr("Flat Mode"));
    pCheckBoxGcm = rows.checkBox(tr("Global Cureve Mode")); // The official spelling.
    binding.add(pSliderSpinWidgetLevel, &V5::autoLevel)
        .add(pCheckBoxFlat, &V5::isFlat)
        .add(pCheckBoxGcm, &V5::isGlobalCureve)
        .add(slider(Strength, tr("Strength"), 0, 128), &V5::strength)
        .add(slider(StrengthHigh, tr("High Strength"), 0, 128), &V5::highStrength)
        .add(slider(StrengthLow, tr("Low Strength"), 0, 256), &V5::lowStrength)
        .add(slider(Contrast, tr("Contrast"), -1023, 1023), &V5::contrast)
        .add(slider(FlatLevel, tr("Flat Level"), 0, 15), &V5::flatLevel)
        .add(slider(EntropySlope, tr("Entropy Slope"), 0, 1023), &V5::entropySlope)
        .add(slider(EntropyBase, tr("Entropy Base"), 0, 1023), &V5::entropyBase)
        .add(slider(FlatLevelGlobal, tr("Global Flat Level"), 0, 15), &V5::flatLevelGlobal)
        .add(slider(FixedWeight, tr("Fixed Weight"), 0, 1023), &V5::fixedWeight)
        .add(slider(MaxGain, tr("Max Gain"), 1, 256), &V5::maxGain)
        .add(slider(MinGain, tr("Min Gain"), 1, 256), &V5::minGain)
        .add(slider(Degamma, tr("Degamma"), 1, 4, 1), &V5::degamma)
        .add(slider(DiffHigh, tr("High Diff"), 1, 100, 1), &V5::diffHigh)
        .add(slider(DiffLow, tr("Low Diff"), 1, 100, 1), &V5::diffLow)
        .add(slider(LogWeight, tr("Log Weight"), 0, 10, 1), &V5::logWeight)
        .add(slider(SatRange, tr("Sat Range"), 0, 1, 1), &V5::satRange)
        .add(slider(SatThrGainUp, tr("Sat Gain Up Threshold"), 0, 256), &V5::satThrGainUp)
        .add(slider(SatThrGainDown, tr("Sat Gain Down Threshold"), 0, 256), &V5::satThrGainDown);
    form(pGridLayoutScrollArea).stretch();
}

void Wdr5Widget::configSet()
{
    auto config = rest::recordZero<Wdr::Config>();
    config.v5.isAuto = isAuto();
    binding.store(config.v5);
    Wdr().configSet(config, Wdr::V5);
}

void Wdr5Widget::editTable() { tableEdit<Wdr>(Wdr::V5); }

void Wdr5Widget::enableSet(bool isEnable) { enableSend<Wdr>(isEnable, Wdr::V5); }

void Wdr5Widget::reset() { resetSend<Wdr>(Wdr::V5); }

void Wdr5Widget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Wdr::Config>();
    Wdr().enableGet(isEnable, Wdr::V5).configGet(config, Wdr::V5);
    binding.show(config.v5);
    stateShow(isEnable, config.v5.isAuto);
}
