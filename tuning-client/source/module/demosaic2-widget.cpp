#include "tuning-client/source/module/demosaic2-widget.h"

#include <QCheckBox>
#include <QTabWidget>

using rest::DeMosaic;
using V2 = DeMosaic::Config::V2;

DeMosaic2PageGlobal::DeMosaic2PageGlobal(QWidget* pParent) : DeMosaic2Page(pParent)
{
    using Direction = V2::InterplationDirectionThreshold;
    auto page = form(binding, pGlobal);
    auto direction = page.group(tr("Interplation Direction Threshold"));
    binding
        .add(pSliderSpinWidgetInterplationDirectionThresholdMin = direction.slider(tr("Min"), 0, 4095),
             &V2::interplationDirectionThreshold, &Direction::min)
        .add(pSliderSpinWidgetInterplationDirectionThresholdMax = direction.slider(tr("Max"), 0, 4095),
             &V2::interplationDirectionThreshold, &Direction::max)
        .add(pSliderSpinWidgetThreshold = page.slider(tr("Threshold"), 0, 255), &V2::threshold)
        .add(pSliderSpinWidgetDenoiseStrength = page.slider(tr("Denoise Strength"), 0, 32), &V2::denoiseStrength)
        .add(pSliderSpinWidgetSharpenSize = page.slider(tr("Sharpen Size"), 0, 16), &V2::sharpenSize);
    page.stretch();
}

void DeMosaic2PageGlobal::updateStatus() { binding.show(*pGlobal); }

DeMosaic2PageDeMoire::DeMosaic2PageDeMoire(QWidget* pParent) : DeMosaic2Page(pParent)
{
    using Demoire = V2::Demoire;
    auto page = form(binding, pDeMoire);
    binding.add(pCheckBoxEnable = page.textCheckBox(tr("DeMoire")), &Demoire::isEnable)
        .add(pSliderSpinWidgetAreaThreshold = page.slider(tr("Area Threshold"), 0, 32), &Demoire::areaThreshold)
        .add(pSliderSpinWidgetSaturationShrink = page.slider(tr("Saturation Shrink"), 0, 32),
             &Demoire::saturationShrink);
    auto threshold = page.group(tr("Threshold"));
    binding
        .add(pSliderSpinWidgetThresholdR1 = threshold.slider(tr("R1"), 0, 256), &Demoire::threshold,
             &Demoire::Threshold::r1)
        .add(pSliderSpinWidgetThresholdR2 = threshold.slider(tr("R2"), 0, 256), &Demoire::threshold,
             &Demoire::Threshold::r2)
        .add(pSliderSpinWidgetThresholdT1 = threshold.slider(tr("T1"), 0, 255), &Demoire::threshold,
             &Demoire::Threshold::t1)
        .add(pSliderSpinWidgetThresholdT2Shift = threshold.slider(tr("T2 Shift"), 0, 8), &Demoire::threshold,
             &Demoire::Threshold::t2Shift);
    auto edge = page.group(tr("Edge"));
    binding.add(pSliderSpinWidgetEdgeR1 = edge.slider(tr("R1"), 0, 256), &Demoire::edge, &Demoire::Edge::r1)
        .add(pSliderSpinWidgetEdgeR2 = edge.slider(tr("R2"), 0, 256), &Demoire::edge, &Demoire::Edge::r2)
        .add(pSliderSpinWidgetEdgeT1 = edge.slider(tr("T1"), 0, 511), &Demoire::edge, &Demoire::Edge::t1)
        .add(pSliderSpinWidgetEdgeT2Shift = edge.slider(tr("T2 Shift"), 0, 9), &Demoire::edge, &Demoire::Edge::t2Shift);
    page.stretch();
}

void DeMosaic2PageDeMoire::updateStatus() { binding.show(*pDeMoire); }

DeMosaic2PageDePurple::DeMosaic2PageDePurple(QWidget* pParent) : DeMosaic2Page(pParent)
{
    using DePurple = V2::DePurple;
    auto page = form(binding, pDePurple);
    pCheckBoxEnable = page.textCheckBox(tr("Enable DePurple"));
    // The items stand at the places of their values.
    pComboBoxCbCrMode =
        page.comboBox(tr("Cb Cr Mode"), {{tr("Off"), {}}, {tr("Red"), {}}, {tr("Blue"), {}}, {tr("Red & Blue"), {}}});
    binding.add(pCheckBoxEnable, &DePurple::isEnable)
        .addOr(DePurple::Off, pComboBoxCbCrMode, &DePurple::cbCrMode)
        .add(pSliderSpinWidgetSaturationShrink = page.slider(tr("Saturation Shrink"), 0, 8),
             &DePurple::saturationShrink)
        .add(pSliderSpinWidgetThreshold = page.slider(tr("Threshold"), 8, 255), &DePurple::threshold);
    page.stretch();
}

void DeMosaic2PageDePurple::updateStatus() { binding.show(*pDePurple); }

DeMosaic2PageSharpen::DeMosaic2PageSharpen(QWidget* pParent) : DeMosaic2Page(pParent)
{
    auto page = form(binding, pSharpen);
    binding.add(pCheckBoxEnable = page.textCheckBox(tr("Enable Sharpen")), &V2::Sharpen::isEnable);
    amountsBuild(page);
    filterBuild(form(bindingFilter, pSharpenFilter).group(tr("Filter")));
    lineBuild(form(bindingLine, pSharpenLine).group(tr("Sharpen Line")));
    thresholdsBuild(page.group(tr("Threshold")));
    page.stretch();
}

void DeMosaic2PageSharpen::amountsBuild(shortcut::Form& sharpen)
{
    using Sharpen = V2::Sharpen;
    using BlackWhite = Sharpen::BlackWhite;
    auto clip = sharpen.group(tr("Clip"));
    binding.add(pSliderSpinWidgetClipBlack = clip.slider(tr("Black"), 0, 2047), &Sharpen::clip, &BlackWhite::black)
        .add(pSliderSpinWidgetClipWhite = clip.slider(tr("White"), 0, 2047), &Sharpen::clip, &BlackWhite::white);
    auto factor = sharpen.group(tr("Factor"));
    binding.add(pSliderSpinWidgetFactorBlack = factor.slider(tr("Black"), 0, 511), &Sharpen::factor, &BlackWhite::black)
        .add(pSliderSpinWidgetFactorWhite = factor.slider(tr("White"), 0, 511), &Sharpen::factor, &BlackWhite::white);
    auto ratio = sharpen.group(tr("Ratio"));
    binding.add(pSliderSpinWidgetRatioR1 = ratio.slider(tr("R1"), 0, 256), &Sharpen::ratio, &Sharpen::Ratio::r1)
        .add(pSliderSpinWidgetRatioR2 = ratio.slider(tr("R2"), 0, 256), &Sharpen::ratio, &Sharpen::Ratio::r2)
        .add(pSliderSpinWidgetRatioR3 = ratio.slider(tr("R3"), 0, 256), &Sharpen::ratio, &Sharpen::Ratio::r3);
}

void DeMosaic2PageSharpen::filterBuild(shortcut::Form filter)
{
    using Filter = V2::SharpenFilter;
    bindingFilter.add(pSliderSpinWidgetSharppenFilter00 = filter.slider(tr("00"), 0, 34), &Filter::_00)
        .add(pSliderSpinWidgetSharppenFilter01 = filter.slider(tr("01"), 0, 34), &Filter::_01)
        .add(pSliderSpinWidgetSharppenFilter02 = filter.slider(tr("02"), 0, 34), &Filter::_02)
        .add(pSliderSpinWidgetSharppenFilter10 = filter.slider(tr("10"), 0, 34), &Filter::_10)
        .add(pSliderSpinWidgetSharppenFilter11 = filter.slider(tr("11"), 0, 34), &Filter::_11)
        .add(pSliderSpinWidgetSharppenFilter12 = filter.slider(tr("12"), 0, 34), &Filter::_12)
        .add(pSliderSpinWidgetSharppenFilter20 = filter.slider(tr("20"), 0, 34), &Filter::_20)
        .add(pSliderSpinWidgetSharppenFilter21 = filter.slider(tr("21"), 0, 34), &Filter::_21)
        .add(pSliderSpinWidgetSharppenFilter22 = filter.slider(tr("22"), 0, 34), &Filter::_22);
}

void DeMosaic2PageSharpen::lineBuild(shortcut::Form line)
{
    using Line = V2::SharpenLine;
    bindingLine.add(pCheckBoxEnableSharpenLine = line.textCheckBox(tr("Enable Sharpen Line")), &Line::isEnable)
        .add(pSliderSpinWidgetSharppenLineRatioR1 = line.slider(tr("Ratio R1"), 0, 256), &Line::ratio, &Line::Ratio::r1)
        .add(pSliderSpinWidgetSharppenLineRatioR2 = line.slider(tr("Ratio R2"), 0, 256), &Line::ratio, &Line::Ratio::r2)
        .add(pSliderSpinWidgetSharppenLineShift1 = line.slider(tr("Shift 1"), 0, 10), &Line::shift1)
        .add(pSliderSpinWidgetSharppenLineStrength = line.slider(tr("strength"), 0, 4095), &Line::strength)
        .add(pSliderSpinWidgetSharppenLineT1 = line.slider(tr("T1"), 0, 2047), &Line::t1);
}

void DeMosaic2PageSharpen::thresholdsBuild(shortcut::Form threshold)
{
    using Sharpen = V2::Sharpen;
    using Threshold = Sharpen::Threshold;
    binding.add(pSliderSpinWidgetThresholdT1 = threshold.slider(tr("T1"), 0, 2047), &Sharpen::threshold, &Threshold::t1)
        .add(pSliderSpinWidgetThresholdT2Shift = threshold.slider(tr("T2 Shift"), 0, 11), &Sharpen::threshold,
             &Threshold::t2Shift)
        .add(pSliderSpinWidgetThresholdT3 = threshold.slider(tr("T3"), 0, 2047), &Sharpen::threshold, &Threshold::t3)
        .add(pSliderSpinWidgetThresholdT4Shift = threshold.slider(tr("T4 Shift"), 0, 11), &Sharpen::threshold,
             &Threshold::t4Shift);
}

void DeMosaic2PageSharpen::updateStatus()
{
    binding.show(*pSharpen);
    bindingFilter.show(*pSharpenFilter);
    bindingLine.show(*pSharpenLine);
}

DeMosaic2PageSkin::DeMosaic2PageSkin(QWidget* pParent) : DeMosaic2Page(pParent)
{
    using Skin = V2::Skin;
    auto page = form(binding, pSkin);
    binding.add(pCheckBoxEnable = page.textCheckBox(tr("Enable Skin")), &Skin::isEnable);
    const auto range =
        [&](const QString& title, SliderSpinWidget*& pMin, SliderSpinWidget*& pMax, Skin::Threshold Skin::*pThreshold)
    {
        auto group = page.group(title);
        binding.add(pMin = group.slider(tr("Min"), 0, 4095), pThreshold, &Skin::Threshold::min2047)
            .add(pMax = group.slider(tr("Max"), 0, 4095), pThreshold, &Skin::Threshold::max2047);
    };
    range(tr("Cb"), pSliderSpinWidgetCbMin, pSliderSpinWidgetCbMax, &Skin::cbThreshold);
    range(tr("Cr"), pSliderSpinWidgetCrMin, pSliderSpinWidgetCrMax, &Skin::crThreshold);
    range(tr("Y"), pSliderSpinWidgetYMin, pSliderSpinWidgetYMax, &Skin::yThreshold);
    page.stretch();
}

void DeMosaic2PageSkin::updateStatus() { binding.show(*pSkin); }

DeMosaic2Widget::DeMosaic2Widget(QWidget* pParent)
    : EnableSliderAbstractWidget(pParent, "Demosaicing 2", 0),
      pDeMosaic2PageGlobal(new DeMosaic2PageGlobal(nullptr)),
      pDeMosaic2PageDeMoire(new DeMosaic2PageDeMoire(nullptr)),
      pDeMosaic2PageDePurple(new DeMosaic2PageDePurple(nullptr)),
      pDeMosaic2PageSharppen(new DeMosaic2PageSharpen(nullptr)),
      pDeMosaic2PageSkin(new DeMosaic2PageSkin(nullptr)),
      pTabWidget(new QTabWidget),
      config(rest::recordZero<DeMosaic::Config>())
{
    pCheckBoxEnable->setText(tr("Enable DeMosaic 2"));
    pDeMosaic2PageGlobal->pGlobal = &config.v2;
    pDeMosaic2PageDeMoire->pDeMoire = &config.v2.deMoire;
    pDeMosaic2PageDePurple->pDePurple = &config.v2.dePurple;
    pDeMosaic2PageSharppen->pSharpen = &config.v2.sharpen;
    pDeMosaic2PageSharppen->pSharpenFilter = &config.v2.sharpenFilter;
    pDeMosaic2PageSharppen->pSharpenLine = &config.v2.sharpenLine;
    pDeMosaic2PageSkin->pSkin = &config.v2.skin;
    tabAdd(pDeMosaic2PageGlobal, tr("Global"));
    tabAdd(pDeMosaic2PageDeMoire, tr("DeMoire"));
    tabAdd(pDeMosaic2PageDePurple, tr("DePurple"));
    tabAdd(pDeMosaic2PageSharppen, tr("Sharppen")); // the spelling is the system's own
    tabAdd(pDeMosaic2PageSkin, tr("Skin"));
    form(pGridLayoutScrollArea).wide(pTabWidget);
}

void DeMosaic2Widget::tabAdd(DeMosaic2Page* pPage, const QString& text)
{
    pTabWidget->addTab(pPage, text);
    connectWrite(pPage, &DeMosaic2Page::valueChanged, [this] { configSet(); });
}

void DeMosaic2Widget::configSet() { DeMosaic().configSet(config, DeMosaic::V2); }

void DeMosaic2Widget::enableSet(bool isEnable) { enableSend<DeMosaic>(isEnable, DeMosaic::V2); }

void DeMosaic2Widget::reset() { resetSend<DeMosaic>(DeMosaic::V2); }

void DeMosaic2Widget::updateStatus()
{
    bool isEnable = false;
    DeMosaic().enableGet(isEnable, DeMosaic::V2).configGet(config, DeMosaic::V2);
    enableShow(isEnable);
    if (auto* pPage = qobject_cast<DeMosaic2Page*>(pTabWidget->currentWidget()))
        pPage->updateStatus();
}
