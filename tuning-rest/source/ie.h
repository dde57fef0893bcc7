#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
// What the board's driver numbers for image effects.

enum OptrixIeMode_t : uint32_t
{
    OPTRIX_IE_MODE_INVALID = 0,
    OPTRIX_IE_MODE_GRAYSCALE = 1,
    OPTRIX_IE_MODE_NEGATIVE = 2,
    OPTRIX_IE_MODE_SEPIA = 3,
    OPTRIX_IE_MODE_COLOR = 4,
    OPTRIX_IE_MODE_EMBOSS = 5,
    OPTRIX_IE_MODE_SKETCH = 6,
    OPTRIX_IE_MODE_SHARPEN = 7,
    OPTRIX_IE_MODE_MAX = 8
};

enum OptrixIeRange_t : uint32_t
{
    OPTRIX_IE_RANGE_INVALID = 0,
    OPTRIX_IE_RANGE_BT601 = 1,
    OPTRIX_IE_RANGE_FULL_RANGE = 2,
    OPTRIX_IE_RANG_MAX = 3 ///< the name is the driver's own
};

enum OptrixIeColorSelection_t : uint32_t
{
    OPTRIX_IE_COLOR_SELECTION_INVALID = 0,
    OPTRIX_IE_COLOR_SELECTION_RGB = 1,
    OPTRIX_IE_COLOR_SELECTION_B = 2,
    OPTRIX_IE_COLOR_SELECTION_G = 3,
    OPTRIX_IE_COLOR_SELECTION_GB = 4,
    OPTRIX_IE_COLOR_SELECTION_R = 5,
    OPTRIX_IE_COLOR_SELECTION_RB = 6,
    OPTRIX_IE_COLOR_SELECTION_RG = 7,
    OPTRIX_IE_COLOR_SELECTION_MAX = 8
};

/// Settings of image effects, as the board's driver has them.
struct OptrixIeConfig_s
{
    union ModeConfig_u
    {
        struct Sepia_s
        {
            uint8_t TintCb;
            uint8_t TintCr;
        };

        struct ColorSelection_s
        {
            OptrixIeColorSelection_t col_selection;
            uint8_t col_threshold;
            uint8_t padding[3];
        };

        struct Emboss_s
        {
            int8_t coeff[9];
        };

        struct Sketch_s
        {
            int8_t coeff[9];
        };

        struct Sharpen_s
        {
            uint8_t factor;
            uint8_t threshold;
            int8_t coeff[9];
        };

        Sepia_s Sepia;
        ColorSelection_s ColorSelection;
        Emboss_s Emboss;
        Sketch_s Sketch;
        Sharpen_s Sharpen;
    };

    OptrixIeMode_t mode;
    OptrixIeRange_t range;
    ModeConfig_u ModeConfig;
};

using OptrixIeConfig_t = OptrixIeConfig_s;

RECORD_SIZE(OptrixIeConfig_s, 20);
RECORD_FIELD(OptrixIeConfig_s, mode, 0);
RECORD_FIELD(OptrixIeConfig_s, range, 4);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Sepia.TintCb, 8);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Sepia.TintCr, 9);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.ColorSelection.col_selection, 8);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.ColorSelection.col_threshold, 12);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Emboss.coeff, 8);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Sketch.coeff, 8);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Sharpen.factor, 8);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Sharpen.threshold, 9);
RECORD_FIELD(OptrixIeConfig_s, ModeConfig.Sharpen.coeff, 10);

/// Image effects.
class Ie : public Engine
{
public:
    struct Config
    {
        OptrixIeConfig_t config;
    };

    Ie& configGet(Config& config);
    Ie& configSet(const Config& config);
    Ie& enableGet(bool& isEnable);
    Ie& enableSet(bool isEnable);
};
} // namespace rest
