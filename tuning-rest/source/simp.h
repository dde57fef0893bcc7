#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// How a picture is laid over the video, as the board's driver numbers it.
enum CamEngineSimpMode_t : uint32_t
{
    CAM_ENGINE_SIMP_MODE_INVALID = 0,
    CAM_ENGINE_SIMP_MODE_OVERLAY = 1,
    CAM_ENGINE_SIMP_MODE_KEYCOLORING = 2,
    CAM_ENGINE_SIMP_MODE_MAX = 3
};

/// Settings of super impose, as the board's driver has them.
struct CamEngineSimpConfig_s
{
    union SimpModeConfig_u
    {
        struct Overlay_s
        {
            uint32_t OffsetX;
            uint32_t OffsetY;
        };

        struct KeyColoring_s
        {
            uint8_t Y;
            uint8_t Cb;
            uint8_t Cr;
        };

        Overlay_s Overlay;
        KeyColoring_s KeyColoring;
    };

    CamEngineSimpMode_t Mode;
    SimpModeConfig_u SimpModeConfig;
    uint8_t padding[4];
    BoardPointer pPicBuffer;
};

using CamEngineSimpConfig_t = CamEngineSimpConfig_s;

RECORD_SIZE(CamEngineSimpConfig_s, 24);
RECORD_FIELD(CamEngineSimpConfig_s, Mode, 0);
RECORD_FIELD(CamEngineSimpConfig_s, pPicBuffer, 16);
RECORD_FIELD(CamEngineSimpConfig_s, SimpModeConfig.Overlay.OffsetX, 4);
RECORD_FIELD(CamEngineSimpConfig_s, SimpModeConfig.Overlay.OffsetY, 8);
RECORD_FIELD(CamEngineSimpConfig_s, SimpModeConfig.KeyColoring.Y, 4);
RECORD_FIELD(CamEngineSimpConfig_s, SimpModeConfig.KeyColoring.Cb, 5);
RECORD_FIELD(CamEngineSimpConfig_s, SimpModeConfig.KeyColoring.Cr, 6);

/// Super impose: a picture over the video.
class Simp : public Engine
{
public:
    struct Config
    {
        std::string fileName;
        CamEngineSimpConfig_t config = recordZero<CamEngineSimpConfig_t>();
    };

    Simp& configGet(Config& config);
    Simp& configSet(const Config& config);
    Simp& enableGet(bool& isEnable);
    Simp& enableSet(bool isEnable);
};
} // namespace rest
