#pragma once

#include <QRect>

#include <cstdint>
#include <vector>

/// Where the samples of a picture lie in memory, row by row.
struct SampleGrid
{
    enum Kind
    {
        Bytes,
        WordsOfFile, ///< the higher byte first
        Words        ///< as this machine has them
    };

    const unsigned char* pFirst;
    qint64 rowBytes;
    int pixelSamples; ///< from one pixel to the next; there may be more than channels
    int channels;
    Kind kind;
};

/// What the samples of one channel are like.
struct ChannelStatistics
{
    std::vector<uint32_t> counts; ///< of each value
    qint64 count = 0;             ///< of all; with none, the numbers below mean nothing
    int minimum = 0;
    int maximum = 0;
    double mean = 0;
    double deviation = 0; ///< of these samples themselves: their number is the divisor
};

/// Counts the samples of each channel in parts of a picture, one after the other. As a mosaic, a picture of one channel
/// has four, one for each place in a cell of two rows of two pixels; cells begin at even pixels of the picture, not of
/// the part.
class SampleCounter
{
public:
    explicit SampleCounter(bool isMosaic_) : isMosaic(isMosaic_) {}

    /// All grids have the same channels and kind.
    void add(const SampleGrid& grid, const QRect& part);

    /// The statistics of all that was added.
    std::vector<ChannelStatistics> result() &&;

private:
    bool isMosaic;
    std::vector<ChannelStatistics> channels;
};
