#include "tuning-client/source/module/wb-widget.h"

#include "tuning-rest/source/awb.h"

#include <QGridLayout>

using rest::Wb;
using shortcut::element;
using Config = Wb::Config;

WbWidget::WbWidget(QWidget* pParent) : AbstractWidget(pParent, "White Balance", false), pTimer(new QTimer(this))
{
    ledWordsSet(tr("WB on - enable AWB to turn WB off"), tr("WB off - disable AWB to turn WB on"));
    shortcut::Form rows(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    gainsBuild(rows.group(tr("White Balance Gains")));
    correctionBuild(rows.group(tr("Color Correction Matrix (X-Talk)")));
    rows.stretch();
    pTimer->setInterval(500);
    connectTick(pTimer,
                [this]
                {
                    readStatus();
                    update();
                });
}

void WbWidget::gainsBuild(shortcut::Form gains)
{
    using WbGains = Config::WbGains;
    pGroupBoxWhiteBalance = gains.groupBox();
    pGroupBoxWhiteBalance->setToolTip(tr("Bold value: auto white balance has just changed it"));
    const auto slider = [&](const QString& text, float WbGains::*pGain)
    {
        auto* pSlider = gains.slider(text, 1, 3.999, 3);
        binding.add(pSlider, &Config::wbGains, pGain);
        return pSlider;
    };
    pSliderSpinWidgetRed = slider(tr("Red"), &WbGains::Red);
    pSliderSpinWidgetGreenR = slider(tr("Green.R"), &WbGains::GreenR);
    pSliderSpinWidgetGreenB = slider(tr("Green.B"), &WbGains::GreenB);
    pSliderSpinWidgetBlue = slider(tr("Blue"), &WbGains::Blue);
}

void WbWidget::correctionBuild(shortcut::Form correction)
{
    using CcOffset = Config::CcOffset;
    pGroupBoxColorCorrection = correction.groupBox();
    const int offsetColumn = 5;
    correction.heads({QString(), QString(), QString(), QString(), QString(), tr("Offset")});
    // Sets the offsets off from the matrix.
    correction.grid()->setColumnMinimumWidth(offsetColumn - 1, fontMetrics().averageCharWidth());
    size_t coefficient = 0;
    const auto row = [&](const QString& text, shortcut::Form::Boxes boxes, int16_t CcOffset::*pOffset)
    {
        for (auto* pBox : correction.spinBoxes(text, boxes, -8, 7.996, 3, 0.004))
            binding.add(pBox, &Config::ccMatrix, &Config::CcMatrix::Coeff, element(coefficient++));
        auto* pBox = correction.spinBoxBeside(text + ' ' + tr("Offset"), offsetColumn, -2048, 2047);
        binding.add(pBox, &Config::ccOffset, pOffset);
        return pBox;
    };
    pSpinBoxOffsetRed = row(tr("Red"), {&pDoubleSpinBoxRed1, &pDoubleSpinBoxRed2, &pDoubleSpinBoxRed3}, &CcOffset::Red);
    pSpinBoxOffsetGreen =
        row(tr("Green"), {&pDoubleSpinBoxGreen1, &pDoubleSpinBoxGreen2, &pDoubleSpinBoxGreen3}, &CcOffset::Green);
    pSpinBoxOffsetBlue =
        row(tr("Blue"), {&pDoubleSpinBoxBlue1, &pDoubleSpinBoxBlue2, &pDoubleSpinBoxBlue3}, &CcOffset::Blue);
}

void WbWidget::configSet()
{
    // Greying the page commits what is half typed in it.
    if (!isEnabled())
        return;
    auto config = rest::recordZero<Config>();
    binding.store(config);
    Wb().configSet(config);
}

void WbWidget::updateStatus()
{
    bool awbEnabled = false;
    rest::Awb().enableGet(awbEnabled);
    const auto sliders = pGroupBoxWhiteBalance->findChildren<SliderSpinWidget*>();
    QVector<double> before; // Greying commits what is half typed.
    for (const auto* pSlider : sliders)
        before.append(pSlider->value());
    shortcut::timerSet(pTimer, awbEnabled);
    setEnabled(!awbEnabled);
    // Green while the white balance is in manual hands.
    ledShow(!awbEnabled);

    auto config = rest::recordZero<Config>();
    Wb().configGet(config);
    binding.show(config);
    for (int i = 0; i < sliders.size(); ++i)
        sliders[i]->valueStress(awbEnabled && sliders[i]->value() != before[i]);
}
