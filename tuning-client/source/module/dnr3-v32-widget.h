#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/dnr3.h"

class Dnr2V5Widget;
class QCheckBox;
class Tnr2ParamWidget;

/// "3D Noise Reduction 3.2": the pages of the temporal and of the spatial filter, always free.
class Dnr3V32Widget : public AbstractWidget
{
    Q_OBJECT

public:
    Dnr3V32Widget(QWidget* pParent, const QString& name);

    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    Tnr2ParamWidget* pTnr2ParamWidget;
    Dnr2V5Widget* pDnr2V5Widget;
    rest::Dnr3::Config config;
};
