#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/gc.h"

class GammaChannelWidget;

/// "Gamma Correction": one curve, edited while the module is off.
class GcWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit GcWidget(QWidget* pParent);

    using AbstractWidget::configSet;
    void configSet();
    void updateStatus() override;

    rest::Gc::Config config;
    QCheckBox* pCheckBoxEnable;
    GammaChannelWidget* pGammaChannelWidget;
};
