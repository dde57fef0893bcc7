#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Luminance and colour noise reduction.
class Cnr2 : public Engine
{
public:
    struct Config
    {
        bool ynr_enable = false;
        bool cnr_enable = false;
        float c_sigma_layer[4] = {};
        float c_sigma_merge[3] = {};
        float y_sigma = 0;
        uint8_t bit = 0;
        uint8_t cnr_strength1 = 0;
        uint8_t cnr_strength2 = 0;
        uint8_t ynr_strength1 = 0;
        uint8_t ynr_strength2 = 0;
        uint8_t texture_mask_select = 0;
    };

    Cnr2& configGet(Config& config);
    Cnr2& configSet(const Config& config);
    Cnr2& reset();
};
} // namespace rest
