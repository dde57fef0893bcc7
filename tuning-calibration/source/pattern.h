#pragma once

#include "tuning-calibration/source/parameters.h"

namespace clb
{
/// Where the pattern's corners, or circles, are in a grey picture, row by row; empty for no pattern.
Corners patternFind(const cv::Mat& grey, const Parameters& parameters);

/// Where they are on the board, in the same order.
std::vector<cv::Point3f> patternPoints(const Parameters& parameters);
} // namespace clb
