#include "tuning-client/source/module/cac-widget.h"

#include "tuning-client/source/control/cac-plot.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/sensor.h"

#include <QGridLayout>
#include <QLineEdit>

#include <algorithm>
#include <limits>

using rest::Cac;
using shortcut::element;

namespace
{
/// Shows a constant of the page.
QLineEdit* constantMake(const QString& text)
{
    auto* pLineEdit = new QLineEdit(text);
    pLineEdit->setEnabled(false);
    pLineEdit->setMaximumWidth(pLineEdit->fontMetrics().horizontalAdvance("00000000"));
    return pLineEdit;
}

void readOnlySet(QAbstractSpinBox* pBox)
{
    pBox->setReadOnly(true);
    pBox->setButtonSymbols(QAbstractSpinBox::NoButtons);
}

QSpinBox* offsetMake()
{
    auto* pBox = new QSpinBox;
    pBox->setRange(0, 8191);
    readOnlySet(pBox);
    return pBox;
}
} // namespace

CacWidget::CacWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Chromatic Aberration Correction", false),
      pCheckBoxEnable(new QCheckBox(tr("Enable Chromatic Aberration Correction"))),
      pGroupBox(new QGroupBox),
      pGroupBox2(new QGroupBox),
      pLineEditRatio(constantMake("1.0")),
      pSpinBoxCenterHoriOffset(offsetMake()),
      pSpinBoxCenterVertOffset(offsetMake()),
      pGroupBox3(new QGroupBox),
      pLineEditHoriLimit(constantMake("64")),
      pLineEditVertLimit(constantMake("48")),
      pCacPlot(new CacPlot(nullptr)),
      pTimer(new QTimer(this))
{
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0, 1, 2);
    pGridLayoutScrollArea->addWidget(pGroupBox, 1, 0);
    pGridLayoutScrollArea->addWidget(pGroupBox2, 1, 1);
    pGridLayoutScrollArea->addWidget(pGroupBox3, 2, 0, 1, 2);
    pGridLayoutScrollArea->addWidget(pCacPlot, 3, 0, 1, 2);
    pGridLayoutScrollArea->setRowStretch(3, 1);
    coeffsBuild();
    constantsBuild();
    binding.add(pSpinBoxCenterHoriOffset, &Cac::Status::hCenterOffset)
        .add(pSpinBoxCenterVertOffset, &Cac::Status::vCenterOffset);
    connectSwitch(
        pCheckBoxEnable,
        [this](bool isEnable)
        {
            Cac().enableSet(isEnable);
            widthRead(isEnable);
        },
        [this](bool isFree) { stateShow(!isFree); });
    pTimer->setInterval(1000);
    connectTick(pTimer, [this] { statusShow(); });
}

void CacWidget::coeffsBuild()
{
    using Coeff = Cac::Status::Coeff;
    shortcut::Form form(this, new QGridLayout(pGroupBox), {});
    form.heads({QString(), tr("Linear Coeff"), tr("Square Coeff"), tr("Cubical Coeff")});
    const auto row = [&](const QString& text, Cac::Status::Channel channel, shortcut::Form::Boxes boxes)
    {
        const auto made = form.spinBoxes(text, boxes, -16, 15.9375, 4);
        for (auto* pBox : made)
            readOnlySet(pBox);
        binding.add(made[0], &Cac::Status::coeff, element(channel), &Coeff::linear)
            .add(made[1], &Cac::Status::coeff, element(channel), &Coeff::square)
            .add(made[2], &Cac::Status::coeff, element(channel), &Coeff::cubical);
    };
    row(tr("Red Parameters"), Cac::Status::Red,
        {&pDoubleSpinBoxRedLinearCoeff, &pDoubleSpinBoxRedSquareCoeff, &pDoubleSpinBoxRedCubicalCoeff});
    row(tr("Blue Parameters"), Cac::Status::Blue,
        {&pDoubleSpinBoxBlueLinearCoeff, &pDoubleSpinBoxBlueSquareCoeff, &pDoubleSpinBoxBlueCubicalCoeff});
}

void CacWidget::constantsBuild()
{
    shortcut::Form centre(this, new QGridLayout(pGroupBox2), {});
    centre.labelled(tr("Ratio k_xy"), pLineEditRatio);
    centre.labelled(tr("Center Horizontal Offset"), pSpinBoxCenterHoriOffset, tr("Pixel"));
    centre.labelled(tr("Center Vertical Offset"), pSpinBoxCenterVertOffset, tr("Lines"));
    shortcut::Form limits(this, new QGridLayout(pGroupBox3), {});
    limits.labelled(tr("Horizontal Limit ( 0 ~ 64 )"), pLineEditHoriLimit,
                    tr("/16 = Number of Max Horizontal Pixel Displacement"));
    limits.labelled(tr("Vertical Limit ( 0 ~ 64 )"), pLineEditVertLimit,
                    tr("/16 = Number of Max Vertical Lines Displacement"));
}

/// The frame's width, which only places the curves: without it they are drawn unshifted.
void CacWidget::widthRead(bool isEnable)
{
    width = 0;
    if (!isEnable)
        return;
    try
    {
        auto status = rest::recordZero<rest::Sensor::Status>();
        rest::Sensor().statusGet(status);
        width = int(std::min(status.resolutionCollection.resolution.width, uint32_t(std::numeric_limits<int>::max())));
    }
    catch (const std::exception&)
    {
    }
}

void CacWidget::stateShow(bool isEnable)
{
    for (auto* pBox : {pGroupBox, pGroupBox2, pGroupBox3})
        pBox->setEnabled(!isEnable);
    shortcut::timerSet(pTimer, isEnable);
}

void CacWidget::updateStatus()
{
    bool isEnable = false;
    Cac().enableGet(isEnable);
    widthRead(isEnable);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    stateShow(isEnable);
}

/// The curves are those of the boxes, as they hold the values.
void CacWidget::statusShow()
{
    auto status = rest::recordZero<Cac::Status>();
    Cac().statusGet(status);
    binding.show(status);
    pCacPlot->plot(pDoubleSpinBoxRedLinearCoeff->value(), pDoubleSpinBoxRedSquareCoeff->value(),
                   pDoubleSpinBoxRedCubicalCoeff->value(), pDoubleSpinBoxBlueLinearCoeff->value(),
                   pDoubleSpinBoxBlueSquareCoeff->value(), pDoubleSpinBoxBlueCubicalCoeff->value(), width,
                   pSpinBoxCenterHoriOffset->value());
}
