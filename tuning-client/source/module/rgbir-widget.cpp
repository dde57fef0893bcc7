#include "tuning-client/source/module/rgbir-widget.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>

using rest::Rgbir;
using Config = Rgbir::Config;

RgbirWidget::RgbirWidget(QWidget* pParent)
    : EnableAutoSliderAbstractWidget(pParent, "Rgbir", 0), config(rest::recordZero<Config>())
{
    shortcut::withdraw({pPushButtonRest});
    tableHide();
    auto page = form(pGridLayoutScrollArea);
    binding.add(pSliderSpinWidgetDmscthreshold = page.slider(tr("dmscThreshold"), 0, 255), &Config::dmscThreshold)
        .add(pSliderSpinWidgetIrthreshold = page.slider(tr("ir_threshold"), 0, 4096), &Config::ir_threshold)
        .add(pSliderSpinWidgetIthreshold = page.slider(tr("l_threshold"), 0, 4096), &Config::l_threshold)
        .add(pSliderSpinWidgetBlsRed = page.slider(tr("bls_r"), 0, 4095), &Config::bls_r)
        .add(pSliderSpinWidgetBlsGreen = page.slider(tr("bls_g"), 0, 4095), &Config::bls_g)
        .add(pSliderSpinWidgetBlsBlue = page.slider(tr("bls_b"), 0, 4095), &Config::bls_b)
        .add(pSliderSpinWidgetBlsIr = page.slider(tr("bls_ir"), 0, 4095), &Config::bls_ir);
    arraysBuild(page);
    page.stretch();
}

void RgbirWidget::arraysBuild(shortcut::Form& page)
{
    QSpinBox* th[4];
    auto dpccth = page.group(QString());
    pGroupBoxDpccth = dpccth.groupBox();
    SpinBoxDpccths = dpccth.spinBoxes(tr("Dpcc_th"), {&th[0], &th[1], &th[2], &th[3]}, 0, 4095);
    auto dpccmidth = page.group(QString());
    pGroupBoxDpccmidth = dpccmidth.groupBox();
    SpinBoxDpccmidths = dpccmidth.spinBoxes(tr("Dpcc_mid_th"), {&th[0], &th[1], &th[2], &th[3]}, 0, 4095);
    QDoubleSpinBox* m[12];
    auto ccmtx = page.group(tr("Ccmtx"));
    pGroupBoxCcmtx = ccmtx.groupBox();
    const auto matrix = ccmtx.spinBoxes(
        QString(), {&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8], &m[9], &m[10], &m[11]}, -8, 8, 2, 1,
        4);
    SpinBoxCcmtx1s = matrix.mid(0, 4);
    SpinBoxCcmtx2s = matrix.mid(4, 4);
    SpinBoxCcmtx3s = matrix.mid(8, 4);
    binding.add(SpinBoxDpccths, &Config::dpccTh)
        .add(SpinBoxDpccmidths, &Config::dpccMidTh)
        .add(matrix, &Config::cc_mtx);
}

void RgbirWidget::configSet()
{
    Rgbir().configGet(config);
    binding.store(config);
    Rgbir().configSet(config);
}

void RgbirWidget::enableSet(bool isEnable) { enableSend<Rgbir>(isEnable); }

void RgbirWidget::updateStatus()
{
    bool isEnable = false;
    Rgbir().enableGet(isEnable).configGet(config);
    enableShow(isEnable);
    binding.show(config);
}
