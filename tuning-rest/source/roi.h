#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Weighted regions of interest.
class Roi : public Engine
{
public:
    struct RoiWindow
    {
        uint32_t xStart;
        uint32_t yStart;
        uint32_t width;
        uint32_t height;
        float weight;
    };

    struct Config
    {
        uint32_t windowNum; ///< windows in use as the board tells it; take it through `recordCount`
        RoiWindow roi[16];
    };

    Roi& configGet(Config& config);
    Roi& configSet(const Config& config);
};

RECORD_SIZE(Roi::RoiWindow, 20);
RECORD_FIELD(Roi::RoiWindow, xStart, 0);
RECORD_FIELD(Roi::RoiWindow, yStart, 4);
RECORD_FIELD(Roi::RoiWindow, width, 8);
RECORD_FIELD(Roi::RoiWindow, height, 12);
RECORD_FIELD(Roi::RoiWindow, weight, 16);

RECORD_SIZE(Roi::Config, 324);
RECORD_FIELD(Roi::Config, windowNum, 0);
RECORD_FIELD(Roi::Config, roi, 4);
} // namespace rest
