#pragma once

#include "board-simulator/source/camera.h"

#include <string>

namespace board
{

/// What the camera sees, as the file of a capture.
struct Picture
{
    enum Format
    {
        Raw08 = 0,
        Raw10 = 1,
        Raw12 = 2,
        Raw16 = 3,
        Rgb = 4,
        Yuv = 5
    };

    static const char* suffix(Format format);

    /// Raw formats are PGM files of the sensor's samples, above 8 bits two bytes each, the higher one first. Rgb is a
    /// PPM file, Yuv a plane of luma and one of U and V for each two pixels of a row.
    std::string file(Format format) const;

    const Camera& camera;
    int width;
    int height;
    /// 0 BGGR, 1 GBRG, 2 GRBG, 3 RGGB.
    int bayerPattern;

private:
    Camera::Colour at(int x, int y) const;
    std::string raw(int bits) const;
    std::string rgb() const;
    std::string yuv() const;
};

} // namespace board
