#include "tuning-client/source/control/transfer-curve-data.h"

#include <cmath>

namespace
{
constexpr double xMax = 64;
constexpr double yMax = 1024;
constexpr double yPerX = yMax / xMax;

/// The way through a section. One without a length is at its begin.
double way(double done, double whole) { return done == 0 && whole == 0 ? 0 : done / whole; }
} // namespace

CaCurveParabolicData::CaCurveParabolicData(double factor_) : factor(factor_) {}

double CaCurveParabolicData::y(double x) const { return yMax - std::pow(x - xMax / 2, 2) * factor; }

CaCurveSData::CaCurveSData(int inflection_, int exponent_) : inflection(inflection_), exponent(exponent_) {}

double CaCurveSData::y(double x) const
{
    if (inflection == xMax)
        return std::pow(x / xMax, exponent) * yMax;
    if (x < inflection)
        return std::pow(way(x, inflection), exponent) * inflection * yPerX;
    return yMax - std::pow(way(xMax - x, xMax - inflection), exponent) * ((xMax - inflection) * yPerX);
}

DciCurve2SectionData::DciCurve2SectionData(double low_, double high_, double inflectionX_, double inflectionY_,
                                           double startY_, double endY_)
    : low(low_), high(high_), inflectionX(inflectionX_), inflectionY(inflectionY_), startY(startY_), endY(endY_)
{
}

double DciCurve2SectionData::y(double x) const
{
    if (x < inflectionX)
        return std::pow(way(x, inflectionX), low) * (inflectionY - startY) + startY;
    return endY - std::pow(way(xMax - x, xMax - inflectionX), high) * (endY - inflectionY);
}

DciCurve3SectionData::DciCurve3SectionData(double low_, double middle_, double high_, double inflectionX_,
                                           double inflectionY_, double startY_, double endY_, double inflection2X_,
                                           double inflection2Y_)
    : DciCurve2SectionData(low_, high_, inflectionX_, inflectionY_, startY_, endY_),
      middle(middle_),
      inflection2X(inflection2X_),
      inflection2Y(inflection2Y_)
{
}

// The middle section is measured from its right end.
double DciCurve3SectionData::y(double x) const
{
    if (x < inflectionX)
        return DciCurve2SectionData::y(x);
    if (x < inflection2X)
        return inflection2Y -
               std::pow(way(inflection2X - x, inflection2X - inflectionX), middle) * (inflection2Y - inflectionY);
    return std::pow(way(x - inflection2X, xMax - inflection2X), high) * (endY - inflection2Y) + inflection2Y;
}
