#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/dnr3.h"

class Dnr2V5Widget;
class QCheckBox;
class TnrParamWidget;

/// "3D Noise Reduction 3": the pages of the temporal and of the spatial filter, free while the block around both is
/// off. Nothing here switches that block.
class Dnr3V3Widget : public AbstractWidget
{
    Q_OBJECT

public:
    Dnr3V3Widget(QWidget* pParent, const QString& name);

    void updateStatus() override;

    QCheckBox *pCheckBoxEnable, *pCheckBoxNoiseCurveEnable;
    TnrParamWidget* pTnrParamWidget;
    Dnr2V5Widget* pDnr2V5Widget;
    rest::Dnr3::Config config;
};
