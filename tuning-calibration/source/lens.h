#pragma once

#include "tuning-calibration/source/parameters.h"

#include <functional>

namespace clb
{
/// A camera with its lens, and where the board was in each view.
struct Lens
{
    int flags = 0;        ///< that OpenCV was called with
    cv::Mat matrix;       ///< 3 x 3
    cv::Mat coefficients; ///< 4 x 1
    std::vector<cv::Mat> rotations;
    std::vector<cv::Mat> translations;
    std::vector<double> errors; ///< of each view, root mean square, in pixels
    double error = 0;           ///< of all views
};

/// Computes the lens from what was found in pictures of one size. May take views out of `views`, those that say too
/// little about a fisheye, and tells of the index of each just before. Throws `cv::Exception` where no lens fits.
Lens lensCompute(const Parameters& parameters, cv::Size size, std::vector<Corners>& views,
                 const std::function<void(std::size_t)>& fLeaveOut);
} // namespace clb
