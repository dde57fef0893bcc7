#include "tuning-client/source/module/bls-widget.h"

#include "tuning-client/source/shortcut/form.h"

using rest::Bls;

BlsWidget::BlsWidget(QWidget* pParent) : AbstractWidget(pParent, "Black Level Subtraction", false)
{
    shortcut::Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    binding.add(pSliderSpinWidgetRed = page.slider(tr("Red"), 0, 4095), &Bls::Config::red)
        .add(pSliderSpinWidgetGreenR = page.slider(tr("Green.R"), 0, 4095), &Bls::Config::greenR)
        .add(pSliderSpinWidgetGreenB = page.slider(tr("Green.B"), 0, 4095), &Bls::Config::greenB)
        .add(pSliderSpinWidgetBlue = page.slider(tr("Blue"), 0, 4095), &Bls::Config::blue);
    page.stretch();
}

void BlsWidget::configSet()
{
    Bls::Config config;
    binding.store(config);
    Bls().configSet(config);
}

void BlsWidget::updateStatus()
{
    Bls::Config config;
    Bls().configGet(config);
    binding.show(config);
}
