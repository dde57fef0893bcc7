#pragma once

#include <QPointF>

/// Where lenses draw what they see. Matrices stand row by row; points are in pixels.
namespace lens
{
/// How the coefficients of a lens are meant.
enum class Model
{
    Fisheye,  ///< k1 to k4, by the angle; further ones mean nothing
    WideAngle ///< k1, k2, p1, p2, k3 to k6, by the distance from the axis
};

/// The place of a point in the lens's picture that an ideal camera with the same matrix draws at `point`. Not finite
/// where there is none.
QPointF distorted(Model model, const double (&matrix)[9], const double (&coefficients)[8], const QPointF& point);

/// The place of `point` under a perspective. Not finite where there is none.
QPointF projected(const double (&matrix)[9], const QPointF& point);
} // namespace lens
