#pragma once

#include "tuning-image/source/samples.h"

#include <cstring>

/// The sample at a place of a row, counted in samples.
template <SampleGrid::Kind kind>
unsigned sampleAt(const unsigned char* pSamples, qint64 index)
{
    if constexpr (kind == SampleGrid::Bytes)
        return pSamples[index];
    const auto* pWord = pSamples + 2 * index;
    if constexpr (kind == SampleGrid::WordsOfFile)
        return unsigned(pWord[0] << 8 | pWord[1]);
    uint16_t word;
    std::memcpy(&word, pWord, sizeof word);
    return word;
}
