#include "tuning-client/source/module/wdr1-widget.h"

#include "tuning-client/source/control/wdr-plot.h"
#include "tuning-client/source/module/wdr1-curves.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>

#include <algorithm>

using rest::Wdr;

namespace
{
constexpr int columns = 4;

rest::CamEngineWdrCurve_t wireCurve(const Wdr1Curve& source)
{
    auto curve = rest::recordZero<rest::CamEngineWdrCurve_t>();
    std::copy(std::begin(source.Ym), std::end(source.Ym), curve.Ym);
    std::fill(std::begin(curve.dY) + 1, std::end(curve.dY), uint8_t(4));
    return curve;
}

bool isEqual(const rest::CamEngineWdrCurve_t& left, const rest::CamEngineWdrCurve_t& right)
{
    return std::equal(std::begin(left.dY), std::end(left.dY), right.dY) &&
           std::equal(std::begin(left.Ym), std::end(left.Ym), right.Ym);
}
} // namespace

// The object name is that of another page too: both share the stored size.
Wdr1Widget::Wdr1Widget(QWidget* pParent)
    : AbstractWidget(pParent, "Wide Dynamic Range 2"),
      pCheckBoxEnable(new QCheckBox(tr("Enable Global Wide Dynamic Range"))),
      pWdrPlot(new WdrPlot(QString()))
{
    shortcut::Form page(this, pGridLayoutScrollArea, {});
    page.wide(pCheckBoxEnable);
    page.wide(pWdrPlot);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount() - 1, 1);
    curvesBuild();
    page.wide(pGroupBoxCurves);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Wdr().enableSet(isEnable, Wdr::V1); },
        [this](bool isFree) { pGroupBoxCurves->setEnabled(isFree); });
}

Wdr1Widget::~Wdr1Widget() { qDeleteAll(wdrCurves); }

void Wdr1Widget::curvesBuild()
{
    shortcut::ComboItems items;
    for (const auto& curve : wdr1Curves)
    {
        items.append({curve.name, wdrCurves.size()});
        wdrCurves.append(new WdrCurve(curve.name, QString(), wireCurve(curve)));
    }
    pCurveButtons = shortcut::radioBox(tr("Tone Mapping Curve"), items, columns);
    pGroupBoxCurves = shortcut::boxOf(pCurveButtons);
    // A button that goes off writes nothing.
    connect(pCurveButtons, &QButtonGroup::idToggled, this,
            [this](int index, bool isChecked)
            {
                if (isChecked)
                    writeGuarded([this, index] { curveChoose(index); });
            });
}

void Wdr1Widget::curveChoose(int index)
{
    auto* pCurve = wdrCurves[index];
    pWdrPlot->insertCurve(Qt::Vertical, Qt::blue, pCurve->title, pCurve);
    auto config = rest::recordZero<Wdr::Config>();
    config.v1.curve = pCurve->wdrCurve;
    Wdr().configSet(config, Wdr::V1);
}

void Wdr1Widget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Wdr::Config>();
    Wdr().enableGet(isEnable, Wdr::V1).configGet(config, Wdr::V1);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    pGroupBoxCurves->setEnabled(!isEnable);
    // A curve that becomes checked is drawn and goes back to the board.
    echo(
        [&]
        {
            for (int i = 0; i < wdrCurves.size(); ++i)
                pCurveButtons->button(i)->setChecked(isEqual(wdrCurves[i]->wdrCurve, config.v1.curve));
        });
}
