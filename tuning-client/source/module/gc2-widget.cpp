#include "tuning-client/source/module/gc2-widget.h"

#include "tuning-client/source/control/gamma2-channel-widget.h"
#include "tuning-client/source/shortcut/no-signals.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QTabWidget>

using rest::Gc;

Gc2Widget::Gc2Widget(QWidget* pParent)
    : AbstractWidget(pParent, "Gamma Correction 2"),
      config(rest::recordZero<Gc::Config>()),
      pCheckBoxEnable(new QCheckBox(tr("Enable Gamma Correction 2"))),
      pTabWidget(new QTabWidget),
      pSingleChannelWidget(new Gamma2ChannelWidget(config.v2.curves[0], nullptr))
{
    pSingleChannelWidget->init();
    pTabWidget->addTab(pSingleChannelWidget, tr("RGB"));
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0);
    pGridLayoutScrollArea->addWidget(pTabWidget, 1, 0);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Gc().enableSet(isEnable, Gc::V2); },
        [this](bool isFree) { pSingleChannelWidget->setEnabled(isFree); });
    connectWrite(pSingleChannelWidget, &Gamma2ChannelWidget::valueChanged, [this] { configSet(); });
}

void Gc2Widget::configSet()
{
    auto& curves = config.v2.curves;
    curves[1] = curves[2] = curves[0];
    Gc().configSet(config, Gc::V2);
}

void Gc2Widget::updateStatus()
{
    bool isEnable = false;
    Gc().enableGet(isEnable, Gc::V2).configGet(config, Gc::V2);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    pSingleChannelWidget->setEnabled(!isEnable);
    pSingleChannelWidget->updateStatus();
}
