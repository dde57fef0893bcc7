#include "tuning-client/source/image/yuv.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define TUNING_YUV_AVX2
#include <immintrin.h>
#endif

namespace
{
/// Pairs of U and V from one row to the next.
std::size_t pairsOfRow(uint8_t mode, uint16_t width) { return mode == 4 ? width / 2u : mode == 5 ? width / 4u : 0; }

uint8_t clamped(int value) { return uint8_t(value < 0 ? 0 : value > 255 ? 255 : value); }

void rowConvert(const uint8_t* pLuma, const uint8_t* pChroma, uint8_t* pRgb, std::size_t begin, std::size_t width)
{
    for (auto i = begin; i < width; ++i)
    {
        const int y = pLuma[i];
        const int u = pChroma[i / 2 * 2] - 128;
        const int v = pChroma[i / 2 * 2 + 1] - 128;
        pRgb[3 * i] = clamped(y + ((v * 360) >> 8));
        pRgb[3 * i + 1] = clamped(y - ((u * 88 + v * 184) >> 8));
        pRgb[3 * i + 2] = clamped(y + ((u * 455) >> 8));
    }
}

#ifdef TUNING_YUV_AVX2
// The compilers' own vectors of the loop above take half as long again: they find no good way to interleave three
// bytes.
#define TUNING_AVX2 __attribute__((target("avx2"), always_inline)) inline

/// Bytes of one colour into one of three blocks of 16 bytes; -1 leaves a place to the other two colours.
struct Spread
{
    alignas(16) int8_t places[3][16];
};

constexpr Spread spreadOf(int channel)
{
    Spread spread{};
    for (int i = 0; i < 48; ++i)
        spread.places[i / 16][i % 16] = int8_t(i % 3 == channel ? i / 3 : -1);
    return spread;
}

constexpr Spread spreads[] = {spreadOf(0), spreadOf(1), spreadOf(2)};

TUNING_AVX2 __m256i spread(__m256i bytes, const int8_t* pPlaces)
{
    const auto places = _mm_load_si128(reinterpret_cast<const __m128i*>(pPlaces));
    return _mm256_shuffle_epi8(bytes, _mm256_broadcastsi128_si256(places));
}

TUNING_AVX2 __m256i block(__m256i red, __m256i green, __m256i blue, int index)
{
    return _mm256_or_si256(
        _mm256_or_si256(spread(red, spreads[0].places[index]), spread(green, spreads[1].places[index])),
        spread(blue, spreads[2].places[index]));
}

/// The pixels at even and at odd places in their order, cut to 0 to 255.
TUNING_AVX2 __m256i joined(__m256i even, __m256i odd)
{
    const auto order = _mm_setr_epi8(0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15);
    return _mm256_shuffle_epi8(_mm256_packus_epi16(even, odd), _mm256_broadcastsi128_si256(order));
}

/// 32 pixels. In 16 bits, since v * 360 >> 8 is v + (v * 104 >> 8), u * 455 >> 8 is 2 * u + (u * -57 >> 8), and
/// (u * 88 + v * 184) >> 8 is v + ((u * 88 - v * 72) >> 8).
TUNING_AVX2 void pixelsConvert(const uint8_t* pLuma, const uint8_t* pChroma, uint8_t* pRgb)
{
    const auto low = _mm256_set1_epi16(0xff);
    const auto luma = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pLuma));
    const auto chroma =
        _mm256_xor_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(pChroma)), _mm256_set1_epi8(int8_t(0x80)));
    const auto u256 = _mm256_slli_epi16(chroma, 8);
    const auto v256 = _mm256_andnot_si256(low, chroma);
    const auto u = _mm256_srai_epi16(u256, 8);
    const auto v = _mm256_srai_epi16(v256, 8);
    const auto red = _mm256_add_epi16(v, _mm256_mulhi_epi16(v256, _mm256_set1_epi16(104)));
    const auto mixed =
        _mm256_sub_epi16(_mm256_mullo_epi16(u, _mm256_set1_epi16(88)), _mm256_mullo_epi16(v, _mm256_set1_epi16(72)));
    const auto green = _mm256_add_epi16(v, _mm256_srai_epi16(mixed, 8));
    const auto blue = _mm256_add_epi16(_mm256_add_epi16(u, u), _mm256_mulhi_epi16(u256, _mm256_set1_epi16(-57)));

    const auto even = _mm256_and_si256(luma, low);
    const auto odd = _mm256_srli_epi16(luma, 8);
    const auto r = joined(_mm256_add_epi16(even, red), _mm256_add_epi16(odd, red));
    const auto g = joined(_mm256_sub_epi16(even, green), _mm256_sub_epi16(odd, green));
    const auto b = joined(_mm256_add_epi16(even, blue), _mm256_add_epi16(odd, blue));

    // Each block holds a part of the first 16 pixels and one of the last 16.
    const auto first = block(r, g, b, 0);
    const auto second = block(r, g, b, 1);
    const auto third = block(r, g, b, 2);
    auto* pTarget = reinterpret_cast<__m256i*>(pRgb);
    _mm256_storeu_si256(pTarget, _mm256_permute2x128_si256(first, second, 0x20));
    _mm256_storeu_si256(pTarget + 1, _mm256_permute2x128_si256(third, first, 0x30));
    _mm256_storeu_si256(pTarget + 2, _mm256_permute2x128_si256(second, third, 0x31));
}

__attribute__((target("avx2"))) std::size_t piecesConvert(const uint8_t* pLuma, const uint8_t* pChroma, uint8_t* pRgb,
                                                          std::size_t width)
{
    std::size_t i = 0;
    for (; i + 32 <= width; i += 32)
        pixelsConvert(pLuma + i, pChroma + i, pRgb + 3 * i);
    return i;
}

/// Converts as many pixels of a row as go in wide pieces.
std::size_t rowStart(const uint8_t* pLuma, const uint8_t* pChroma, uint8_t* pRgb, std::size_t width)
{
    static const bool isWide = __builtin_cpu_supports("avx2");
    return isWide ? piecesConvert(pLuma, pChroma, pRgb, width) : 0;
}
#else
std::size_t rowStart(const uint8_t*, const uint8_t*, uint8_t*, std::size_t) { return 0; }
#endif
} // namespace

void convert_semiplanar_to_rgb24_buffer(uint8_t* yuv, uint8_t* rgb, uint8_t mode, uint16_t width, uint16_t height)
{
    const std::size_t step = 2 * pairsOfRow(mode, width);
    const uint8_t* pLuma = yuv;
    const uint8_t* pChroma = yuv + std::size_t(width) * height;
    for (uint16_t j = 0; j < height; ++j)
    {
        rowConvert(pLuma, pChroma, rgb, rowStart(pLuma, pChroma, rgb, width), width);
        pLuma += width;
        pChroma += step;
        rgb += std::size_t(3) * width;
    }
}

std::size_t semiplanarSizeGet(uint8_t mode, uint16_t width, uint16_t height)
{
    if (width == 0 || height == 0)
        return 0;
    // The last pixel of an odd width takes the pair behind its row.
    const auto chroma = 2 * (pairsOfRow(mode, width) * (height - 1u) + (width - 1u) / 2 + 1);
    return std::size_t(width) * height + chroma;
}
