#pragma once

#include <cstddef>
#include <cstdint>

/// Converts a picture of 8-bit luma and, behind it, interleaved U and V into bytes R, G, B. `mode` 4 is 4:2:2, a row of
/// chroma for each row of luma; 5 steps half as far for a row, all others not at all. `yuv` holds
/// `semiplanarSizeGet()` bytes, `rgb` three for each pixel. The result is the same on every machine.
void convert_semiplanar_to_rgb24_buffer(uint8_t* yuv, uint8_t* rgb, uint8_t mode, uint16_t width, uint16_t height);

/// The bytes that the conversion reads.
std::size_t semiplanarSizeGet(uint8_t mode, uint16_t width, uint16_t height);
