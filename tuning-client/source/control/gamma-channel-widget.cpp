#include "tuning-client/source/control/gamma-channel-widget.h"

#include <QButtonGroup>
#include <QDoubleSpinBox>

#include <algorithm>

using Curve = rest::Gc::Config::Curve;

namespace
{
constexpr int count = 17;
constexpr float yLimit = 1023.0f;
constexpr double standardExponent = 0.45454545454545453; // 1 / 2.2

constexpr uint32_t gammaOutDxLog[count - 1] = {64,  64,  64,  64,  128, 128, 128, 128,
                                               256, 256, 256, 512, 512, 512, 512, 512};
constexpr uint32_t yG45_G8[count] = {0, 30, 68, 148, 220, 340, 426, 486, 540, 620, 690, 745, 830, 900, 950, 990, 1023};
constexpr uint32_t yExp13_G45[count] = {0,   92,  150, 198, 240, 311, 372, 425, 473,
                                        556, 627, 689, 792, 874, 940, 991, 1023};

Curve tableCurve(const uint32_t (&y)[count])
{
    auto curve = rest::recordZero<Curve>();
    curve.gamma = -1.0;
    curve.xScale = Curve::Logarithmic;
    std::copy(std::begin(y), std::end(y), curve.y);
    return curve;
}
} // namespace

GammaChannelWidget::GammaChannelWidget(Curve& curve_, QWidget* parent) : GammaAbstractWidget(parent), curve(curve_) {}

void GammaChannelWidget::init()
{
    pRadioButtonStandard = curveButtonAdd(tr("Standard Curve (2.2)"), Standard);
    pRadioButtonExp13_G45 = curveButtonAdd(tr("Curve Exp13_G45"), Exp13_G45);
    pRadioButtonG45_G8 = curveButtonAdd(tr("Curve G45_G8"), G45_G8);
    pRadioButtonUser = curveButtonAdd(tr("User Curve"), User);
    for (int i = 0; i < count; ++i)
        points.append({double(i), double(i)});
}

void GammaChannelWidget::xFollow() { xSet(curve.xScale == Curve::Equidistant, 256, gammaOutDxLog); }

void GammaChannelWidget::configSet()
{
    GammaAbstractWidget::configSet();
    const int id = pButtonGroupCurve->checkedId();
    if (id == G45_G8 || id == Exp13_G45)
    {
        curve = tableCurve(id == G45_G8 ? yG45_G8 : yExp13_G45);
        curve.mode = Curve::Mode(id);
        xFollow();
        for (int i = 0; i < count; ++i)
            points[i].setY(curve.y[i]);
    }
    else
    {
        double exponent = standardExponent;
        if (id == User)
        {
            curve.xScale = isLogarithmicChosen() ? Curve::Logarithmic : Curve::Equidistant;
            curve.gamma = pDoubleSpinBoxGamma->value();
            exponent = 1 / curve.gamma;
        }
        curve.mode = id == User ? Curve::User : Curve::Standard;
        xFollow();
        for (int i = 0; i < count; ++i)
        {
            points[i].setY(formula(points[i].x(), exponent));
            curve.y[i] = output(points[i].y(), yLimit);
        }
    }
    emit valueChanged();
}

void GammaChannelWidget::updateStatus()
{
    controlsShow(int(curve.mode), curve.xScale, curve.gamma);
    xFollow();
    const int id = pButtonGroupCurve->checkedId();
    const bool isTable = id == G45_G8 || id == Exp13_G45;
    for (int i = 0; i < count; ++i)
        points[i].setY(isTable ? curve.y[i] : formula(points[i].x(), 1 / curve.gamma));
    replot();
}
