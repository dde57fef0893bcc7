// The conversion of a YUV capture of 3840 by 2160, by turns with the two plain loops and with the fastest form found:
// the same vectors written past the caches.

#include "tuning-client/source/image/yuv.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <random>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace
{
constexpr uint16_t width = 3840;
constexpr uint16_t height = 2160;
constexpr std::size_t pixels = std::size_t(width) * height;

uint8_t cut(int value) { return uint8_t(value < 0 ? 0 : value > 255 ? 255 : value); }

void plain(const uint8_t* pYuv, uint8_t* pRgb)
{
    const uint8_t* pChroma = pYuv + pixels;
    const unsigned offset = width / 2;
    for (unsigned j = 0; j < height; ++j)
    {
        for (unsigned i = 0; i < width; ++i)
        {
            const unsigned c = 2 * (offset * j + i / 2);
            const int y = *pYuv++;
            const int u = pChroma[c];
            const int v = pChroma[c + 1];
            *pRgb++ = cut(y + (((v - 128) * 360) >> 8));
            *pRgb++ = cut(y - (((u - 128) * 88 + (v - 128) * 184) >> 8));
            *pRgb++ = cut(y + (((u - 128) * 455) >> 8));
        }
    }
}

#ifdef __x86_64__
__attribute__((target("avx2"), always_inline)) inline __m256i both(const int8_t* pBytes)
{
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(pBytes)));
}

/// The picture in one run, `pRgb` at a multiple of 32.
__attribute__((target("avx2"))) void streamed(const uint8_t* pYuv, uint8_t* pRgb)
{
    int8_t places[9][16];
    for (int i = 0; i < 48; ++i)
        for (int channel = 0; channel < 3; ++channel)
            places[3 * channel + i / 16][i % 16] = int8_t(i % 3 == channel ? i / 3 : -1);
    __m256i p[9];
    for (int i = 0; i < 9; ++i)
        p[i] = both(places[i]);
    const int8_t zip[16] = {0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15};
    const auto order = both(zip);
    const auto low = _mm256_set1_epi16(0xff);
    const auto sign = _mm256_set1_epi8(int8_t(0x80));
    for (std::size_t i = 0; i < pixels; i += 32)
    {
        const auto luma = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pYuv + i));
        const auto chroma =
            _mm256_xor_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(pYuv + pixels + i)), sign);
        const auto u256 = _mm256_slli_epi16(chroma, 8);
        const auto v256 = _mm256_andnot_si256(low, chroma);
        const auto u = _mm256_srai_epi16(u256, 8);
        const auto v = _mm256_srai_epi16(v256, 8);
        const auto dr = _mm256_add_epi16(v, _mm256_mulhi_epi16(v256, _mm256_set1_epi16(104)));
        const auto uv = _mm256_sub_epi16(_mm256_mullo_epi16(u, _mm256_set1_epi16(88)),
                                         _mm256_mullo_epi16(v, _mm256_set1_epi16(72)));
        const auto dg = _mm256_add_epi16(v, _mm256_srai_epi16(uv, 8));
        const auto db = _mm256_add_epi16(_mm256_add_epi16(u, u), _mm256_mulhi_epi16(u256, _mm256_set1_epi16(-57)));
        const auto even = _mm256_and_si256(luma, low);
        const auto odd = _mm256_srli_epi16(luma, 8);
        const auto r =
            _mm256_shuffle_epi8(_mm256_packus_epi16(_mm256_add_epi16(even, dr), _mm256_add_epi16(odd, dr)), order);
        const auto g =
            _mm256_shuffle_epi8(_mm256_packus_epi16(_mm256_sub_epi16(even, dg), _mm256_sub_epi16(odd, dg)), order);
        const auto b =
            _mm256_shuffle_epi8(_mm256_packus_epi16(_mm256_add_epi16(even, db), _mm256_add_epi16(odd, db)), order);
        __m256i block[3];
        for (int k = 0; k < 3; ++k)
            block[k] = _mm256_or_si256(_mm256_or_si256(_mm256_shuffle_epi8(r, p[k]), _mm256_shuffle_epi8(g, p[3 + k])),
                                       _mm256_shuffle_epi8(b, p[6 + k]));
        auto* pTarget = reinterpret_cast<__m256i*>(pRgb + 3 * i);
        _mm256_stream_si256(pTarget, _mm256_permute2x128_si256(block[0], block[1], 0x20));
        _mm256_stream_si256(pTarget + 1, _mm256_permute2x128_si256(block[2], block[0], 0x30));
        _mm256_stream_si256(pTarget + 2, _mm256_permute2x128_si256(block[1], block[2], 0x31));
    }
    _mm_sfence();
}

bool isFastestThere() { return __builtin_cpu_supports("avx2"); }
#else
void streamed(const uint8_t*, uint8_t*) {}

bool isFastestThere() { return false; }
#endif

struct Free
{
    void operator()(uint8_t* p) const { std::free(p); }
};

using Buffer = std::unique_ptr<uint8_t, Free>;

Buffer bufferMake(std::size_t size) { return Buffer(static_cast<uint8_t*>(std::aligned_alloc(4096, size))); }

/// The times are the best of the run: what the machine's other work adds is left out. The limits are a `to_fastest` of
/// 1.3 and a `plain_to_ours` of 5.
void yuv(benchmark::State& state)
{
    const auto yuvBuffer = bufferMake(2 * pixels);
    const auto expected = bufferMake(3 * pixels);
    const auto result = bufferMake(3 * pixels);
    std::mt19937 random(1);
    std::generate_n(yuvBuffer.get(), 2 * pixels, [&] { return uint8_t(random()); });
    plain(yuvBuffer.get(), expected.get());

    const auto timed = [&](double& best, const auto& convert)
    {
        const auto start = std::chrono::steady_clock::now();
        convert();
        const auto seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        benchmark::DoNotOptimize(result.get());
        benchmark::ClobberMemory();
        best = std::min(best, seconds);
        return seconds;
    };
    double ours = 1;
    double loops = 1;
    double fastest = 1;
    for (auto _ : state)
    {
        state.SetIterationTime(
            timed(ours, [&] { convert_semiplanar_to_rgb24_buffer(yuvBuffer.get(), result.get(), 4, width, height); }));
        if (std::memcmp(result.get(), expected.get(), 3 * pixels) != 0)
            state.SkipWithError("our result differs from that of the plain loops");
        timed(loops, [&] { plain(yuvBuffer.get(), result.get()); });
        if (!isFastestThere())
            continue;
        timed(fastest, [&] { streamed(yuvBuffer.get(), result.get()); });
        if (std::memcmp(result.get(), expected.get(), 3 * pixels) != 0)
            state.SkipWithError("the fastest form's result differs from that of the plain loops");
    }
    state.counters["ours_ms"] = ours * 1e3;
    state.counters["plain_ms"] = loops * 1e3;
    state.counters["plain_to_ours"] = loops / ours;
    if (isFastestThere())
    {
        state.counters["fastest_ms"] = fastest * 1e3;
        state.counters["to_fastest"] = ours / fastest;
    }
}
} // namespace

BENCHMARK(yuv)->Iterations(50)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
