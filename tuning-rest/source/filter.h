#pragma once

#include "tuning-rest/source/engine.h"
#include "tuning-rest/source/exposure-status.h"

namespace rest
{
/// Denoising and sharpening filter.
class Filter : public Engine
{
public:
    struct Config
    {
        bool isAuto = false;
        int32_t denoise = 0;
        int32_t sharpen = 0;
        int32_t chrV = 0;
        int32_t chrH = 0;
    };

    using Status = ExposureStatus;

    Filter& configGet(Config& config);
    Filter& configSet(const Config& config);
    Filter& enableGet(bool& isEnable);
    Filter& enableSet(bool isEnable);
    Filter& reset();
    Filter& statusGet(Status& status);
    Filter& tableGet(Json::Value& jTable);
    Filter& tableSet(const Json::Value& jTable);
};
} // namespace rest
