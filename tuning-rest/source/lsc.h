#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// The tables of lens shading correction, as the board's driver has them.
struct CamEngineLscConfig_s
{
    struct Grid
    {
        uint16_t LscXGradTbl[8];
        uint16_t LscYGradTbl[8];
        uint16_t LscXSizeTbl[8];
        uint16_t LscYSizeTbl[8];
    };

    /// Matrices of 17 by 17, row by row.
    struct Gain
    {
        uint16_t LscRDataTbl[289];
        uint16_t LscGRDataTbl[289];
        uint16_t LscGBDataTbl[289];
        uint16_t LscBDataTbl[289];
    };

    Grid grid;
    Gain gain;
};

using CamEngineLscConfig_t = CamEngineLscConfig_s;

RECORD_SIZE(CamEngineLscConfig_s, 2376);
RECORD_FIELD(CamEngineLscConfig_s, grid.LscXGradTbl, 0);
RECORD_FIELD(CamEngineLscConfig_s, grid.LscYGradTbl, 16);
RECORD_FIELD(CamEngineLscConfig_s, grid.LscXSizeTbl, 32);
RECORD_FIELD(CamEngineLscConfig_s, grid.LscYSizeTbl, 48);
RECORD_FIELD(CamEngineLscConfig_s, gain.LscRDataTbl, 64);
RECORD_FIELD(CamEngineLscConfig_s, gain.LscGRDataTbl, 642);
RECORD_FIELD(CamEngineLscConfig_s, gain.LscGBDataTbl, 1220);
RECORD_FIELD(CamEngineLscConfig_s, gain.LscBDataTbl, 1798);

/// Lens shading correction.
class Lsc : public Engine
{
public:
    struct Config
    {
        bool isAdaptive = false;
    };

    /// Travels under "config".
    struct Status
    {
        CamEngineLscConfig_t config;
    };

    Lsc& configGet(Config& settings);
    Lsc& configSet(const Config& settings);

    /// The spelling is the command's own, and so what the board hears.
    Lsc& enabelGet(bool& isEnable);

    Lsc& enableSet(bool isEnable);
    Lsc& statusGet(Status& status);

    Config config; ///< the caller's; no command uses it
};
} // namespace rest
