#include "tuning-client/source/module/dnr3-v3-widget.h"

#include "tuning-client/source/control/side-by-side.h"
#include "tuning-client/source/module/dnr2-v5-widget.h"
#include "tuning-client/source/module/tnr-param-widget.h"
#include "tuning-client/source/shortcut/enable-box.h"
#include "tuning-client/source/shortcut/no-signals.h"

#include <QCheckBox>

using rest::Dnr3;

Dnr3V3Widget::Dnr3V3Widget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, name),
      pCheckBoxEnable(new QCheckBox(tr("Enable 3D Noise Reduction 3"), this)),
      pCheckBoxNoiseCurveEnable(new QCheckBox(tr("Enable Noise Curve"), this)),
      pTnrParamWidget(new TnrParamWidget(this)),
      pDnr2V5Widget(new Dnr2V5Widget(this, "2D Noise Reduction 5")),
      config(rest::recordZero<Dnr3::Config>())
{
    shortcut::withdraw({pCheckBoxEnable, pCheckBoxNoiseCurveEnable});
    new SideBySide(this, {pTnrParamWidget, pDnr2V5Widget});
}

void Dnr3V3Widget::updateStatus()
{
    bool isEnable = false;
    Dnr3().configGet(config, Dnr3::V3).enableGet(isEnable, Dnr3::V3);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    shortcut::enabledSet({pTnrParamWidget, pDnr2V5Widget}, !isEnable);
}
