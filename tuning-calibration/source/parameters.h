#pragma once

#include "tuning-calibration/source/tuning-calibration.h"

#include <opencv2/core.hpp>

namespace clb
{
using Parameters = TuningCalibration::DewarpParameters;
using Result = TuningCalibration::DewarpResult;
using Corners = std::vector<cv::Point2f>;

inline cv::Size patternSize(const Parameters& parameters) { return {parameters.width, parameters.height}; }
} // namespace clb
