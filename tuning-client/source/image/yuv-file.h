#pragma once

#include <QString>

#include <cstdint>

/// The PPM file that stands for a YUV capture, beside it: its name up to the first point with "RGB" for "YUV".
QString displayFileGet(const QString& fileName);

/// Converts the semi-planar 4:2:2 capture `fileName` to a PPM file beside it, which appears whole or not at all, and
/// returns its name. A file that has this name already stays, and is a failure. "client_rgb.ppm" in the working
/// directory holds the picture meanwhile. Throws std::runtime_error with the text to show.
QString yuvFileConvert(const QString& fileName, uint32_t width, uint32_t height);
