#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Gamma correction.
class Gc : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V2 = 1,
        VMax = 2
    };

    /// Settings. All 2376 bytes travel in both generations.
    union Config
    {
        struct CurveAbstract
        {
            enum XScale : uint32_t
            {
                Logarithmic = 0,
                Equidistant = 1
            };

            double gamma; ///< -1 for the two curves that are tables
            XScale xScale;
            uint8_t padding[4];
        };

        struct Curve : CurveAbstract
        {
            enum Mode : uint32_t
            {
                Standard = 0,
                G45_G8 = 1,
                Exp13_G45 = 2,
                User = 3
            };

            Mode mode;
            uint32_t y[17]; ///< 0 to 1023
        };

        struct Curve2 : CurveAbstract
        {
            enum Mode : uint32_t
            {
                Standard = 0,
                User = 1
            };

            Mode mode;
            uint32_t pX[64];
            uint32_t x[64];
            uint32_t y[64]; ///< 0 to 1024
            uint8_t padding2[4];
        };

        struct V1
        {
            Curve curve;
        };

        struct V2
        {
            enum Channel
            {
                ChannelBlue = 0,
                ChannelGreen = 1,
                ChannelRed = 2,
                ChannelSum = 3
            };

            Curve2 curves[ChannelSum];
        };

        V1 v1;
        V2 v2;
    };

    Gc& configGet(Config& config, Generation generation);
    Gc& configSet(const Config& config, Generation generation);
    Gc& enableGet(bool& isEnable, Generation generation);
    Gc& enableSet(bool isEnable, Generation generation);
};

RECORD_SIZE(Gc::Config::Curve, 88);
RECORD_SIZE(Gc::Config::Curve2, 792);
RECORD_SIZE(Gc::Config, 2376);
RECORD_FIELD(Gc::Config, v1.curve.gamma, 0);
RECORD_FIELD(Gc::Config, v1.curve.xScale, 8);
RECORD_FIELD(Gc::Config, v1.curve.mode, 16);
RECORD_FIELD(Gc::Config, v1.curve.y, 20);
RECORD_FIELD(Gc::Config, v2.curves[0].gamma, 0);
RECORD_FIELD(Gc::Config, v2.curves[0].xScale, 8);
RECORD_FIELD(Gc::Config, v2.curves[0].mode, 16);
RECORD_FIELD(Gc::Config, v2.curves[0].pX, 20);
RECORD_FIELD(Gc::Config, v2.curves[0].x, 276);
RECORD_FIELD(Gc::Config, v2.curves[0].y, 532);
RECORD_FIELD(Gc::Config, v2.curves[1].gamma, 792);
RECORD_FIELD(Gc::Config, v2.curves[1].xScale, 800);
RECORD_FIELD(Gc::Config, v2.curves[1].mode, 808);
RECORD_FIELD(Gc::Config, v2.curves[1].pX, 812);
RECORD_FIELD(Gc::Config, v2.curves[1].x, 1068);
RECORD_FIELD(Gc::Config, v2.curves[1].y, 1324);
RECORD_FIELD(Gc::Config, v2.curves[2].gamma, 1584);
RECORD_FIELD(Gc::Config, v2.curves[2].xScale, 1592);
RECORD_FIELD(Gc::Config, v2.curves[2].mode, 1600);
RECORD_FIELD(Gc::Config, v2.curves[2].pX, 1604);
RECORD_FIELD(Gc::Config, v2.curves[2].x, 1860);
RECORD_FIELD(Gc::Config, v2.curves[2].y, 2116);
} // namespace rest
