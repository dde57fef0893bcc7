#include "tuning-calibration/source/lens.h"

#include "tuning-calibration/source/pattern.h"

#include <opencv2/calib3d.hpp>

#include <cmath>
#include <cstdio>
#include <utility>

namespace clb
{
namespace
{
using Board = std::vector<cv::Point3f>;

using Views = std::vector<Corners>;

Lens fisheyeCompute(int flags, cv::Size size, const Board& board, const Views& views)
{
    Lens lens;
    lens.flags = flags;
    cv::fisheye::calibrate(std::vector<Board>(views.size(), board), views, size, lens.matrix, lens.coefficients,
                           lens.rotations, lens.translations, flags);
    return lens;
}

Views without(Views views, std::size_t index)
{
    views.erase(views.begin() + static_cast<std::ptrdiff_t>(index));
    return views;
}

/// The view that the computation without a result is to go on without. Throws the exception again if there is none.
std::size_t worstOf(const cv::Exception& exception, int flags, cv::Size size, const Board& board, const Views& views)
{
    // One of the condition checks tells the view.
    constexpr auto* pFormat = "CALIB_CHECK_COND - Ill-conditioned matrix for input array %zu";
    std::size_t told = 0;
    if (std::sscanf(exception.err.c_str(), pFormat, &told) == 1 && told < views.size())
        return told;
    for (std::size_t index = 0; views.size() > 1 && index < views.size(); ++index)
    {
        try
        {
            fisheyeCompute(flags, size, board, without(views, index));
            return index;
        }
        catch (const cv::Exception&)
        {
        }
    }
    throw exception;
}

Lens fisheyeCompute(const Parameters& parameters, cv::Size size, const Board& board, Views& views,
                    const std::function<void(std::size_t)>& fLeaveOut)
{
    const auto& options = parameters.modeConfig.fisheye;
    const int flags = (options.isCheckCond ? cv::fisheye::CALIB_CHECK_COND : 0) |
                      (options.isFixSkew ? cv::fisheye::CALIB_FIX_SKEW : 0) |
                      (options.isRecomputeExtrinsic ? cv::fisheye::CALIB_RECOMPUTE_EXTRINSIC : 0);
    for (;;)
    {
        try
        {
            return fisheyeCompute(flags, size, board, views);
        }
        catch (const cv::Exception& exception)
        {
            const auto index = worstOf(exception, flags, size, board, views);
            fLeaveOut(index);
            views = without(std::move(views), index);
        }
    }
}

Lens wideAngleCompute(const Parameters& parameters, cv::Size size, const Board& board, const Views& views)
{
    const auto& options = parameters.modeConfig.wideAngle;
    Lens lens;
    lens.flags = cv::CALIB_FIX_K3 | (options.isFixAspectRatio ? cv::CALIB_FIX_ASPECT_RATIO : 0) |
                 (options.isFixPrincipalPoint ? cv::CALIB_FIX_PRINCIPAL_POINT : 0) |
                 (options.isZeroTangentDist ? cv::CALIB_ZERO_TANGENT_DIST : 0);
    lens.matrix = cv::Mat::eye(3, 3, CV_64F);
    if (options.isFixAspectRatio)
        lens.matrix.at<double>(0, 0) = parameters.aspectRatio;
    cv::Mat coefficients;
    // The solver of its own choice takes minutes for two hundred views; this one gives the same in seconds.
    cv::calibrateCamera(std::vector<Board>(views.size(), board), views, size, lens.matrix, coefficients, lens.rotations,
                        lens.translations, lens.flags | cv::CALIB_USE_LU);
    lens.coefficients = coefficients.reshape(1, static_cast<int>(coefficients.total())).rowRange(0, 4).clone();
    return lens;
}

Corners projected(const Lens& lens, bool isFisheye, const Board& board, std::size_t view)
{
    const auto& rotation = lens.rotations[view];
    const auto& translation = lens.translations[view];
    Corners points;
    if (isFisheye)
        cv::fisheye::projectPoints(board, points, rotation, translation, lens.matrix, lens.coefficients,
                                   lens.matrix.at<double>(0, 1) / lens.matrix.at<double>(0, 0));
    else
        cv::projectPoints(board, rotation, translation, lens.matrix, lens.coefficients, points);
    return points;
}
} // namespace

Lens lensCompute(const Parameters& parameters, cv::Size size, std::vector<Corners>& views,
                 const std::function<void(std::size_t)>& fLeaveOut)
{
    const auto board = patternPoints(parameters);
    const bool isFisheye = parameters.mode == Parameters::Fisheye;
    auto lens = isFisheye ? fisheyeCompute(parameters, size, board, views, fLeaveOut)
                          : wideAngleCompute(parameters, size, board, views);
    double sum = 0;
    for (std::size_t i = 0; i < views.size(); ++i)
    {
        const double distance = cv::norm(projected(lens, isFisheye, board, i), views[i], cv::NORM_L2);
        sum += distance * distance;
        lens.errors.push_back(distance / std::sqrt(board.size()));
    }
    lens.error = std::sqrt(sum / static_cast<double>(board.size() * views.size()));
    return lens;
}
} // namespace clb
