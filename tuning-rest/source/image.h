#pragma once

#include "tuning-rest/source/abstract.h"

namespace rest
{
/// The kind of a picture buffer's data, as the board's driver numbers it.
enum PicBufType_t : uint32_t
{
    PIC_BUF_TYPE_INVALID = 0,
    PIC_BUF_TYPE_DATA = 8,
    PIC_BUF_TYPE_RAW8 = 16,
    PIC_BUF_TYPE_RAW16 = 17,
    PIC_BUF_TYPE_RAW10 = 18,
    PIC_BUF_TYPE_RAW12 = 19,
    PIC_BUF_TYPE_RAW14 = 20,
    PIC_BUF_TYPE_JPEG = 32,
    PIC_BUF_TYPE_YCbCr444 = 48,
    PIC_BUF_TYPE_YCbCr422 = 49,
    PIC_BUF_TYPE_YCbCr420 = 50,
    PIC_BUF_TYPE_YCbCr400 = 51,
    PIC_BUF_TYPE_YCbCr32 = 63,
    PIC_BUF_TYPE_RGB888 = 64,
    PIC_BUF_TYPE_RGB666 = 65,
    PIC_BUF_TYPE_RGB565 = 66,
    PIC_BUF_TYPE_RGB32 = 79,
    PIC_BUF_TYPE_META = 80
};

/// How a picture buffer's data lie in memory.
enum PicBufLayout_t : uint32_t
{
    PIC_BUF_LAYOUT_INVALID = 0,
    PIC_BUF_LAYOUT_COMBINED = 16,
    PIC_BUF_LAYOUT_BAYER_RGRGGBGB = 17,
    PIC_BUF_LAYOUT_BAYER_GRGRBGBG = 18,
    PIC_BUF_LAYOUT_BAYER_GBGBRGRG = 19,
    PIC_BUF_LAYOUT_BAYER_BGBGGRGR = 20,
    PIC_BUF_LAYOUT_SEMIPLANAR = 32,
    PIC_BUF_LAYOUT_PLANAR = 48,
    PIC_BUF_LAYOUT_META_DATA = 64
};

struct PicBufPlane_t
{
    BoardPointer pData;
    uint32_t BaseAddress;
    uint32_t PicWidthPixel;
    uint32_t PicWidthBytes;
    uint32_t PicHeightPixel;
    uint8_t PixelDataAlignMode;
    uint8_t padding[7];
};

struct BufIdentity
{
    uint32_t buff_address;
    uint32_t buff_size;
    int32_t width;
    int32_t height;
    int32_t format;
    uint8_t padding[4];
    uint64_t ipl_address;
};

/// The board's description of a picture buffer.
struct PicBufMetaData_s
{
    union Data_u
    {
        struct Block
        {
            BoardPointer pData;
            uint32_t BaseAddress;
            uint32_t DataSize;
        };

        struct Jpeg
        {
            BoardPointer pHeader;
            uint32_t HeaderSize;
            uint8_t padding[4];
            BoardPointer pData;
            uint32_t BaseAddress;
            uint32_t DataSize;
        };

        union YCbCr_u
        {
            struct Semiplanar
            {
                PicBufPlane_t Y;
                PicBufPlane_t CbCr;
                uint8_t bitWidth;
                uint8_t padding[7];
            };

            struct Planar
            {
                PicBufPlane_t Y;
                PicBufPlane_t Cb;
                PicBufPlane_t Cr;
            };

            PicBufPlane_t combined;
            Semiplanar semiplanar;
            Planar planar;
        };

        union RGB_u
        {
            struct Planar
            {
                PicBufPlane_t R;
                PicBufPlane_t G;
                PicBufPlane_t B;
            };

            PicBufPlane_t combined;
            Planar planar;
        };

        Block data;
        Block meta;
        PicBufPlane_t raw;
        Jpeg jpeg;
        YCbCr_u YCbCr;
        RGB_u RGB;
    };

    PicBufType_t Type;
    PicBufLayout_t Layout;
    uint32_t Align;
    uint8_t padding[4];
    int64_t TimeStampUs;
    BoardPointer pNext3D;
    BufIdentity buf_id;
    Data_u Data;
};

using PicBufMetaData_t = PicBufMetaData_s;

RECORD_SIZE(PicBufPlane_t, 32);
RECORD_FIELD(PicBufPlane_t, pData, 0);
RECORD_FIELD(PicBufPlane_t, BaseAddress, 8);
RECORD_FIELD(PicBufPlane_t, PicWidthPixel, 12);
RECORD_FIELD(PicBufPlane_t, PicWidthBytes, 16);
RECORD_FIELD(PicBufPlane_t, PicHeightPixel, 20);
RECORD_FIELD(PicBufPlane_t, PixelDataAlignMode, 24);

RECORD_SIZE(BufIdentity, 32);
RECORD_FIELD(BufIdentity, buff_address, 0);
RECORD_FIELD(BufIdentity, buff_size, 4);
RECORD_FIELD(BufIdentity, width, 8);
RECORD_FIELD(BufIdentity, height, 12);
RECORD_FIELD(BufIdentity, format, 16);
RECORD_FIELD(BufIdentity, ipl_address, 24);

RECORD_SIZE(PicBufMetaData_s, 160);
RECORD_FIELD(PicBufMetaData_s, Type, 0);
RECORD_FIELD(PicBufMetaData_s, Layout, 4);
RECORD_FIELD(PicBufMetaData_s, Align, 8);
RECORD_FIELD(PicBufMetaData_s, TimeStampUs, 16);
RECORD_FIELD(PicBufMetaData_s, pNext3D, 24);
RECORD_FIELD(PicBufMetaData_s, buf_id, 32);
RECORD_FIELD(PicBufMetaData_s, Data, 64);

RECORD_SIZE(PicBufMetaData_s::Data_u, 96);
RECORD_FIELD(PicBufMetaData_s::Data_u, data.pData, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, data.BaseAddress, 8);
RECORD_FIELD(PicBufMetaData_s::Data_u, data.DataSize, 12);
RECORD_FIELD(PicBufMetaData_s::Data_u, meta.pData, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, meta.BaseAddress, 8);
RECORD_FIELD(PicBufMetaData_s::Data_u, meta.DataSize, 12);
RECORD_FIELD(PicBufMetaData_s::Data_u, raw, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, jpeg.pHeader, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, jpeg.HeaderSize, 8);
RECORD_FIELD(PicBufMetaData_s::Data_u, jpeg.pData, 16);
RECORD_FIELD(PicBufMetaData_s::Data_u, jpeg.BaseAddress, 24);
RECORD_FIELD(PicBufMetaData_s::Data_u, jpeg.DataSize, 28);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.combined, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.semiplanar.Y, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.semiplanar.CbCr, 32);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.semiplanar.bitWidth, 64);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.planar.Y, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.planar.Cb, 32);
RECORD_FIELD(PicBufMetaData_s::Data_u, YCbCr.planar.Cr, 64);
RECORD_FIELD(PicBufMetaData_s::Data_u, RGB.combined, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, RGB.planar.R, 0);
RECORD_FIELD(PicBufMetaData_s::Data_u, RGB.planar.G, 32);
RECORD_FIELD(PicBufMetaData_s::Data_u, RGB.planar.B, 64);

/// Pictures stored on the board, as the pipeline's input.
class Image : public Abstract
{
public:
    struct Config
    {
        PicBufMetaData_t metaData = recordZero<PicBufMetaData_t>(); ///< filled from the answer
        bool isLsb = false;                                         ///< samples sit in the low bits
    };

    Image& load(const std::string& filename, Config& config);
};
} // namespace rest
