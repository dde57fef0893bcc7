#pragma once

#include "tuning-rest/source/abstract.h"

namespace rest
{
// What the board's driver has for the dewarp block.

struct wq700_resolution
{
    uint32_t width;
    uint32_t height;
    uint32_t format;
    uint32_t enable;
};

struct dewarp_buffer_size
{
    uint32_t width;
    uint32_t height;
};

struct dewarp_single_pixel
{
    unsigned char Y;
    unsigned char U;
    unsigned char V;
};

struct fsc_crop_size
{
    uint32_t left;
    uint32_t right;
    uint32_t top;
    uint32_t bottom;
};

struct fsc_format_conv_settings
{
    uint32_t in_format;
    uint32_t out_format;
};

struct fsc_mi_settings
{
    Flag enable;
    uint8_t padding[3];
    uint32_t out_format;
    uint32_t width;
    uint32_t height;
};

struct wq700_parameters
{
    wq700_resolution input_res[2];
    wq700_resolution output_res[4];
    dewarp_buffer_size roi_start;
    dewarp_single_pixel boundary_pixel;
    uint8_t padding;
    uint32_t scale_factor;
    uint32_t split_horizon_line;
    uint32_t split_vertical_line_up;
    uint32_t split_vertical_line_down;
    uint32_t dewarp_type;
    Flag hflip;
    Flag vflip;
    Flag bypass;
    uint8_t padding2;
    uint32_t fsc_inputSelect;
    fsc_crop_size fsc_cropSize[3];
    fsc_format_conv_settings fsc_format_conv[3];
    Flag fsc_enableResizeOutput[3];
    uint8_t padding3;
    fsc_mi_settings mi_settings[3];
};

struct dewarp_distortion_map
{
    uint32_t index;
    uint32_t userMapSize;
    double camera_matrix[9];
    double perspective_matrix[9];
    double distortion_coeff[8];
    BoardPointer pUserMap;
};

RECORD_SIZE(wq700_resolution, 16);
RECORD_FIELD(wq700_resolution, width, 0);
RECORD_FIELD(wq700_resolution, height, 4);
RECORD_FIELD(wq700_resolution, format, 8);
RECORD_FIELD(wq700_resolution, enable, 12);

RECORD_SIZE(fsc_crop_size, 16);
RECORD_FIELD(fsc_crop_size, left, 0);
RECORD_FIELD(fsc_crop_size, right, 4);
RECORD_FIELD(fsc_crop_size, top, 8);
RECORD_FIELD(fsc_crop_size, bottom, 12);

RECORD_SIZE(fsc_format_conv_settings, 8);
RECORD_FIELD(fsc_format_conv_settings, in_format, 0);
RECORD_FIELD(fsc_format_conv_settings, out_format, 4);

RECORD_SIZE(fsc_mi_settings, 16);
RECORD_FIELD(fsc_mi_settings, enable, 0);
RECORD_FIELD(fsc_mi_settings, out_format, 4);
RECORD_FIELD(fsc_mi_settings, width, 8);
RECORD_FIELD(fsc_mi_settings, height, 12);

RECORD_SIZE(wq700_parameters, 260);
RECORD_FIELD(wq700_parameters, input_res, 0);
RECORD_FIELD(wq700_parameters, output_res, 32);
RECORD_FIELD(wq700_parameters, roi_start.width, 96);
RECORD_FIELD(wq700_parameters, roi_start.height, 100);
RECORD_FIELD(wq700_parameters, boundary_pixel.Y, 104);
RECORD_FIELD(wq700_parameters, boundary_pixel.U, 105);
RECORD_FIELD(wq700_parameters, boundary_pixel.V, 106);
RECORD_FIELD(wq700_parameters, scale_factor, 108);
RECORD_FIELD(wq700_parameters, split_horizon_line, 112);
RECORD_FIELD(wq700_parameters, split_vertical_line_up, 116);
RECORD_FIELD(wq700_parameters, split_vertical_line_down, 120);
RECORD_FIELD(wq700_parameters, dewarp_type, 124);
RECORD_FIELD(wq700_parameters, hflip, 128);
RECORD_FIELD(wq700_parameters, vflip, 129);
RECORD_FIELD(wq700_parameters, bypass, 130);
RECORD_FIELD(wq700_parameters, fsc_inputSelect, 132);
RECORD_FIELD(wq700_parameters, fsc_cropSize, 136);
RECORD_FIELD(wq700_parameters, fsc_format_conv, 184);
RECORD_FIELD(wq700_parameters, fsc_enableResizeOutput, 208);
RECORD_FIELD(wq700_parameters, mi_settings, 212);

RECORD_SIZE(dewarp_distortion_map, 224);
RECORD_FIELD(dewarp_distortion_map, index, 0);
RECORD_FIELD(dewarp_distortion_map, userMapSize, 4);
RECORD_FIELD(dewarp_distortion_map, camera_matrix, 8);
RECORD_FIELD(dewarp_distortion_map, perspective_matrix, 80);
RECORD_FIELD(dewarp_distortion_map, distortion_coeff, 152);
RECORD_FIELD(dewarp_distortion_map, pUserMap, 216);

/// Correction of lens distortion, fisheye views and perspective.
class Dewarp : public Abstract
{
public:
    struct Config
    {
        /// A frame of 1920 by 1080 and the matrices of a common lens.
        Config();

        wq700_parameters params;
        uint8_t padding[4];
        dewarp_distortion_map distortionMap[2];
    };

    /// The user map comes as a block that the caller releases with `std::free`; without one it is null and `size` 0.
    Dewarp& configGet(Config& settings, void** ppMap, uint32_t& size);

    /// The user map has `size` bytes; 0 for none.
    Dewarp& configSet(const Config& settings, void* pMap, uint32_t size);

    Dewarp& enableGet(bool& isEnable);
    Dewarp& enableSet(bool isEnable);

    Config config; ///< the caller's; no command uses it
};

RECORD_SIZE(Dewarp::Config, 712);
RECORD_FIELD(Dewarp::Config, params, 0);
RECORD_FIELD(Dewarp::Config, distortionMap, 264);
} // namespace rest
