#pragma once

#include "tuning-rest/source/engine.h"
#include "tuning-rest/source/exposure-status.h"

namespace rest
{
/// Two-dimensional noise reduction.
class Dnr2 : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V5 = 1,
        VMax = 2
    };

    /// Settings. All 32 bytes travel in both generations.
    union Config
    {
        struct Abstract
        {
            Flag isAuto;
            uint8_t padding[3];
            int32_t autoLevel;
        };

        struct V1 : Abstract
        {
            int32_t denoisePregammaStrength;
            int32_t denoiseStrength;
            double sigma;
        };

        struct V5 : Abstract
        {
            struct BlendOpacity
            {
                int32_t _static;
                int32_t moving;
            };

            BlendOpacity blendOpacity;
            double denoiseStrength;
            double sigma;
        };

        V1 v1;
        V5 v5;
    };

    using Status = ExposureStatus;

    Dnr2& configGet(Config& config, Generation generation);
    Dnr2& configSet(const Config& config, Generation generation);
    Dnr2& enableGet(bool& isEnable, Generation generation);
    Dnr2& enableSet(bool isEnable, Generation generation);
    Dnr2& reset(Generation generation);
    Dnr2& statusGet(Status& status, Generation generation);
    Dnr2& tableGet(Json::Value& jTable, Generation generation);
    Dnr2& tableSet(const Json::Value& jTable, Generation generation);
};

RECORD_SIZE(Dnr2::Config, 32);
RECORD_FIELD(Dnr2::Config, v1.isAuto, 0);
RECORD_FIELD(Dnr2::Config, v1.autoLevel, 4);
RECORD_FIELD(Dnr2::Config, v1.denoisePregammaStrength, 8);
RECORD_FIELD(Dnr2::Config, v1.denoiseStrength, 12);
RECORD_FIELD(Dnr2::Config, v1.sigma, 16);
RECORD_FIELD(Dnr2::Config, v5.isAuto, 0);
RECORD_FIELD(Dnr2::Config, v5.autoLevel, 4);
RECORD_FIELD(Dnr2::Config, v5.blendOpacity._static, 8);
RECORD_FIELD(Dnr2::Config, v5.blendOpacity.moving, 12);
RECORD_FIELD(Dnr2::Config, v5.denoiseStrength, 16);
RECORD_FIELD(Dnr2::Config, v5.sigma, 24);
} // namespace rest
