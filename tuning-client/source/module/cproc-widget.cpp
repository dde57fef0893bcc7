#include "tuning-client/source/module/cproc-widget.h"

#include "tuning-client/source/shortcut/form.h"

using rest::Cproc;
using Config = rest::CamEngineCprocConfig_t;

CProcWidget::CProcWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Color Processing", false), pCheckBoxEnable(new QCheckBox(tr("Enable Color Processing")))
{
    shortcut::Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    page.wide(pCheckBoxEnable);
    pComboBoxChromaOut = page.comboBox(tr("Chrominance clipping range at output"),
                                       {{tr("BT.601 (16..240)"), rest::OPTRIX_CPROC_CHROM_RANGE_OUT_BT601},
                                        {tr("Full Range (0..255)"), rest::OPTRIX_CPROC_CHROM_RANGE_OUT_FULL_RANGE}});
    pComboBoxLumaIn = page.comboBox(tr("Luminance input range (offset processing)"),
                                    {{tr("BT.601 (64..940)"), rest::OPTRIX_CPROC_LUM_RANGE_IN_BT601},
                                     {tr("Full Range (0..1023)"), rest::OPTRIX_CPROC_LUM_RANGE_IN_FULL_RANGE}});
    pComboBoxLumaOut = page.comboBox(tr("Luminance clipping range at output"),
                                     {{tr("BT.601 (16..235)"), rest::OPTRIX_CPROC_LUM_RANGE_OUT_BT601},
                                      {tr("Full Range (0..255)"), rest::OPTRIX_CPROC_LUM_RANGE_OUT_FULL_RANGE}});
    pQLabelChrominanceclippingrangeatoutput = shortcut::labelOf(pComboBoxChromaOut);
    pQLabelLuminanceinputrangeoffsetprocessing = shortcut::labelOf(pComboBoxLumaIn);
    pQLabelLuminanceclippingrangeatoutput = shortcut::labelOf(pComboBoxLumaOut);
    pSliderSpinWidgetContrast = page.slider(tr("Contrast"), 0.3, 1.9921875, 7);
    pSliderSpinWidgetContrast->setSingleStep(0.0078125);
    pSliderSpinWidgetBrightness = page.slider(tr("Brightness"), -128, 127);
    pSliderSpinWidgetSaturation = page.slider(tr("Saturation"), 0, 1.9921875, 7);
    pSliderSpinWidgetSaturation->setSingleStep(0.0078125);
    pSliderSpinWidgetHue = page.slider(tr("Hue"), -90, 89.296875);
    pSliderSpinWidgetHue->setSingleStep(0.703125);
    page.stretch();
    binding.add(pComboBoxChromaOut, &Config::ChromaOut)
        .add(pComboBoxLumaIn, &Config::LumaIn)
        .add(pComboBoxLumaOut, &Config::LumaOut)
        .add(pSliderSpinWidgetContrast, &Config::contrast)
        .add(pSliderSpinWidgetBrightness, &Config::brightness)
        .add(pSliderSpinWidgetSaturation, &Config::saturation)
        .add(pSliderSpinWidgetHue, &Config::hue);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Cproc().enableSet(isEnable); },
        [this](bool isFree) { controlsEnableSet(isFree); }, shortcut::Grey::Always);
}

void CProcWidget::controlsEnableSet(bool isEnable)
{
    shortcut::enabledSet(shortcut::siblings(pCheckBoxEnable), isEnable);
}

void CProcWidget::configSet()
{
    auto config = rest::recordZero<Cproc::Config>();
    binding.store(config.config);
    Cproc().configSet(config);
}

void CProcWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Cproc::Config>();
    Cproc().enableGet(isEnable).configGet(config);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    controlsEnableSet(!isEnable);
    binding.show(config.config);
}
