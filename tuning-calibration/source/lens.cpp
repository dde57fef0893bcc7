#include "tuning-calibration/source/lens.h"

#include "tuning-calibration/source/pattern.h"

#include <opencv2/calib3d.hpp>

#include <cmath>
#include <cstdio>

namespace clb
{
namespace
{
using Board = std::vector<cv::Point3f>;

/// The view that an exception of the condition check is about. Throws the exception again if it is about none.
std::size_t illConditioned(const cv::Exception& exception, std::size_t count)
{
    const auto text = exception.err.find("Ill-conditioned matrix for input array ");
    std::size_t index = count;
    if (text != std::string::npos)
        std::sscanf(exception.err.c_str() + text, "Ill-conditioned matrix for input array %zu", &index);
    if (index >= count)
        throw exception;
    return index;
}

Lens fisheyeCompute(const Parameters& parameters, cv::Size size, const Board& board, std::vector<Corners>& views,
                    const std::function<void(std::size_t)>& fLeaveOut)
{
    const auto& options = parameters.modeConfig.fisheye;
    Lens lens;
    lens.flags = (options.isCheckCond ? cv::fisheye::CALIB_CHECK_COND : 0) |
                 (options.isFixSkew ? cv::fisheye::CALIB_FIX_SKEW : 0) |
                 (options.isRecomputeExtrinsic ? cv::fisheye::CALIB_RECOMPUTE_EXTRINSIC : 0);
    for (;;)
    {
        try
        {
            cv::fisheye::calibrate(std::vector<Board>(views.size(), board), views, size, lens.matrix, lens.coefficients,
                                   lens.rotations, lens.translations, lens.flags);
            return lens;
        }
        catch (const cv::Exception& exception)
        {
            const auto index = illConditioned(exception, views.size());
            fLeaveOut(index);
            views.erase(views.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
}

Lens wideAngleCompute(const Parameters& parameters, cv::Size size, const Board& board,
                      const std::vector<Corners>& views)
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
    cv::calibrateCamera(std::vector<Board>(views.size(), board), views, size, lens.matrix, coefficients, lens.rotations,
                        lens.translations, lens.flags);
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
