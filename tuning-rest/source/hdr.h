#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// How exposures are stitched, as the board's driver numbers it.
enum OptrixIspStitchingCombinationMode_e : uint32_t
{
    OPTRIX_ISP_STITCHING_COMBINATION_MODE_INVALID = 0,
    OPTRIX_ISP_STITCHING_LINEAR_COMBINE = 1,
    OPTRIX_ISP_STITCHING_NONLINEAR_COMBINE = 2,
    OPTRIX_ISP_STITCHING_LINEAR_NONLINEAR_COMBINE = 3,
    OPTRIX_ISP_STITCHING_COMBINATION_MODE_MAX = 4
};

/// High dynamic range: stitching of several exposures.
class Hdr : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V1_2 = 1,
        V2 = 2,
        V2_LITE = 3,
        VMax = 4
    };

    /// Settings. All 376 bytes travel in every generation.
    union Config
    {
        struct V1
        {
            float exposureRatio;
            int32_t extensionBit;
        };

        struct V1_2
        {
            enum Mode : uint32_t
            {
                LongShort = 0,
                LongShortVeryShort = 1,
                Sum = 2
            };

            /// The name is the system's own.
            struct Parampeter
            {
                struct Trans
                {
                    double begin;
                    double end;
                };

                float exposureRatio;
                int32_t extensionBit;
                Trans trans;
            };

            Mode mode;
            uint8_t padding[4];
            Parampeter parameters[2]; ///< long and short frames; long, short and very short frames
        };

        struct V2
        {
            struct Dpf
            {
                Flag dpf_enable;
                uint8_t padding[3];
                float gain;
                float gradient;
                float offset;
                float min;
                float div;
                float sigma_g;
                float sigma_rb;
                uint32_t noise_curve[17];
            };

            struct Deghost
            {
                Flag motion_enable[2];
                uint8_t padding[2];
                uint32_t motion_weight[2];
                uint32_t motion_weight_short;
                uint32_t motion_sat_threshold;
                uint32_t motion_weight_update_threshold;
                uint32_t motion_lower_threshold_ls[4];
                uint32_t motion_upper_threshold_ls[4];
                uint32_t motion_lower_threshold_lsvs[4];
                uint32_t motion_upper_threshold_lsvs[4];
                uint32_t dark_lower_threshold_ls[4];
                uint32_t dark_upper_threshold_ls[4];
                uint32_t dark_lower_threshold_lsvs[4];
                uint32_t dark_upper_threshold_lsvs[4];
            };

            uint8_t bypass_select;
            uint8_t padding[3];
            uint32_t stitching_mode; ///< `OptrixIspStitchingCombinationMode_e`
            uint8_t base_frame;
            uint8_t padding2[3];
            float ratio[2];
            float trans_range[4][2];
            float extend_bit[2];
            uint32_t color_weight[3];
            uint32_t bls_long[4];
            uint32_t bls_short[4];
            uint32_t bls_very_short[4];
            Dpf dpf;
            Deghost deghost;
        };

        struct V2_LITE
        {
            uint8_t bypass_select;
            uint8_t padding[3];
            uint32_t bls[4];
            Flag dgain_enable;
            uint8_t padding2[3];
            float dgain[4][4];
            uint32_t color_weight[3];
            uint32_t stitching_mode; ///< `OptrixIspStitchingCombinationMode_e`
            uint8_t base_frame;
            uint8_t padding3[3];
            float ratio[2];
            float trans_range[6][2];
            float extend_bit[2];
        };

        V1 v1;
        V1_2 v1_2;
        V2 v2;
        V2_LITE v2_lite;
    };

    union Status
    {
        struct V1_2
        {
            enum Mode : uint32_t
            {
                _2Dol = 0,
                _3Dol = 1
            };

            Mode mode;
        };

        V1_2 v1_2;
    };

    Hdr& configGet(Config& config, Generation generation);
    Hdr& configSet(const Config& config, Generation generation);
    Hdr& enableGet(bool& isEnable, Generation generation);
    Hdr& enableSet(bool isEnable, Generation generation);
    Hdr& reset(Generation generation);

    /// Leaves `status` as it is when the answer has none: boards need not tell it.
    Hdr& statusGet(Status& status, Generation generation);
};

RECORD_SIZE(Hdr::Config::V1, 8);
RECORD_SIZE(Hdr::Config::V1_2::Parampeter, 24);
RECORD_SIZE(Hdr::Config::V2, 372);
RECORD_SIZE(Hdr::Config::V2_LITE, 172);
RECORD_SIZE(Hdr::Config, 376);
RECORD_FIELD(Hdr::Config, v1.exposureRatio, 0);
RECORD_FIELD(Hdr::Config, v1.extensionBit, 4);
RECORD_FIELD(Hdr::Config, v1_2.mode, 0);
RECORD_FIELD(Hdr::Config, v1_2.parameters[0].exposureRatio, 8);
RECORD_FIELD(Hdr::Config, v1_2.parameters[0].extensionBit, 12);
RECORD_FIELD(Hdr::Config, v1_2.parameters[0].trans.begin, 16);
RECORD_FIELD(Hdr::Config, v1_2.parameters[0].trans.end, 24);
RECORD_FIELD(Hdr::Config, v1_2.parameters[1].exposureRatio, 32);
RECORD_FIELD(Hdr::Config, v1_2.parameters[1].extensionBit, 36);
RECORD_FIELD(Hdr::Config, v1_2.parameters[1].trans.begin, 40);
RECORD_FIELD(Hdr::Config, v1_2.parameters[1].trans.end, 48);
RECORD_FIELD(Hdr::Config, v2.bypass_select, 0);
RECORD_FIELD(Hdr::Config, v2.stitching_mode, 4);
RECORD_FIELD(Hdr::Config, v2.base_frame, 8);
RECORD_FIELD(Hdr::Config, v2.ratio, 12);
RECORD_FIELD(Hdr::Config, v2.trans_range, 20);
RECORD_FIELD(Hdr::Config, v2.extend_bit, 52);
RECORD_FIELD(Hdr::Config, v2.color_weight, 60);
RECORD_FIELD(Hdr::Config, v2.bls_long, 72);
RECORD_FIELD(Hdr::Config, v2.bls_short, 88);
RECORD_FIELD(Hdr::Config, v2.bls_very_short, 104);
RECORD_FIELD(Hdr::Config, v2.dpf.dpf_enable, 120);
RECORD_FIELD(Hdr::Config, v2.dpf.gain, 124);
RECORD_FIELD(Hdr::Config, v2.dpf.gradient, 128);
RECORD_FIELD(Hdr::Config, v2.dpf.offset, 132);
RECORD_FIELD(Hdr::Config, v2.dpf.min, 136);
RECORD_FIELD(Hdr::Config, v2.dpf.div, 140);
RECORD_FIELD(Hdr::Config, v2.dpf.sigma_g, 144);
RECORD_FIELD(Hdr::Config, v2.dpf.sigma_rb, 148);
RECORD_FIELD(Hdr::Config, v2.dpf.noise_curve, 152);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_enable, 220);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_weight, 224);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_weight_short, 232);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_sat_threshold, 236);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_weight_update_threshold, 240);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_lower_threshold_ls, 244);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_upper_threshold_ls, 260);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_lower_threshold_lsvs, 276);
RECORD_FIELD(Hdr::Config, v2.deghost.motion_upper_threshold_lsvs, 292);
RECORD_FIELD(Hdr::Config, v2.deghost.dark_lower_threshold_ls, 308);
RECORD_FIELD(Hdr::Config, v2.deghost.dark_upper_threshold_ls, 324);
RECORD_FIELD(Hdr::Config, v2.deghost.dark_lower_threshold_lsvs, 340);
RECORD_FIELD(Hdr::Config, v2.deghost.dark_upper_threshold_lsvs, 356);
RECORD_FIELD(Hdr::Config, v2_lite.bypass_select, 0);
RECORD_FIELD(Hdr::Config, v2_lite.bls, 4);
RECORD_FIELD(Hdr::Config, v2_lite.dgain_enable, 20);
RECORD_FIELD(Hdr::Config, v2_lite.dgain, 24);
RECORD_FIELD(Hdr::Config, v2_lite.color_weight, 88);
RECORD_FIELD(Hdr::Config, v2_lite.stitching_mode, 100);
RECORD_FIELD(Hdr::Config, v2_lite.base_frame, 104);
RECORD_FIELD(Hdr::Config, v2_lite.ratio, 108);
RECORD_FIELD(Hdr::Config, v2_lite.trans_range, 116);
RECORD_FIELD(Hdr::Config, v2_lite.extend_bit, 164);

RECORD_SIZE(Hdr::Status, 4);
RECORD_FIELD(Hdr::Status, v1_2.mode, 0);
} // namespace rest
