#include "tuning-client/source/module/gc-widget.h"

#include "tuning-client/source/control/gamma-channel-widget.h"
#include "tuning-client/source/shortcut/no-signals.h"

#include <QCheckBox>
#include <QGridLayout>

using rest::Gc;

GcWidget::GcWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Gamma Correction"),
      config(rest::recordZero<Gc::Config>()),
      pCheckBoxEnable(new QCheckBox(tr("Enable Gamma Correction"))),
      pGammaChannelWidget(new GammaChannelWidget(config.v1.curve, nullptr))
{
    pGammaChannelWidget->init();
    pGammaChannelWidget->layout()->setContentsMargins(0, 0, 0, 0);
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0);
    pGridLayoutScrollArea->addWidget(pGammaChannelWidget, 1, 0);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Gc().enableSet(isEnable, Gc::V1); },
        [this](bool isFree) { pGammaChannelWidget->setEnabled(isFree); });
    connectWrite(pGammaChannelWidget, &GammaChannelWidget::valueChanged, [this] { configSet(); });
}

void GcWidget::configSet() { Gc().configSet(config, Gc::V1); }

void GcWidget::updateStatus()
{
    bool isEnable = false;
    Gc().enableGet(isEnable, Gc::V1).configGet(config, Gc::V1);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    pGammaChannelWidget->setEnabled(!isEnable);
    pGammaChannelWidget->updateStatus();
}
