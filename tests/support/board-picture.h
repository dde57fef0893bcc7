#pragma once

#include "tuning-calibration/source/tuning-calibration.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

/// Pictures of a calibration board as a known camera would take them: a ray for each part of a pixel, some blur, some
/// noise.
namespace board_picture
{
using Parameters = clb::TuningCalibration::DewarpParameters;
using Image = clb::TuningCalibration::Image;
struct Vector
{
    double x, y, z;
};

/// The distortion is that of `Mode`: k1 to k4 of a fisheye; k1, k2, p1, p2 of a wide angle.
struct Camera
{
    Parameters::Mode mode;
    int width, height;
    double fx, fy, cx, cy;
    std::array<double, 4> k;
};

/// A fisheye of 150 degrees, or a wide angle of 60, with slightly different sides and a centre that is none.
inline Camera cameraOf(Parameters::Mode mode, int width = 640, int height = 360)
{
    const double focal = width * (mode == Parameters::Fisheye ? 0.375 : 0.85);
    const auto k = mode == Parameters::Fisheye ? std::array<double, 4>{-0.02, 0.004, -0.003, 0.001}
                                               : std::array<double, 4>{-0.2, 0.05, 0.001, -0.0015};
    return {mode, width, height, focal, focal * 1.01, width * 0.51, height * 0.485, k};
}

/// The board turns about its middle, then is moved from the picture's middle.
struct Pose
{
    double right, down;            ///< of the picture's middle, in half pictures
    double tiltX, tiltY, roll = 0; ///< in radians
    double distance = 1;           ///< times a good one
};

/// Ten poses that tell all about a lens.
inline const std::vector<Pose>& goodPoses()
{
    static const std::vector<Pose> poses{{0, 0, 0.3, 0.2, 0.05},      {0.3, 0.2, -0.4, 0.3, 0.1},
                                         {-0.3, 0.2, 0.4, 0.4, -0.1}, {0.3, -0.2, 0.3, -0.5, 0.2},
                                         {-0.3, -0.2, -0.3, -0.4},    {0, 0.2, 0.6, 0.1, 0.15, 1},
                                         {0.2, 0, -0.1, 0.6, 0, 1},   {-0.2, -0.1, -0.6, 0.2, -0.2},
                                         {0.4, 0, 0.2, 0.5, 0.1, 1},  {-0.4, 0, 0.1, -0.6, -0.1, 1}};
    return poses;
}

inline Vector turnedX(const Vector& v, double a)
{
    return {v.x, v.y * std::cos(a) - v.z * std::sin(a), v.y * std::sin(a) + v.z * std::cos(a)};
}

inline Vector turnedY(const Vector& v, double a)
{
    return {v.z * std::sin(a) + v.x * std::cos(a), v.y, v.z * std::cos(a) - v.x * std::sin(a)};
}

inline Vector turnedZ(const Vector& v, double a)
{
    return {v.x * std::cos(a) - v.y * std::sin(a), v.x * std::sin(a) + v.y * std::cos(a), v.z};
}

/// Where the ray through a place of the picture goes.
inline Vector rayOf(const Camera& camera, double u, double v)
{
    const double xd = (u - camera.cx) / camera.fx;
    const double yd = (v - camera.cy) / camera.fy;
    const auto& k = camera.k;
    if (camera.mode == Parameters::Fisheye)
    {
        const double distorted = std::hypot(xd, yd);
        double theta = distorted;
        for (int i = 0; i < 10; ++i)
        {
            const double q = theta * theta;
            theta = distorted / (1 + q * (k[0] + q * (k[1] + q * (k[2] + q * k[3]))));
        }
        const double scale = distorted > 0 ? std::sin(theta) / distorted : 1;
        return {xd * scale, yd * scale, std::cos(theta)};
    }
    double x = xd;
    double y = yd;
    for (int i = 0; i < 10; ++i)
    {
        const double q = x * x + y * y;
        const double radial = 1 + q * (k[0] + q * k[1]);
        const double dx = 2 * k[2] * x * y + k[3] * (q + 2 * x * x);
        const double dy = k[2] * (q + 2 * y * y) + 2 * k[3] * x * y;
        x = (xd - dx) / radial;
        y = (yd - dy) / radial;
    }
    return {x, y, 1};
}

/// Takes pictures of one board with one camera.
class Photographer
{
public:
    Photographer(const Camera& camera_, const Parameters& parameters) : camera(camera_), board(parameters)
    {
        rays.reserve(static_cast<std::size_t>(camera.width * camera.height) * parts * parts);
        for (int i = 0; i < camera.height; ++i)
            for (int j = 0; j < camera.width; ++j)
                for (int part = 0; part < parts * parts; ++part)
                    rays.push_back(rayOf(camera, j + place(part % parts), i + place(part / parts)));
    }

    Image take(const Pose& pose) const
    {
        const double x0 = (board.pattern == Parameters::Acircles ? 2 : 1) * (board.width - 1) / 2.0;
        const double y0 = (board.height - 1) / 2.0;
        const double good =
            3 * std::max((x0 + margin) * camera.fx / camera.width, (y0 + margin) * camera.fy / camera.height);
        const auto eye = toBoard({0, 0, -good * pose.distance}, pose);
        const auto right = seenToBoard({1, 0, 0}, pose);
        const auto down = seenToBoard({0, 1, 0}, pose);
        const auto ahead = seenToBoard({0, 0, 1}, pose);
        std::vector<double> light(static_cast<std::size_t>(camera.width * camera.height));
        auto* pRay = rays.data();
        for (auto& pixel : light)
        {
            for (int part = 0; part < parts * parts; ++part, ++pRay)
            {
                const double way = -eye.z / (pRay->x * right.z + pRay->y * down.z + pRay->z * ahead.z);
                const double x = pRay->x * right.x + pRay->y * down.x + pRay->z * ahead.x;
                const double y = pRay->x * right.y + pRay->y * down.y + pRay->z * ahead.y;
                pixel += way > 0 ? brightness(eye.x + way * x + x0, eye.y + way * y + y0) : grey;
            }
        }
        return developed(light);
    }

private:
    static constexpr int parts = 2;       ///< of a pixel, each way
    static constexpr double margin = 1.6; // squares around the outer corners
    static constexpr double black = 30;
    static constexpr double grey = 110;
    static constexpr double white = 220;

    static double place(int part) { return (part + 0.5) / parts - 0.5; }

    static Vector toBoard(const Vector& v, const Pose& pose)
    {
        return turnedZ(turnedY(turnedX(v, -pose.tiltX), -pose.tiltY), -pose.roll);
    }

    Vector seenToBoard(const Vector& v, const Pose& pose) const
    {
        const double yaw = pose.right * camera.width / camera.fx / 2;
        const double pitch = pose.down * camera.height / camera.fy / 2;
        return toBoard(turnedX(turnedY(v, -yaw), pitch), pose);
    }

    /// What is printed there, in squares from the first corner or circle.
    double brightness(double x, double y) const
    {
        const bool isAcircles = board.pattern == Parameters::Acircles;
        const double right = isAcircles ? 2 * board.width - 1 : board.width - 1;
        if (std::max(-x, x - right) > margin || std::max(-y, y - board.height + 1) > margin)
            return grey;
        if (board.pattern == Parameters::Chessboard)
        {
            const bool isMargin = std::max(-x, x - right) > 1 || std::max(-y, y - board.height + 1) > 1;
            return isMargin || static_cast<int>(std::floor(x) + std::floor(y)) % 2 == 0 ? white : black;
        }
        const double row = std::clamp(std::round(y), 0.0, board.height - 1.0);
        const double shift = isAcircles && static_cast<int>(row) % 2 != 0 ? 1 : 0;
        const double step = isAcircles ? 2 : 1;
        const double column = std::clamp(std::round((x - shift) / step), 0.0, board.width - 1.0);
        return std::hypot(x - shift - step * column, y - row) < 0.3 ? black : white;
    }

    Image developed(const std::vector<double>& light) const
    {
        Image image{camera.width, camera.height, std::vector<uint8_t>(light.size())};
        std::minstd_rand random(1);
        const auto at = [&](int j, int i)
        {
            return light[static_cast<std::size_t>(std::clamp(i, 0, camera.height - 1) * camera.width +
                                                  std::clamp(j, 0, camera.width - 1))];
        };
        for (int i = 0; i < camera.height; ++i)
            for (int j = 0; j < camera.width; ++j)
            {
                const double soft = (4 * at(j, i) + at(j - 1, i) + at(j + 1, i) + at(j, i - 1) + at(j, i + 1)) / 8;
                const double noise = static_cast<double>(random() % 9) - 4;
                image.grey[static_cast<std::size_t>(i * camera.width + j)] =
                    static_cast<uint8_t>(std::clamp(soft / (parts * parts) + noise, 0.0, 255.0));
            }
        return image;
    }

    Camera camera;
    Parameters board;
    std::vector<Vector> rays;
};
} // namespace board_picture
