#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
// Value ranges of colour processing, as the board's driver numbers them.

enum OptrixCprocChrominaceRangeOut_t : uint32_t
{
    OPTRIX_CPROC_CHROM_RANGE_OUT_INVALID = 0,
    OPTRIX_CPROC_CHROM_RANGE_OUT_BT601 = 1,
    OPTRIX_CPROC_CHROM_RANGE_OUT_FULL_RANGE = 2,
    OPTRIX_CPROC_CHROM_RANGE_OUT_MAX = 3
};

enum OptrixCprocLuminanceRangeOut_t : uint32_t
{
    OPTRIX_CPROC_LUM_RANGE_OUT_INVALID = 0,
    OPTRIX_CPROC_LUM_RANGE_OUT_BT601 = 1,
    OPTRIX_CPROC_LUM_RANGE_OUT_FULL_RANGE = 2,
    OPTRIX_CPROC_LUM_RANGE_OUT_MAX = 3
};

enum OptrixCprocLuminanceRangeIn_t : uint32_t
{
    OPTRIX_CPROC_LUM_RANGE_IN_INVALID = 0,
    OPTRIX_CPROC_LUM_RANGE_IN_BT601 = 1,
    OPTRIX_CPROC_LUM_RANGE_IN_FULL_RANGE = 2,
    OPTRIX_CPROC_LUM_RANGE_IN_MAX = 3
};

/// Settings of colour processing, as the board's driver has them.
struct CamEngineCprocConfig_s
{
    OptrixCprocChrominaceRangeOut_t ChromaOut;
    OptrixCprocLuminanceRangeOut_t LumaOut;
    OptrixCprocLuminanceRangeIn_t LumaIn;
    float contrast;
    int8_t brightness;
    uint8_t padding[3];
    float saturation;
    float hue;
};

using CamEngineCprocConfig_t = CamEngineCprocConfig_s;

RECORD_SIZE(CamEngineCprocConfig_s, 28);
RECORD_FIELD(CamEngineCprocConfig_s, ChromaOut, 0);
RECORD_FIELD(CamEngineCprocConfig_s, LumaOut, 4);
RECORD_FIELD(CamEngineCprocConfig_s, LumaIn, 8);
RECORD_FIELD(CamEngineCprocConfig_s, contrast, 12);
RECORD_FIELD(CamEngineCprocConfig_s, brightness, 16);
RECORD_FIELD(CamEngineCprocConfig_s, saturation, 20);
RECORD_FIELD(CamEngineCprocConfig_s, hue, 24);

/// Colour processing.
class Cproc : public Engine
{
public:
    struct Config
    {
        CamEngineCprocConfig_t config;
    };

    Cproc& configGet(Config& config);
    Cproc& configSet(const Config& config);
    Cproc& enableGet(bool& isEnable);
    Cproc& enableSet(bool isEnable);
};
} // namespace rest
