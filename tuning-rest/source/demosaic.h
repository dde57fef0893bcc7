#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Demosaicing: from the sensor's pattern to full colour pixels.
class DeMosaic : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V2 = 1,
        VMax = 2
    };

    /// Settings. All 124 bytes travel in both generations.
    union Config
    {
        struct V1
        {
            uint8_t threshold;
            Flag isBypass;
        };

        struct V2 : V1
        {
            /// The name is the system's own.
            struct InterplationDirectionThreshold
            {
                uint16_t min;
                uint16_t max;
            };

            struct Demoire
            {
                struct Threshold
                {
                    uint16_t r2;
                    uint16_t r1;
                    uint8_t t2Shift;
                    uint8_t t1;
                };

                struct Edge
                {
                    uint16_t r2;
                    uint16_t r1;
                    uint8_t t2Shift;
                    uint8_t padding;
                    uint16_t t1;
                };

                Flag isEnable;
                uint8_t areaThreshold;
                uint8_t saturationShrink;
                uint8_t padding;
                Threshold threshold;
                Edge edge;
            };

            struct Sharpen
            {
                struct BlackWhite
                {
                    uint16_t black;
                    uint16_t white;
                };

                struct Threshold
                {
                    uint16_t t4Shift;
                    uint16_t t3;
                    uint8_t t2Shift;
                    uint8_t padding;
                    uint16_t t1;
                };

                struct Ratio
                {
                    uint16_t r3;
                    uint16_t r2;
                    uint16_t r1;
                };

                Flag isEnable;
                uint8_t padding;
                BlackWhite factor;
                BlackWhite clip;
                Threshold threshold;
                Ratio ratio;
            };

            struct SharpenLine
            {
                struct Ratio
                {
                    uint16_t r2;
                    uint16_t r1;
                };

                Flag isEnable;
                uint8_t shift1;
                uint8_t shift2;
                uint8_t padding;
                uint16_t t1;
                uint16_t strength;
                Ratio ratio;
            };

            struct SharpenFilter
            {
                uint8_t _00;
                uint8_t _01;
                uint8_t _02;
                uint8_t _10;
                uint8_t _11;
                uint8_t _12;
                uint8_t _20;
                uint8_t _21;
                uint8_t _22;
            };

            struct DePurple
            {
                enum CbCrMode : uint32_t
                {
                    Off = 0,
                    Red = 1,
                    Blue = 2,
                    RedBlue = 3
                };

                Flag isEnable;
                uint8_t padding[3];
                CbCrMode cbCrMode;
                uint8_t saturationShrink;
                uint8_t threshold;
                uint8_t padding2[2];
            };

            struct Skin
            {
                struct Threshold
                {
                    uint16_t max2047;
                    uint16_t min2047;
                };

                Flag isEnable;
                uint8_t padding;
                Threshold cbThreshold;
                Threshold crThreshold;
                Threshold yThreshold;
            };

            struct Cac
            {
                struct Count
                {
                    uint16_t v;
                    uint16_t h;
                };

                struct RedBlue
                {
                    uint16_t red;
                    uint16_t blue;
                };

                struct Factor
                {
                    uint8_t s;
                    uint8_t f;
                };

                Flag isEnable;
                uint8_t padding;
                Count count;
                RedBlue a;
                RedBlue b;
                RedBlue c;
                Factor x;
                Factor y;
            };

            InterplationDirectionThreshold interplationDirectionThreshold;
            Demoire deMoire;
            Sharpen sharpen;
            SharpenLine sharpenLine;
            SharpenFilter sharpenFilter;
            uint8_t padding[3];
            DePurple dePurple;
            Skin skin;
            Cac cac;
            uint8_t denoiseStrength;
            uint8_t sharpenSize;
            uint8_t padding2[2];
        };

        V1 v1;
        V2 v2;
    };

    DeMosaic& configGet(Config& config, Generation generation);
    DeMosaic& configSet(const Config& config, Generation generation);
    DeMosaic& enableGet(bool& isEnable, Generation generation);
    DeMosaic& enableSet(bool isEnable, Generation generation);
    DeMosaic& reset(Generation generation);
};

RECORD_SIZE(DeMosaic::Config, 124);
RECORD_FIELD(DeMosaic::Config, v1.threshold, 0);
RECORD_FIELD(DeMosaic::Config, v1.isBypass, 1);
RECORD_FIELD(DeMosaic::Config, v2.threshold, 0);
RECORD_FIELD(DeMosaic::Config, v2.isBypass, 1);
RECORD_FIELD(DeMosaic::Config, v2.interplationDirectionThreshold.min, 2);
RECORD_FIELD(DeMosaic::Config, v2.interplationDirectionThreshold.max, 4);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.isEnable, 6);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.areaThreshold, 7);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.saturationShrink, 8);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.threshold.r2, 10);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.threshold.r1, 12);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.threshold.t2Shift, 14);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.threshold.t1, 15);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.edge.r2, 16);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.edge.r1, 18);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.edge.t2Shift, 20);
RECORD_FIELD(DeMosaic::Config, v2.deMoire.edge.t1, 22);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.isEnable, 24);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.factor.black, 26);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.factor.white, 28);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.clip.black, 30);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.clip.white, 32);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.threshold.t4Shift, 34);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.threshold.t3, 36);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.threshold.t2Shift, 38);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.threshold.t1, 40);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.ratio.r3, 42);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.ratio.r2, 44);
RECORD_FIELD(DeMosaic::Config, v2.sharpen.ratio.r1, 46);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.isEnable, 48);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.shift1, 49);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.shift2, 50);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.t1, 52);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.strength, 54);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.ratio.r2, 56);
RECORD_FIELD(DeMosaic::Config, v2.sharpenLine.ratio.r1, 58);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._00, 60);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._01, 61);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._02, 62);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._10, 63);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._11, 64);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._12, 65);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._20, 66);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._21, 67);
RECORD_FIELD(DeMosaic::Config, v2.sharpenFilter._22, 68);
RECORD_FIELD(DeMosaic::Config, v2.dePurple.isEnable, 72);
RECORD_FIELD(DeMosaic::Config, v2.dePurple.cbCrMode, 76);
RECORD_FIELD(DeMosaic::Config, v2.dePurple.saturationShrink, 80);
RECORD_FIELD(DeMosaic::Config, v2.dePurple.threshold, 81);
RECORD_FIELD(DeMosaic::Config, v2.skin.isEnable, 84);
RECORD_FIELD(DeMosaic::Config, v2.skin.cbThreshold.max2047, 86);
RECORD_FIELD(DeMosaic::Config, v2.skin.cbThreshold.min2047, 88);
RECORD_FIELD(DeMosaic::Config, v2.skin.crThreshold.max2047, 90);
RECORD_FIELD(DeMosaic::Config, v2.skin.crThreshold.min2047, 92);
RECORD_FIELD(DeMosaic::Config, v2.skin.yThreshold.max2047, 94);
RECORD_FIELD(DeMosaic::Config, v2.skin.yThreshold.min2047, 96);
RECORD_FIELD(DeMosaic::Config, v2.cac.isEnable, 98);
RECORD_FIELD(DeMosaic::Config, v2.cac.count.v, 100);
RECORD_FIELD(DeMosaic::Config, v2.cac.count.h, 102);
RECORD_FIELD(DeMosaic::Config, v2.cac.a.red, 104);
RECORD_FIELD(DeMosaic::Config, v2.cac.a.blue, 106);
RECORD_FIELD(DeMosaic::Config, v2.cac.b.red, 108);
RECORD_FIELD(DeMosaic::Config, v2.cac.b.blue, 110);
RECORD_FIELD(DeMosaic::Config, v2.cac.c.red, 112);
RECORD_FIELD(DeMosaic::Config, v2.cac.c.blue, 114);
RECORD_FIELD(DeMosaic::Config, v2.cac.x.s, 116);
RECORD_FIELD(DeMosaic::Config, v2.cac.x.f, 117);
RECORD_FIELD(DeMosaic::Config, v2.cac.y.s, 118);
RECORD_FIELD(DeMosaic::Config, v2.cac.y.f, 119);
RECORD_FIELD(DeMosaic::Config, v2.denoiseStrength, 120);
RECORD_FIELD(DeMosaic::Config, v2.sharpenSize, 121);
} // namespace rest
