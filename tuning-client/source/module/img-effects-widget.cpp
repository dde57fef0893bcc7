#include "tuning-client/source/module/img-effects-widget.h"

#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/message-box.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QRadioButton>

using rest::Ie;
using shortcut::NoSignals;

namespace
{
/// The planes that a selection names; none is `OPTRIX_IE_COLOR_SELECTION_INVALID`.
struct Planes
{
    rest::OptrixIeColorSelection_t selection;
    bool isRed, isGreen, isBlue;
};

constexpr Planes planes[] = {
    {rest::OPTRIX_IE_COLOR_SELECTION_RGB, true, true, true}, {rest::OPTRIX_IE_COLOR_SELECTION_RG, true, true, false},
    {rest::OPTRIX_IE_COLOR_SELECTION_RB, true, false, true}, {rest::OPTRIX_IE_COLOR_SELECTION_R, true, false, false},
    {rest::OPTRIX_IE_COLOR_SELECTION_GB, false, true, true}, {rest::OPTRIX_IE_COLOR_SELECTION_G, false, true, false},
    {rest::OPTRIX_IE_COLOR_SELECTION_B, false, false, true},
};

} // namespace

ImgEffectsWidget::ImgEffectsWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Image Effects", false), pCheckBoxEnable(new QCheckBox(tr("Enable Image Effects")))
{
    modesBuild();
    parametersBuild();
    connectSwitch(
        pCheckBoxEnable,
        [this](bool isEnable)
        {
            if (isEnable)
                configSet();
            Ie().enableSet(pCheckBoxEnable->isChecked());
        },
        [this](bool isFree) { controlsEnableSet(isFree); });
}

void ImgEffectsWidget::modesBuild()
{
    shortcut::Form page(this, pGridLayoutScrollArea, {});
    page.wide(pCheckBoxEnable);
    pButtonGroupMode = page.radioGroup(tr("Image Effects Mode"), {{tr("Gray Scale"), rest::OPTRIX_IE_MODE_GRAYSCALE},
                                                                  {tr("Negative"), rest::OPTRIX_IE_MODE_NEGATIVE},
                                                                  {tr("Sepia"), rest::OPTRIX_IE_MODE_SEPIA},
                                                                  {tr("Color Selection"), rest::OPTRIX_IE_MODE_COLOR}});
    pGroupBoxMode = shortcut::boxOf(pButtonGroupMode);
    pRadioButtonGrayScale = shortcut::radioOf(pButtonGroupMode, rest::OPTRIX_IE_MODE_GRAYSCALE);
    pRadioButtonNegative = shortcut::radioOf(pButtonGroupMode, rest::OPTRIX_IE_MODE_NEGATIVE);
    pRadioButtonSepia = shortcut::radioOf(pButtonGroupMode, rest::OPTRIX_IE_MODE_SEPIA);
    pRadioButtonColorSelection = shortcut::radioOf(pButtonGroupMode, rest::OPTRIX_IE_MODE_COLOR);
    pButtonGroupRange = page.radioGroup(tr("Chrominance Clipping Range"),
                                        {{tr("BT.601 (16..240)"), rest::OPTRIX_IE_RANGE_BT601},
                                         {tr("Full Range (0..255)"), rest::OPTRIX_IE_RANGE_FULL_RANGE}});
    pGroupBoxRange = shortcut::boxOf(pButtonGroupRange);
    pRadioButtonRangeBt601 = shortcut::radioOf(pButtonGroupRange, rest::OPTRIX_IE_RANGE_BT601);
    pRadioButtonRangeFull = shortcut::radioOf(pButtonGroupRange, rest::OPTRIX_IE_RANGE_FULL_RANGE);
    pRadioButtonSepia->setChecked(true);
    pRadioButtonRangeBt601->setChecked(true);
}

void ImgEffectsWidget::parametersBuild()
{
    shortcut::Form page(this, pGridLayoutScrollArea, {});
    auto sepia = page.group(tr("Sepia"));
    pGroupBoxSepia = sepia.groupBox();
    bindingSepia.add(pSliderSpinWidgetTintCb = sepia.slider(tr("Tint Cb"), 0, 255), &ModeConfig::Sepia_s::TintCb)
        .add(pSliderSpinWidgetTintCr = sepia.slider(tr("Tint Cr"), 0, 255), &ModeConfig::Sepia_s::TintCr);
    auto color = page.group(tr("Color Selection"));
    pGroupBoxColorSelection = color.groupBox();
    pCheckBoxRed = color.textCheckBox(tr("Red"));
    pCheckBoxGreen = color.textCheckBox(tr("Green"));
    pCheckBoxBlue = color.textCheckBox(tr("Blue"));
    bindingThreshold.add(pSliderSpinWidgetColorThreshold = color.slider(tr("Threshold"), 0, 255),
                         &ModeConfig::ColorSelection_s::col_threshold);
    page.stretch();
    pCheckBoxRed->setChecked(true);
    pGroupBoxColorSelection->hide();
    connect(pRadioButtonSepia, &QRadioButton::toggled, pGroupBoxSepia, &QWidget::setVisible);
    connect(pRadioButtonColorSelection, &QRadioButton::toggled, pGroupBoxColorSelection, &QWidget::setVisible);
}

void ImgEffectsWidget::controlsEnableSet(bool isEnable)
{
    shortcut::enabledSet(shortcut::siblings(pCheckBoxEnable), isEnable);
}

rest::OptrixIeColorSelection_t ImgEffectsWidget::colors() const
{
    for (const auto& row : planes)
        if (row.isRed == pCheckBoxRed->isChecked() && row.isGreen == pCheckBoxGreen->isChecked() &&
            row.isBlue == pCheckBoxBlue->isChecked())
            return row.selection;
    return rest::OPTRIX_IE_COLOR_SELECTION_INVALID;
}

/// Checks the boxes of the planes, and unchecks none.
void ImgEffectsWidget::colorsShow(rest::OptrixIeColorSelection_t selection)
{
    const auto check = [](QCheckBox* pCheckBox, bool isNamed)
    {
        if (isNamed)
            NoSignals::setChecked(pCheckBox, true);
    };
    for (const auto& row : planes)
        if (row.selection == selection)
        {
            check(pCheckBoxRed, row.isRed);
            check(pCheckBoxGreen, row.isGreen);
            check(pCheckBoxBlue, row.isBlue);
        }
}

void ImgEffectsWidget::configSet()
{
    auto config = rest::recordZero<Ie::Config>();
    auto& effect = config.config;
    effect.mode = rest::OptrixIeMode_t(pButtonGroupMode->checkedId());
    effect.range = rest::OptrixIeRange_t(pButtonGroupRange->checkedId());
    if (effect.mode == rest::OPTRIX_IE_MODE_SEPIA)
        bindingSepia.store(effect.ModeConfig.Sepia);
    if (effect.mode == rest::OPTRIX_IE_MODE_COLOR)
    {
        const auto selection = colors();
        if (selection == rest::OPTRIX_IE_COLOR_SELECTION_INVALID)
        {
            message_box::information(this, tr("Image Effects"), tr("Please select a color!"));
            NoSignals::setChecked(pCheckBoxEnable, false);
            return;
        }
        effect.ModeConfig.ColorSelection.col_selection = selection;
        bindingThreshold.store(effect.ModeConfig.ColorSelection);
    }
    Ie().configSet(config);
}

void ImgEffectsWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Ie::Config>();
    Ie().enableGet(isEnable).configGet(config);
    const auto& effect = config.config;
    NoSignals::setChecked(pCheckBoxEnable, isEnable);
    controlsEnableSet(!isEnable);
    NoSignals::setCheckedId(pButtonGroupMode, int(effect.mode));
    const bool isSepia = effect.mode == rest::OPTRIX_IE_MODE_SEPIA;
    const bool isColor = effect.mode == rest::OPTRIX_IE_MODE_COLOR;
    pGroupBoxSepia->setVisible(isSepia);
    pGroupBoxColorSelection->setVisible(isColor);
    if (isSepia)
        bindingSepia.show(effect.ModeConfig.Sepia);
    if (isColor)
    {
        colorsShow(effect.ModeConfig.ColorSelection.col_selection);
        bindingThreshold.show(effect.ModeConfig.ColorSelection);
    }
}
