#include "tuning-client/source/module/hdr2-widget.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QTabWidget>

using rest::Hdr;
using shortcut::element;
using V2 = Hdr::Config::V2;

namespace
{
/// A row of pixel values, for the whole of an array.
template <class Record, class Array>
void pixelsAdd(shortcut::RecordBinding<Record>& binding, shortcut::Form& form, const QString& text,
               shortcut::Form::Boxes boxes, Array Record::*pArray)
{
    binding.add(form.spinBoxes(text, boxes, 0, 4095), pArray);
}
} // namespace

Hdr2PageHdr::Hdr2PageHdr(QWidget* pParent) : Hdr2Page(pParent)
{
    auto page = form(binding, pHdr);
    auto frames = page.group(QString());
    pComboBoxBypassSelect = frames.comboBox(tr("Bypass Frame"), {{tr("L"), 0}, {tr("S"), 1}, {tr("VS"), 2}});
    pComboBoxStitching = frames.comboBox(
        tr("Stitching Mode"), {{tr("Linear"), rest::OPTRIX_ISP_STITCHING_LINEAR_COMBINE},
                               {tr("Non-linear"), rest::OPTRIX_ISP_STITCHING_NONLINEAR_COMBINE},
                               {tr("Linear-Nonlinear-Combine"), rest::OPTRIX_ISP_STITCHING_LINEAR_NONLINEAR_COMBINE}});
    pComboBoxBaseFrame = frames.comboBox(tr("Base Frame"), {{tr("short"), 0}, {tr("long"), 1}});
    binding.add(pComboBoxBypassSelect, &V2::bypass_select)
        .add(pComboBoxStitching, &V2::stitching_mode)
        .add(pComboBoxBaseFrame, &V2::base_frame)
        .add(frames.spinBoxes(tr("ratio[2]"), {&pDoubleSpinBoxRatio1, &pDoubleSpinBoxRatio2}, 1, 256, 2), &V2::ratio)
        .add(frames.spinBoxes(tr("extend bit[2]"), {&pDoubleSpinBoxExtendBit1, &pDoubleSpinBoxExtendBit2}, 0, 8, 2),
             &V2::extend_bit)
        .add(frames.spinBoxes(tr("color weight[3]"),
                              {&pDoubleSpinBoxColorWeight1, &pDoubleSpinBoxColorWeight2, &pDoubleSpinBoxColorWeight3},
                              0, 255),
             &V2::color_weight);
    auto bls = page.group(tr("Bls"));
    pixelsAdd(binding, bls, tr("bls_long[4]"),
              {&pDoubleSpinBlsLong0, &pDoubleSpinBlsLong1, &pDoubleSpinBlsLong2, &pDoubleSpinBlsLong3}, &V2::bls_long);
    pixelsAdd(binding, bls, tr("bls_short[4]"),
              {&pDoubleSpinBlsShort0, &pDoubleSpinBlsShort1, &pDoubleSpinBlsShort2, &pDoubleSpinBlsShort3},
              &V2::bls_short);
    pixelsAdd(binding, bls, tr("bls_very_short[4]"),
              {&pDoubleSpinBlsVs0, &pDoubleSpinBlsVs1, &pDoubleSpinBlsVs2, &pDoubleSpinBlsVs3}, &V2::bls_very_short);
    page.stretch();
}

void Hdr2PageHdr::updateStatus() { binding.show(*pHdr); }

Hdr2PageTransRange::Hdr2PageTransRange(QWidget* pParent) : Hdr2Page(pParent)
{
    auto page = form(binding, pHdr);
    auto range = page.group(tr("Trans Range [4][2]"));
    const auto row = [&](const QString& text, QDoubleSpinBox** ppBegin, QDoubleSpinBox** ppEnd, size_t frame) {
        binding.add(range.spinBoxes(text, {ppBegin, ppEnd}, 0, 1.1, 2, 0.1), &V2::trans_range, element(frame));
    };
    row(tr("L:"), &pDoubleSpinBoxTr00, &pDoubleSpinBoxTr01, 0);
    row(tr("S:"), &pDoubleSpinBoxTr10, &pDoubleSpinBoxTr11, 1);
    row(tr("VS:"), &pDoubleSpinBoxTr20, &pDoubleSpinBoxTr21, 2);
    row(tr("VS2:"), &pDoubleSpinBoxTr30, &pDoubleSpinBoxTr31, 3);
    page.stretch();
}

void Hdr2PageTransRange::updateStatus() { binding.show(*pHdr); }

Hdr2PageDpf::Hdr2PageDpf(QWidget* pParent) : Hdr2Page(pParent)
{
    using Dpf = V2::Dpf;
    auto page = form(binding, pDpf);
    pCheckBoxDpf = page.checkBox(tr("Enable Dpf"));
    auto dpf = page.group(QString());
    pGroupBoxDpf = dpf.groupBox();
    binding.add(pCheckBoxDpf, &Dpf::dpf_enable)
        .add(pSliderSpinWidgetGain = dpf.slider(tr("Gain"), 1, 1000, 2), &Dpf::gain)
        .add(pSliderSpinWidgetGradient = dpf.slider(tr("Gradient"), 0.1, 128, 2), &Dpf::gradient)
        .add(pSliderSpinWidgetOffset = dpf.slider(tr("Offset"), 0, 128, 2), &Dpf::offset)
        .add(pSliderSpinWidgetMin = dpf.slider(tr("Min"), 1, 128, 2), &Dpf::min)
        .add(pSliderSpinWidgetDiv = dpf.slider(tr("Div"), 1, 64, 2), &Dpf::div)
        .add(pSliderSpinWidgetSigmag = dpf.slider(tr("Sigma g"), 1, 128, 2), &Dpf::sigma_g)
        .add(pSliderSpinWidgetSigmarb = dpf.slider(tr("Sigma rb"), 1, 128, 2), &Dpf::sigma_rb);
    auto noise = page.group(tr("Noise Curve[17]"));
    pGroupBoxNoiseCurve = noise.groupBox();
    binding.add(noise.spinBoxes(QString(),
                                {&pDoubleSpinNc0, &pDoubleSpinNc1, &pDoubleSpinNc2, &pDoubleSpinNc3, &pDoubleSpinNc4,
                                 &pDoubleSpinNc5, &pDoubleSpinNc6, &pDoubleSpinNc7, &pDoubleSpinNc8, &pDoubleSpinNc9,
                                 &pDoubleSpinNc10, &pDoubleSpinNc11, &pDoubleSpinNc12, &pDoubleSpinNc13,
                                 &pDoubleSpinNc14, &pDoubleSpinNc15, &pDoubleSpinNc16},
                                0, 4095, 2),
                &Dpf::noise_curve);
    page.stretch();
}

void Hdr2PageDpf::updateStatus() { binding.show(*pDpf); }

Hdr2PageDeghost::Hdr2PageDeghost(QWidget* pParent) : Hdr2Page(pParent)
{
    auto page = form(binding, pDeghost);
    motionBuild(page.group(tr("Motion")));
    darkBuild(page.group(tr("Dark")));
    page.stretch();
}

void Hdr2PageDeghost::motionBuild(shortcut::Form motion)
{
    using Deghost = V2::Deghost;
    pGroupBoxMotion = motion.groupBox();
    motion.heads({QString(), tr("ls"), tr("lsvs")});
    motion.comboBoxes(tr("Motion Enable[2]"), {&pComboBoxMotionEnableLs, &pComboBoxMotionEnableLsvs},
                      {{tr("false"), 0}, {tr("true"), 1}});
    binding.add(pComboBoxMotionEnableLs, &Deghost::motion_enable, element(0))
        .add(pComboBoxMotionEnableLsvs, &Deghost::motion_enable, element(1))
        .add(motion.spinBoxes(tr("Motion Weight[2]"), {&pDoubleSpinMotionWeight0, &pDoubleSpinMotionWeight1}, 0, 1024),
             &Deghost::motion_weight)
        .add(pSliderSpinWidgetMotionWeightShort = motion.slider(tr("Motion Weight Short"), 0, 1023),
             &Deghost::motion_weight_short)
        .add(pSliderSpinWidgetMotionSatThreshold = motion.slider(tr("Motion Sat Threshold"), 0, 4096),
             &Deghost::motion_sat_threshold)
        .add(pSliderSpinWidgetMotionWeightUpdateThreshold =
                 motion.slider(tr("Motion Weight Update Threshold"), 0, 1024),
             &Deghost::motion_weight_update_threshold);
    motion.heads({QString(), tr("r"), tr("gr"), tr("gb"), tr("b")});
    pixelsAdd(binding, motion, tr("Motion Lower Threshold ls[4]"),
              {&pDoubleSpinMotionLtLs0, &pDoubleSpinMotionLtLs1, &pDoubleSpinMotionLtLs2, &pDoubleSpinMotionLtLs3},
              &Deghost::motion_lower_threshold_ls);
    pixelsAdd(binding, motion, tr("Motion Upper Threshold ls[4]"),
              {&pDoubleSpinMotionUtLs0, &pDoubleSpinMotionUtLs1, &pDoubleSpinMotionUtLs2, &pDoubleSpinMotionUtLs3},
              &Deghost::motion_upper_threshold_ls);
    pixelsAdd(
        binding, motion, tr("Motion Lower Threshold lsvs[4]"),
        {&pDoubleSpinMotionLtLsvs0, &pDoubleSpinMotionLtLsvs1, &pDoubleSpinMotionLtLsvs2, &pDoubleSpinMotionLtLsvs3},
        &Deghost::motion_lower_threshold_lsvs);
    pixelsAdd(
        binding, motion, tr("Motion Upper Threshold lsvs[4]"),
        {&pDoubleSpinMotionUtLsvs0, &pDoubleSpinMotionUtLsvs1, &pDoubleSpinMotionUtLsvs2, &pDoubleSpinMotionUtLsvs3},
        &Deghost::motion_upper_threshold_lsvs);
}

void Hdr2PageDeghost::darkBuild(shortcut::Form dark)
{
    using Deghost = V2::Deghost;
    pGroupBoxDark = dark.groupBox();
    dark.heads({QString(), tr("r"), tr("gr"), tr("gb"), tr("b")});
    pixelsAdd(binding, dark, tr("Dark Lower Threshold ls[4]"),
              {&pDoubleSpinDarkLtLs0, &pDoubleSpinDarkLtLs1, &pDoubleSpinDarkLtLs2, &pDoubleSpinDarkLtLs3},
              &Deghost::dark_lower_threshold_ls);
    pixelsAdd(binding, dark, tr("Dark Upper Threshold ls[4]"),
              {&pDoubleSpinDarkUtLs0, &pDoubleSpinDarkUtLs1, &pDoubleSpinDarkUtLs2, &pDoubleSpinDarkUtLs3},
              &Deghost::dark_upper_threshold_ls);
    pixelsAdd(binding, dark, tr("Dark Lower Threshold lsvs[4]"),
              {&pDoubleSpinDarkLtLsvs0, &pDoubleSpinDarkLtLsvs1, &pDoubleSpinDarkLtLsvs2, &pDoubleSpinDarkLtLsvs3},
              &Deghost::dark_lower_threshold_lsvs);
    pixelsAdd(binding, dark, tr("Dark Upper Threshold lsvs[4]"),
              {&pDoubleSpinDarkUtLsvs0, &pDoubleSpinDarkUtLsvs1, &pDoubleSpinDarkUtLsvs2, &pDoubleSpinDarkUtLsvs3},
              &Deghost::dark_upper_threshold_lsvs);
}

void Hdr2PageDeghost::updateStatus() { binding.show(*pDeghost); }

Hdr2Widget::Hdr2Widget(QWidget* pParent)
    : EnableSliderAbstractWidget(pParent, "High Dynamic Range 2", 0),
      pHdr2PageHdr(new Hdr2PageHdr(nullptr)),
      pHdr2PageTransRange(new Hdr2PageTransRange(nullptr)),
      pHdr2PageDpf(new Hdr2PageDpf(nullptr)),
      pHdr2PageDeghost(new Hdr2PageDeghost(nullptr)),
      pTabWidget(new QTabWidget),
      config(rest::recordZero<Hdr::Config>())
{
    pCheckBoxEnable->setText(tr("Native Hdr"));
    // It writes nothing, so it need not wait for a read.
    disconnect(pCheckBoxEnable, &QCheckBox::toggled, this, nullptr);
    connect(pCheckBoxEnable, &QCheckBox::toggled, this, &Hdr2Widget::enableSet);
    pHdr2PageHdr->pHdr = &config.v2;
    pHdr2PageTransRange->pHdr = &config.v2;
    pHdr2PageDpf->pDpf = &config.v2.dpf;
    pHdr2PageDeghost->pDeghost = &config.v2.deghost;
    tabAdd(pHdr2PageHdr, tr("Hdr2"));
    tabAdd(pHdr2PageTransRange, tr("Trans Range"));
    tabAdd(pHdr2PageDpf, tr("Dpf"));
    tabAdd(pHdr2PageDeghost, tr("Deghost"));
    form(pGridLayoutScrollArea).wide(pTabWidget);
}

void Hdr2Widget::tabAdd(Hdr2Page* pPage, const QString& text)
{
    pTabWidget->addTab(pPage, text);
    connectWrite(pPage, &Hdr2Page::valueChanged, [this] { configSet(); });
}

void Hdr2Widget::configSet() { Hdr().configSet(config, Hdr::V2); }

/// The box frees and greys only: the board has no command for it.
void Hdr2Widget::enableSet(bool isEnable) { childrenWidgetsEnableSet(isEnable); }

void Hdr2Widget::reset() { resetSend<Hdr>(Hdr::V2); }

void Hdr2Widget::updateStatus()
{
    Hdr().configGet(config, Hdr::V2);
    if (auto* pPage = qobject_cast<Hdr2Page*>(pTabWidget->currentWidget()))
        pPage->updateStatus();
}
