#include "tuning-client/source/control/lens-model.h"

#include <cmath>

namespace
{
QPointF fisheye(const double (&k)[8], double x, double y)
{
    const double r = std::hypot(x, y);
    if (r == 0)
        return {x, y};
    const double angle = std::atan(r);
    const double square = angle * angle;
    const double scale = angle * (1 + square * (k[0] + square * (k[1] + square * (k[2] + square * k[3])))) / r;
    return {x * scale, y * scale};
}

QPointF wideAngle(const double (&k)[8], double x, double y)
{
    const double square = x * x + y * y;
    const double radial = (1 + square * (k[0] + square * (k[1] + square * k[4]))) /
                          (1 + square * (k[5] + square * (k[6] + square * k[7])));
    return {x * radial + 2 * k[2] * x * y + k[3] * (square + 2 * x * x),
            y * radial + k[2] * (square + 2 * y * y) + 2 * k[3] * x * y};
}
} // namespace

namespace lens
{
QPointF distorted(Model model, const double (&matrix)[9], const double (&coefficients)[8], const QPointF& point)
{
    const double y = (point.y() - matrix[5]) / matrix[4];
    const double x = (point.x() - matrix[2] - matrix[1] * y) / matrix[0];
    const auto bent = model == Model::Fisheye ? fisheye(coefficients, x, y) : wideAngle(coefficients, x, y);
    return {matrix[0] * bent.x() + matrix[1] * bent.y() + matrix[2], matrix[4] * bent.y() + matrix[5]};
}

QPointF projected(const double (&matrix)[9], const QPointF& point)
{
    const auto row = [&](int i) { return matrix[i] * point.x() + matrix[i + 1] * point.y() + matrix[i + 2]; };
    return {row(0) / row(6), row(3) / row(6)};
}
} // namespace lens
