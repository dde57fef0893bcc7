#include "tuning-image/source/samples.h"

#include "tuning-image/source/sample-at.h"

#include <cmath>
#include <utility>

namespace
{
using Tables = std::vector<ChannelStatistics>;

/// Counts the samples of a part of a row, `step` apart.
template <SampleGrid::Kind kind>
void rowCount(const unsigned char* pRow, qint64 begin, qint64 end, int step, ChannelStatistics& channel)
{
    auto* pCounts = channel.counts.data();
    for (auto i = begin; i < end; i += step)
        ++pCounts[sampleAt<kind>(pRow, i)];
}

/// Everything else follows from the counts, which take one pass over the picture.
template <SampleGrid::Kind kind>
void partCount(const SampleGrid& grid, const QRect& part, bool isMosaic, Tables& tables)
{
    const auto begin = qint64(part.left()) * grid.pixelSamples;
    const auto end = begin + qint64(part.width()) * grid.pixelSamples;
    const int places = isMosaic ? 2 : grid.channels;
    const int step = isMosaic ? 2 * grid.pixelSamples : grid.pixelSamples;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int i = 0; i < places; ++i)
        {
            const int iTable = isMosaic ? y % 2 * 2 + (part.left() + i) % 2 : i;
            const auto first = begin + (isMosaic ? i * grid.pixelSamples : i);
            rowCount<kind>(grid.pFirst + y * grid.rowBytes, first, end, step, tables[std::size_t(iTable)]);
        }
}

void countsJudge(ChannelStatistics& channel)
{
    double sum = 0; // whole numbers, below 2^53
    for (std::size_t value = 0; value < channel.counts.size(); ++value)
    {
        const auto count = channel.counts[value];
        if (count == 0)
            continue;
        if (channel.count == 0)
            channel.minimum = int(value);
        channel.maximum = int(value);
        channel.count += count;
        sum += double(count) * double(value);
    }
    if (channel.count == 0)
        return;
    channel.mean = sum / double(channel.count);
    double squares = 0;
    for (int value = channel.minimum; value <= channel.maximum; ++value)
        squares += channel.counts[std::size_t(value)] * (value - channel.mean) * (value - channel.mean);
    channel.deviation = std::sqrt(squares / double(channel.count));
}
} // namespace

void SampleCounter::add(const SampleGrid& grid, const QRect& part)
{
    channels.resize(std::size_t(isMosaic ? 4 : grid.channels));
    for (auto& channel : channels)
        channel.counts.resize(grid.kind == SampleGrid::Bytes ? 256 : 65536);
    switch (grid.kind)
    {
    case SampleGrid::Bytes:
        partCount<SampleGrid::Bytes>(grid, part, isMosaic, channels);
        break;
    case SampleGrid::WordsOfFile:
        partCount<SampleGrid::WordsOfFile>(grid, part, isMosaic, channels);
        break;
    case SampleGrid::Words:
        partCount<SampleGrid::Words>(grid, part, isMosaic, channels);
        break;
    }
}

std::vector<ChannelStatistics> SampleCounter::result() &&
{
    for (auto& channel : channels)
        countsJudge(channel);
    return std::move(channels);
}
