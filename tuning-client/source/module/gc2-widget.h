#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/gc.h"

class Gamma2ChannelWidget;
class QTabWidget;

/// "Gamma Correction 2": one curve for all three channels, edited while the module is off.
class Gc2Widget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit Gc2Widget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    rest::Gc::Config config;
    QCheckBox* pCheckBoxEnable;
    QTabWidget* pTabWidget;
    Gamma2ChannelWidget* pSingleChannelWidget;
};
