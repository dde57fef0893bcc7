#include "tuning-client/source/module/dnr3-v32-widget.h"

#include "tuning-client/source/control/side-by-side.h"
#include "tuning-client/source/module/dnr2-v5-widget.h"
#include "tuning-client/source/module/tnr2-param-widget.h"
#include "tuning-client/source/shortcut/enable-box.h"
#include "tuning-client/source/shortcut/no-signals.h"

#include <QCheckBox>

using rest::Dnr3;

Dnr3V32Widget::Dnr3V32Widget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, name),
      pCheckBoxEnable(new QCheckBox(tr("Enable 3D Noise Reduction 3.2"), this)),
      pTnr2ParamWidget(new Tnr2ParamWidget(this)),
      pDnr2V5Widget(new Dnr2V5Widget(this, "2D Noise Reduction 5")),
      config(rest::recordZero<Dnr3::Config>())
{
    shortcut::withdraw({pCheckBoxEnable});
    new SideBySide(this, {pTnr2ParamWidget, pDnr2V5Widget});
}

void Dnr3V32Widget::updateStatus()
{
    Dnr3().configGet(config, Dnr3::V3_2);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, true);
    shortcut::enabledSet({pTnr2ParamWidget, pDnr2V5Widget}, true);
}
