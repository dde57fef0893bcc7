#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Auto exposure.
class Ae : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V2 = 1,
        VMax = 2
    };

    /// Settings. Both generations share `v1`; all 36 bytes travel in both.
    union Config
    {
        struct V1
        {
            enum Mode : uint32_t
            {
                ModeDisable = 0,
                ModeFix = 1,
                ModeAdaptive = 2,
                ModeSum = 3
            };

            struct Ecm
            {
                enum FlickerPeriod : uint32_t
                {
                    FlickerPeriodOff = 0,
                    FlickerPeriod100Hz = 1,
                    FlickerPeriod120Hz = 2
                };

                FlickerPeriod flickerPeriod;
                Flag isAfps;
                uint8_t padding[3];
            };

            Flag isBypass;
            uint8_t padding[3];
            Mode mode;
            float dampingOver;
            float dampingUnder;
            float setPoint;
            float tolerance;
            Ecm ecm;
        };

        struct V2
        {
            V1 v1;
            int32_t dummy;
        };

        V1 v1;
        V2 v2;
    };

    /// What the algorithm sees. All 1536 bytes travel in both generations.
    struct Status
    {
        union Histogram
        {
            struct V1
            {
                uint32_t _16[16];
            };

            struct V2
            {
                struct Hdr
                {
                    uint8_t aeData[75];
                    uint8_t padding;
                    uint32_t green[16];
                    uint32_t blue[16];
                    uint32_t red[16];
                };

                uint32_t _16[16];
                uint32_t _64[32];
                uint32_t _256[256];
                Hdr hdr;
            };

            V1 v1;
            V2 v2;
        };

        Histogram histogram;
        uint8_t luminance[25];    ///< 5 by 5 scene grid, in reading order
        uint8_t objectRegion[25]; ///< 5 by 5, not 0 where the object is
        uint8_t padding[2];
    };

    Ae& configGet(Config& config, Generation generation);
    Ae& configSet(const Config& config, Generation generation);
    Ae& enableGet(bool& isEnable, Generation generation);
    Ae& enableSet(bool isEnable, Generation generation);
    Ae& reset(Generation generation);
    Ae& statusGet(Status& status, Generation generation);
};

RECORD_SIZE(Ae::Config::V1, 32);
RECORD_SIZE(Ae::Config, 36);
RECORD_FIELD(Ae::Config, v1.isBypass, 0);
RECORD_FIELD(Ae::Config, v1.mode, 4);
RECORD_FIELD(Ae::Config, v1.dampingOver, 8);
RECORD_FIELD(Ae::Config, v1.dampingUnder, 12);
RECORD_FIELD(Ae::Config, v1.setPoint, 16);
RECORD_FIELD(Ae::Config, v1.tolerance, 20);
RECORD_FIELD(Ae::Config, v1.ecm.flickerPeriod, 24);
RECORD_FIELD(Ae::Config, v1.ecm.isAfps, 28);
RECORD_FIELD(Ae::Config, v2.v1, 0);
RECORD_FIELD(Ae::Config, v2.dummy, 32);

RECORD_SIZE(Ae::Status, 1536);
RECORD_FIELD(Ae::Status, histogram.v1._16, 0);
RECORD_FIELD(Ae::Status, histogram.v2._16, 0);
RECORD_FIELD(Ae::Status, histogram.v2._64, 64);
RECORD_FIELD(Ae::Status, histogram.v2._256, 192);
RECORD_FIELD(Ae::Status, histogram.v2.hdr.aeData, 1216);
RECORD_FIELD(Ae::Status, histogram.v2.hdr.green, 1292);
RECORD_FIELD(Ae::Status, histogram.v2.hdr.blue, 1356);
RECORD_FIELD(Ae::Status, histogram.v2.hdr.red, 1420);
RECORD_FIELD(Ae::Status, luminance, 1484);
RECORD_FIELD(Ae::Status, objectRegion, 1509);
} // namespace rest
