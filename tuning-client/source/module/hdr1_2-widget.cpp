#include "tuning-client/source/module/hdr1_2-widget.h"

#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QGridLayout>
#include <QRadioButton>
#include <QVBoxLayout>

using rest::Hdr;
using V1_2 = Hdr::Config::V1_2;
using Mode = Hdr::Status::V1_2::Mode;

CombineWidget::CombineWidget(QString title, QWidget* pParent) : QWidget(pParent), pGroupBox(new QGroupBox(title))
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pGroupBox);
    auto* pGroupLayout = new QVBoxLayout(pGroupBox);
    const auto row = [&](const QString& text, double min, double max, int decimals, auto fChanged)
    {
        auto* pSlider = new SliderSpinWidget(text, min, max, decimals, fChanged, nullptr);
        pGroupLayout->addWidget(pSlider);
        return pSlider;
    };
    const auto fChanged = [this](double) { emit valueChanged(); };
    pSliderSpinWidgetExposureRatio = row(tr("Exposure Ratio"), 1, 256, 0, fChanged);
    pSliderSpinWidgetExtensionBit = row(tr("Extension Bit"), 0, 4, 0, fChanged);
    pSliderSpinWidgetTransRangeBegin =
        row(tr("Trans Range Begin"), 0, 1, 2,
            [this](double) { rangeKeep(pSliderSpinWidgetTransRangeBegin, pSliderSpinWidgetTransRangeEnd); });
    pSliderSpinWidgetTransRangeEnd =
        row(tr("Trans Range End"), 0, 1, 2,
            [this](double) { rangeKeep(pSliderSpinWidgetTransRangeEnd, pSliderSpinWidgetTransRangeBegin); });
}

/// The one that was moved gives way, and that is a change as well.
void CombineWidget::rangeKeep(SliderSpinWidget* pMoved, const SliderSpinWidget* pOther)
{
    if (pSliderSpinWidgetTransRangeBegin->value() >= pSliderSpinWidgetTransRangeEnd->value())
        pMoved->setValue(pOther->value());
    emit valueChanged();
}

Hdr1_2Widget::Hdr1_2Widget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, name),
      pCheckBoxEnable(new QCheckBox(tr("Enable High Dynamic Range 1.2"))),
      pCheckBoxNative(new QCheckBox(tr("Native Hdr"))),
      pCombineWidgetLongShort(new CombineWidget(tr("Long Short Combine"), nullptr)),
      pCombineWidgetLongShortVeryShort(new CombineWidget(tr("Long Short Very Short Combine"), nullptr))
{
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0, 1, 2);
    pGridLayoutScrollArea->addWidget(pCheckBoxNative, 1, 0, 1, 2);
    modeBuild();
    pGridLayoutScrollArea->addWidget(pCombineWidgetLongShort, 3, 0, 1, 2);
    pGridLayoutScrollArea->addWidget(pCombineWidgetLongShortVeryShort, 4, 0, 1, 2);
    pGridLayoutScrollArea->setRowStretch(5, 1);

    // The board does not tell its state, so after a failure too the box is all there is to go by.
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Hdr().enableSet(isEnable, Hdr::V1_2); },
        [this](bool isFree) { freeSet(isFree); }, shortcut::Grey::Always);
    connect(pCheckBoxNative, &QCheckBox::toggled, this, [this](bool isNative) { freeSet(!isNative); });
    using Frames = V1_2::Parampeter;
    size_t index = 0;
    for (const auto* pCombine : {pCombineWidgetLongShort, pCombineWidgetLongShortVeryShort})
    {
        const auto frames = [i = index++](auto& record) -> auto& { return record.parameters[i]; };
        binding.add(pCombine->pSliderSpinWidgetExposureRatio, frames, &Frames::exposureRatio)
            .add(pCombine->pSliderSpinWidgetExtensionBit, frames, &Frames::extensionBit)
            .add(pCombine->pSliderSpinWidgetTransRangeBegin, frames, &Frames::trans, &Frames::Trans::begin)
            .add(pCombine->pSliderSpinWidgetTransRangeEnd, frames, &Frames::trans, &Frames::Trans::end);
        connectWrite(pCombine, &CombineWidget::valueChanged, [this] { configSet(); });
    }
}

/// Both choices in one row; that of the base frame travels with the next change of something else.
void Hdr1_2Widget::modeBuild()
{
    auto* pMode = shortcut::radioBox(tr("Mode"), {{tr("2DOL"), Mode::_2Dol}, {tr("3DOL"), Mode::_3Dol}});
    auto* pBase = shortcut::radioBox(tr("Base Frame"), {{tr("Long"), 0}, {tr("Short"), 1}});
    pGroupBoxMode = shortcut::boxOf(pMode);
    pGroupBoxBaseFrame = shortcut::boxOf(pBase);
    pGridLayoutScrollArea->addWidget(pGroupBoxMode, 2, 0);
    pGridLayoutScrollArea->addWidget(pGroupBoxBaseFrame, 2, 1);
    pRadioButton2Dol = shortcut::radioOf(pMode, Mode::_2Dol);
    pRadioButton3Dol = shortcut::radioOf(pMode, Mode::_3Dol);
    pRadioButtonLong = shortcut::radioOf(pBase, 0);
    pRadioButtonShort = shortcut::radioOf(pBase, 1);
    connect(pRadioButton2Dol, &QRadioButton::toggled, this,
            [this](bool is2Dol) { pCombineWidgetLongShortVeryShort->setVisible(!is2Dol); });
    connectWrite(pMode, &QButtonGroup::idClicked, [this] { configSet(); });
    pRadioButton2Dol->setChecked(true);
    pRadioButtonLong->setChecked(true);
}

void Hdr1_2Widget::freeSet(bool isFree)
{
    shortcut::enabledSet({pGroupBoxMode, pGroupBoxBaseFrame, pCombineWidgetLongShort, pCombineWidgetLongShortVeryShort},
                         isFree);
}

void Hdr1_2Widget::configSet()
{
    auto config = rest::recordZero<Hdr::Config>();
    config.v1_2.mode = pRadioButtonLong->isChecked() ? V1_2::LongShort : V1_2::LongShortVeryShort;
    binding.store(config.v1_2);
    Hdr().configSet(config, Hdr::V1_2);
}

void Hdr1_2Widget::updateStatus()
{
    auto config = rest::recordZero<Hdr::Config>();
    // Not every board tells it.
    Hdr::Status status;
    status.v1_2.mode = pRadioButton2Dol->isChecked() ? Mode::_2Dol : Mode::_3Dol;
    Hdr().statusGet(status, Hdr::V1_2).configGet(config, Hdr::V1_2);

    (config.v1_2.mode == V1_2::LongShort ? pRadioButtonLong : pRadioButtonShort)->setChecked(true);
    (status.v1_2.mode == Mode::_2Dol ? pRadioButton2Dol : pRadioButton3Dol)->setChecked(true);
    binding.show(config.v1_2);
}
