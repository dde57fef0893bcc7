#include "tuning-client/source/module/hdr2_lite-widget.h"

#include <QGridLayout>
#include <QPushButton>

using rest::Hdr;
using shortcut::element;
using shortcut::Form;
using V2_LITE = Hdr::Config::V2_LITE;

Hdr2_LiteWidget::Hdr2_LiteWidget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, name),
      pPushButtonRest(new QPushButton(tr("Reset"))),
      pCheckBoxEnable(new QCheckBox(tr("Enable High Dynamic Range 2 Lite")))
{
    Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    page.wide(pCheckBoxEnable);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Hdr().enableSet(isEnable, Hdr::V2_LITE); }, [](bool) {});
    controlBuild(page.group(tr("Control")));
    preprocessBuild(page.group(tr("Preprocess")));
    auto interpolation = page.group(tr("Interpolation"));
    pGroupBoxInterpolation = interpolation.groupBox();
    binding.add(interpolation.spinBoxes(tr("color_weight[3]"),
                                        {&pDoubleSpinColorWeight0, &pDoubleSpinColorWeight1, &pDoubleSpinColorWeight2},
                                        0, 255),
                &V2_LITE::color_weight);
    stitchingBuild(page.group(tr("Stitching")));
    page.stretch();
}

void Hdr2_LiteWidget::controlBuild(Form control)
{
    pGroupBoxControl = control.groupBox();
    control.grid()->addWidget(pPushButtonRest, 0, 2);
    connectLong(pPushButtonRest, &QPushButton::clicked, [this] { reset(); });
    pComboBoxBypassSelect = control.comboBox(tr("Bypass Select"), {{tr("L"), 0}, {tr("S"), 1}, {tr("VS"), 2}});
    binding.add(pComboBoxBypassSelect, &V2_LITE::bypass_select);
}

void Hdr2_LiteWidget::preprocessBuild(Form preprocess)
{
    pGroupBoxPreprocess = preprocess.groupBox();
    pCheckBoxDgain = preprocess.textCheckBox(tr("Enable Digital Gain"));
    binding.add(pCheckBoxDgain, &V2_LITE::dgain_enable)
        .add(preprocess.spinBoxes(tr("bls[4]"),
                                  {&pDoubleSpinBls0, &pDoubleSpinBls1, &pDoubleSpinBls2, &pDoubleSpinBls3}, 0, 4095),
             &V2_LITE::bls);
    preprocess.heads({tr("Dgain [4][4]")});
    const auto row = [&](const QString& text, Form::Boxes boxes, size_t exposure)
    { binding.add(preprocess.spinBoxes(text, boxes, 1, 256, 1), &V2_LITE::dgain, element(exposure)); };
    row(tr("l:"), {&pDoubleSpinDgain00, &pDoubleSpinDgain01, &pDoubleSpinDgain02, &pDoubleSpinDgain03}, 0);
    row(tr("s:"), {&pDoubleSpinDgain10, &pDoubleSpinDgain11, &pDoubleSpinDgain12, &pDoubleSpinDgain13}, 1);
    row(tr("vs:"), {&pDoubleSpinDgain20, &pDoubleSpinDgain21, &pDoubleSpinDgain22, &pDoubleSpinDgain23}, 2);
    row(tr("e3:"), {&pDoubleSpinDgain30, &pDoubleSpinDgain31, &pDoubleSpinDgain32, &pDoubleSpinDgain33}, 3);
}

void Hdr2_LiteWidget::stitchingBuild(Form stitching)
{
    pGroupBoxStitching = stitching.groupBox();
    pComboBoxStitching =
        stitching.comboBox(tr("Stitching Mode"), {{tr("Linear"), rest::OPTRIX_ISP_STITCHING_LINEAR_COMBINE},
                                                  {tr("Non-linear"), rest::OPTRIX_ISP_STITCHING_NONLINEAR_COMBINE}});
    pComboBoxBaseFrame = stitching.comboBox(tr("Base Frame"), {{tr("Short"), 0}, {tr("Long"), 1}});
    binding.add(pComboBoxStitching, &V2_LITE::stitching_mode)
        .add(pComboBoxBaseFrame, &V2_LITE::base_frame)
        .add(stitching.spinBoxes(tr("ratio[2]"), {&pDoubleSpinBoxRatio0, &pDoubleSpinBoxRatio1}, 1, 256, 1),
             &V2_LITE::ratio);
    const auto ranges =
        stitching.spinBoxes(tr("Trans Range"),
                            {&pDoubleSpinBoxTr00, &pDoubleSpinBoxTr01, &pDoubleSpinBoxTr10, &pDoubleSpinBoxTr11,
                             &pDoubleSpinBoxTr20, &pDoubleSpinBoxTr21, &pDoubleSpinBoxTr30, &pDoubleSpinBoxTr31,
                             &pDoubleSpinBoxTr40, &pDoubleSpinBoxTr41, &pDoubleSpinBoxTr50, &pDoubleSpinBoxTr51},
                            0, 1, 2, 0.1, 2);
    for (int i = 0; i < ranges.size(); ++i)
        binding.add(ranges[i], &V2_LITE::trans_range, element(size_t(i / 2)), element(size_t(i % 2)));
    binding.add(stitching.spinBoxes(tr("Extend Bit[2]"), {&pDoubleSpinBoxExtendBit0, &pDoubleSpinBoxExtendBit1}, -1, 8),
                &V2_LITE::extend_bit);
}

void Hdr2_LiteWidget::configSet()
{
    auto config = rest::recordZero<Hdr::Config>();
    binding.store(config.v2_lite);
    Hdr().configSet(config, Hdr::V2_LITE);
}

void Hdr2_LiteWidget::reset()
{
    Hdr().reset(Hdr::V2_LITE);
    readStatus();
}

void Hdr2_LiteWidget::updateStatus()
{
    auto config = rest::recordZero<Hdr::Config>();
    Hdr().configGet(config, Hdr::V2_LITE);
    binding.show(config.v2_lite);
}
