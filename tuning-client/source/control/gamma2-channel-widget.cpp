#include "tuning-client/source/control/gamma2-channel-widget.h"

#include "tuning-client/source/shortcut/no-signals.h"

#include <cmath>

using Curve2 = rest::Gc::Config::Curve2;

namespace
{
constexpr int count = 64;
constexpr float yLimit = 1024.0f;
constexpr double standardGamma = 2.2;

constexpr uint32_t gammaOutDxLog[count] = {
    8,  8,  8,  8,  8,   8,   8,   8,   8,   8,   8,   8,   16,  16,  16,  16,  16,  16,  16,  16, 16, 16,
    16, 16, 32, 32, 32,  32,  32,  32,  32,  32,  32,  32,  32,  32,  32,  64,  64,  64,  64,  64, 64, 64,
    64, 64, 64, 64, 128, 128, 128, 128, 128, 128, 128, 128, 128, 256, 256, 256, 256, 256, 256, 0};
} // namespace

Gamma2ChannelWidget::Gamma2ChannelWidget(Curve2& curve_, QWidget* parent) : GammaAbstractWidget(parent), curve(curve_)
{
}

void Gamma2ChannelWidget::init()
{
    pRadioButtonStandard = curveButtonAdd(tr("Standard Curve (2.2)"), Standard);
    pRadioButtonUser = curveButtonAdd(tr("User Curve"), User);
    pButtonGroupCurve->setExclusive(true);
    for (int i = 0; i < count; ++i)
        points.append({double(i), double(i + 1)});
    pComboBoxXScale->setEnabled(false);
    shortcut::NoSignals::setCurrentIndex(pComboBoxXScale, Curve2::Equidistant);
}

void Gamma2ChannelWidget::pointsFollow()
{
    xSet(curve.xScale == Curve2::Equidistant, 64, gammaOutDxLog);
    for (auto& point : points)
        point.setY(formula(point.x(), 1 / curve.gamma));
}

void Gamma2ChannelWidget::configSet()
{
    GammaAbstractWidget::configSet();
    if (pButtonGroupCurve->checkedId() == User)
    {
        curve.mode = Curve2::User;
        curve.xScale = isLogarithmicChosen() ? Curve2::Logarithmic : Curve2::Equidistant;
        curve.gamma = pDoubleSpinBoxGamma->value();
    }
    else
    {
        curve.mode = Curve2::Standard;
        curve.gamma = standardGamma;
    }
    pointsFollow();
    const double s = std::pow(255, 1 / curve.gamma) / 255;
    for (int i = 0; i < count; ++i)
    {
        curve.y[i] = output(std::pow(points[i].x() / 16, 1 / curve.gamma) * 4 / s, yLimit);
        curve.x[i] = uint32_t(points[i].x());
    }
    emit valueChanged();
}

void Gamma2ChannelWidget::updateStatus()
{
    const bool isKnown = curve.mode <= Curve2::User;
    controlsShow(!isKnown ? -1 : curve.mode == Curve2::User ? User : Standard, curve.xScale, curve.gamma);
    pointsFollow();
    replot();
}
