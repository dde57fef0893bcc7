#include "tuning-image/source/sharpness.h"

#include "tuning-image/source/sample-at.h"

#include <cmath>

namespace
{
template <SampleGrid::Kind kind>
double sharpness(const SampleGrid& grid, const QSize& size, int step)
{
    double squares = 0;
    double sum = 0;
    qint64 count = 0;
    const auto rowSamples = qint64(size.width()) * grid.pixelSamples;
    const auto right = qint64(step) * grid.pixelSamples;
    for (int y = 0; y < size.height(); ++y)
    {
        const auto* pRow = grid.pFirst + y * grid.rowBytes;
        const auto* pBelow = y + step < size.height() ? pRow + step * grid.rowBytes : nullptr;
        qint64 rowSum = 0;
        qint64 rowSquares = 0; // of 2^16 by 2^15 pixels it has less than 2^63
        const auto add = [&](int value, int other)
        {
            rowSquares += qint64(value - other) * (value - other);
            ++count;
        };
        for (qint64 x = 0; x < rowSamples; ++x)
        {
            if (x % grid.pixelSamples >= grid.channels)
                continue;
            const auto value = int(sampleAt<kind>(pRow, x));
            rowSum += value;
            if (x + right < rowSamples)
                add(value, int(sampleAt<kind>(pRow, x + right)));
            if (pBelow)
                add(value, int(sampleAt<kind>(pBelow, x)));
        }
        sum += double(rowSum);
        squares += double(rowSquares);
    }
    const auto mean = sum / (double(size.width()) * size.height() * grid.channels);
    return count == 0 || sum == 0 ? 0 : std::sqrt(squares / double(count)) / mean;
}
} // namespace

double sharpnessGet(const SampleGrid& grid, const QSize& size, bool isMosaic)
{
    const int step = isMosaic ? 2 : 1;
    switch (grid.kind)
    {
    case SampleGrid::Bytes:
        return sharpness<SampleGrid::Bytes>(grid, size, step);
    case SampleGrid::WordsOfFile:
        return sharpness<SampleGrid::WordsOfFile>(grid, size, step);
    case SampleGrid::Words:
        break;
    }
    return sharpness<SampleGrid::Words>(grid, size, step);
}
