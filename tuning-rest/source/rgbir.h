#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
// What the board's driver numbers for the RGB-IR block.

enum CamEngineRgbirOutBpt_t : uint32_t
{
    CAM_ENGINE_RGBIR_OUT_BPT_RGGB = 0,
    CAM_ENGINE_RGBIR_OUT_BPT_GRBG = 1,
    CAM_ENGINE_RGBIR_OUT_BPT_GBRG = 2,
    CAM_ENGINE_RGBIR_OUT_BPT_BGGR = 3
};

enum CamEngineRgbirBpt_t : uint32_t
{
    CAM_ENGINE_RGBIR_BPT_BGGIR = 0,
    CAM_ENGINE_RGBIR_BPT_GRIRG = 1,
    CAM_ENGINE_RGBIR_BPT_RGGIR = 2,
    CAM_ENGINE_RGBIR_BPT_GBIRG = 3,
    CAM_ENGINE_RGBIR_BPT_GIRRG = 4,
    CAM_ENGINE_RGBIR_BPT_IRGGB = 5,
    CAM_ENGINE_RGBIR_BPT_GIRBG = 6,
    CAM_ENGINE_RGBIR_BPT_IRGGR = 7,
    CAM_ENGINE_RGBIR_BPT_RGIRB = 8,
    CAM_ENGINE_RGBIR_BPT_GRBIR = 9,
    CAM_ENGINE_RGBIR_BPT_IRBRG = 10,
    CAM_ENGINE_RGBIR_BPT_BIRGR = 11,
    CAM_ENGINE_RGBIR_BPT_BGIRR = 12,
    CAM_ENGINE_RGBIR_BPT_GBRIR = 13,
    CAM_ENGINE_RGBIR_BPT_IRRBG = 14,
    CAM_ENGINE_RGBIR_BPT_RIRGB = 15
};

enum CamEngineRgbirFiltMode_t : uint32_t
{
    CAM_ENGINE_RGBIR_GREEN_FILT_STATIC = 0,
    CAM_ENGINE_RGBIR_GREEN_FILT_DYNAMIC = 1
};

/// The driver's truth value of four bytes.
using bool_t = int32_t;

/// The RGB-IR block.
class Rgbir : public Engine
{
public:
    struct Config
    {
        bool_t enable;
        bool_t enable_ir_raw_out;
        bool_t part1Enable;
        bool_t part2Enable;
        bool_t rcccEnable;
        uint8_t dmscThreshold;
        uint8_t stageSelect;
        uint8_t padding[2];
        CamEngineRgbirOutBpt_t outRgbBpt;
        CamEngineRgbirBpt_t rgbirBpt;
        CamEngineRgbirFiltMode_t filtMode;
        bool_t filtEnable;
        double irSigmas;
        uint32_t ir_threshold;
        uint32_t l_threshold;
        uint16_t bls_r;
        uint16_t bls_g;
        uint16_t bls_b;
        uint16_t bls_ir;
        double gain_r;
        double gain_g;
        double gain_b;
        double gain_ir;
        double cc_mtx[12];
        uint16_t width;
        uint16_t height;
        uint16_t dpccTh[4];
        uint16_t dpccMidTh[4];
        uint8_t padding2[4];
    };

    Rgbir& configGet(Config& config);
    Rgbir& configSet(const Config& config);
    Rgbir& enableGet(bool& isEnable);
    Rgbir& enableSet(bool isEnable);
};

RECORD_SIZE(Rgbir::Config, 216);
RECORD_FIELD(Rgbir::Config, enable, 0);
RECORD_FIELD(Rgbir::Config, enable_ir_raw_out, 4);
RECORD_FIELD(Rgbir::Config, part1Enable, 8);
RECORD_FIELD(Rgbir::Config, part2Enable, 12);
RECORD_FIELD(Rgbir::Config, rcccEnable, 16);
RECORD_FIELD(Rgbir::Config, dmscThreshold, 20);
RECORD_FIELD(Rgbir::Config, stageSelect, 21);
RECORD_FIELD(Rgbir::Config, outRgbBpt, 24);
RECORD_FIELD(Rgbir::Config, rgbirBpt, 28);
RECORD_FIELD(Rgbir::Config, filtMode, 32);
RECORD_FIELD(Rgbir::Config, filtEnable, 36);
RECORD_FIELD(Rgbir::Config, irSigmas, 40);
RECORD_FIELD(Rgbir::Config, ir_threshold, 48);
RECORD_FIELD(Rgbir::Config, l_threshold, 52);
RECORD_FIELD(Rgbir::Config, bls_r, 56);
RECORD_FIELD(Rgbir::Config, bls_g, 58);
RECORD_FIELD(Rgbir::Config, bls_b, 60);
RECORD_FIELD(Rgbir::Config, bls_ir, 62);
RECORD_FIELD(Rgbir::Config, gain_r, 64);
RECORD_FIELD(Rgbir::Config, gain_g, 72);
RECORD_FIELD(Rgbir::Config, gain_b, 80);
RECORD_FIELD(Rgbir::Config, gain_ir, 88);
RECORD_FIELD(Rgbir::Config, cc_mtx, 96);
RECORD_FIELD(Rgbir::Config, width, 192);
RECORD_FIELD(Rgbir::Config, height, 194);
RECORD_FIELD(Rgbir::Config, dpccTh, 196);
RECORD_FIELD(Rgbir::Config, dpccMidTh, 204);
} // namespace rest
