#include "tuning-calibration/source/pattern.h"

#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace clb
{
namespace
{
/// Half the side of the window in which a corner is refined: it must not reach the neighbours.
int refineReach(const Corners& corners, int width)
{
    double nearest = HUGE_VAL;
    for (std::size_t i = 1; i < corners.size(); ++i)
    {
        if (i % static_cast<std::size_t>(width) != 0)
            nearest = std::min(nearest, cv::norm(corners[i] - corners[i - 1]));
    }
    return static_cast<int>(std::clamp(nearest / 3, 2.0, 11.0));
}

/// The older search, which finds some boards that the newer one doesn't. It takes minutes for the texture of a large
/// picture, so it has its fast check and a picture that is made smaller.
Corners chessboardFindOlder(const cv::Mat& grey, cv::Size size)
{
    constexpr double sideMaximum = 960;
    const double factor = std::min(1.0, sideMaximum / std::max(grey.cols, grey.rows));
    cv::Mat small;
    cv::resize(grey, small, {}, factor, factor, cv::INTER_AREA);
    Corners corners;
    constexpr int flags = cv::CALIB_CB_ADAPTIVE_THRESH | cv::CALIB_CB_NORMALIZE_IMAGE | cv::CALIB_CB_FAST_CHECK;
    if (!cv::findChessboardCorners(small, size, corners, flags))
        return {};
    const cv::Point2f half(0.5F, 0.5F); // the first pixel's middle is at zero in both
    for (auto& corner : corners)
        corner = (corner + half) * (1 / factor) - half;
    return corners;
}

Corners chessboardFind(const cv::Mat& grey, cv::Size size)
{
    Corners corners;
    if (!cv::findChessboardCornersSB(grey, size, corners, cv::CALIB_CB_NORMALIZE_IMAGE))
        corners = chessboardFindOlder(grey, size);
    if (corners.empty())
        return {};
    // Also those of the newer search, which are a fifth of a pixel off.
    const int reach = refineReach(corners, size.width);
    cv::cornerSubPix(grey, corners, {reach, reach}, {-1, -1},
                     {cv::TermCriteria::EPS + cv::TermCriteria::COUNT, 30, 0.001});
    return corners;
}

Corners circlesFind(const cv::Mat& grey, cv::Size size, int flags)
{
    const auto count = static_cast<std::size_t>(size.area());
    cv::SimpleBlobDetector::Params params;
    params.maxArea = static_cast<float>(grey.total()) / static_cast<float>(count);
    std::vector<cv::KeyPoint> blobs;
    cv::SimpleBlobDetector::create(params)->detect(grey, blobs);
    // The grid's search takes the cube of their number.
    constexpr std::size_t others = 4;
    if (blobs.size() < count || blobs.size() > others * count)
        return {};
    Corners spots;
    cv::KeyPoint::convert(blobs, spots);
    Corners centres;
    return cv::findCirclesGrid(spots, size, centres, flags, nullptr) ? centres : Corners();
}
} // namespace

Corners patternFind(const cv::Mat& grey, const Parameters& parameters)
{
    const auto size = patternSize(parameters);
    switch (parameters.pattern)
    {
    case Parameters::Acircles:
        return circlesFind(grey, size, cv::CALIB_CB_ASYMMETRIC_GRID);
    case Parameters::Circles:
        return circlesFind(grey, size, cv::CALIB_CB_SYMMETRIC_GRID);
    default:
        return chessboardFind(grey, size);
    }
}

std::vector<cv::Point3f> patternPoints(const Parameters& parameters)
{
    std::vector<cv::Point3f> points;
    for (int row = 0; row < parameters.height; ++row)
    {
        for (int column = 0; column < parameters.width; ++column)
        {
            const int x = parameters.pattern == Parameters::Acircles ? 2 * column + row % 2 : column;
            points.emplace_back(static_cast<float>(x) * parameters.squareSize,
                                static_cast<float>(row) * parameters.squareSize, 0.0F);
        }
    }
    return points;
}
} // namespace clb
