#pragma once

#include "tuning-calibration/source/lens.h"

namespace clb
{
/// Writes the file `outputFileName` whole, or throws `std::runtime_error` and leaves the one that was there.
void calibrationFileWrite(const Parameters& parameters, cv::Size size, const Lens& lens,
                          const std::vector<Corners>& views);

/// Throws `std::runtime_error` with the reason, which doesn't name the file.
Result calibrationFileRead(const std::string& path);
} // namespace clb
