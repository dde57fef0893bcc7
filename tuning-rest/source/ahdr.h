#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Auto high dynamic range.
class Ahdr : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        VMax = 1
    };

    union Config
    {
        struct V1
        {
            struct Ratio
            {
                double max;
                double min;
            };

            Flag isAuto;
            Flag isAutoSetPoint;
            Flag isAutoSetPoint2;
            uint8_t padding[5];
            double c;
            double c2;
            double ceil;
            double objectFector; ///< the name is the system's own
            double setPoint2;
            uint8_t tolerance;
            uint8_t padding2[7];
            Ratio ratio;
        };

        V1 v1;
    };

    Ahdr& configGet(Config& config, Generation generation);
    Ahdr& configSet(const Config& config, Generation generation);
    Ahdr& enableGet(bool& isEnable, Generation generation);
    Ahdr& enableSet(bool isEnable, Generation generation);
    Ahdr& reset(Generation generation);
    Ahdr& tableGet(Json::Value& jTable, Generation generation);
    Ahdr& tableSet(const Json::Value& jTable, Generation generation);
};

RECORD_SIZE(Ahdr::Config, 72);
RECORD_FIELD(Ahdr::Config, v1.isAuto, 0);
RECORD_FIELD(Ahdr::Config, v1.isAutoSetPoint, 1);
RECORD_FIELD(Ahdr::Config, v1.isAutoSetPoint2, 2);
RECORD_FIELD(Ahdr::Config, v1.c, 8);
RECORD_FIELD(Ahdr::Config, v1.c2, 16);
RECORD_FIELD(Ahdr::Config, v1.ceil, 24);
RECORD_FIELD(Ahdr::Config, v1.objectFector, 32);
RECORD_FIELD(Ahdr::Config, v1.setPoint2, 40);
RECORD_FIELD(Ahdr::Config, v1.tolerance, 48);
RECORD_FIELD(Ahdr::Config, v1.ratio.max, 56);
RECORD_FIELD(Ahdr::Config, v1.ratio.min, 64);
} // namespace rest
