#pragma once

#include "tuning-image/source/samples.h"

#include <QByteArray>
#include <QSize>

#include <optional>

/// A binary grey (P5) or colour (P6) picture, with its samples as the file has them.
class Netpbm
{
public:
    /// Nothing for bytes that are no such picture, are too few for it, or would be too many to show.
    static std::optional<Netpbm> parse(const QByteArray& bytes);

    bool isColour() const { return channels == 3; }

    /// The sample of a pixel inside the picture, 0 to 65535.
    int sample(int x, int y, int channel) const;

    /// All samples, valid as long as this object.
    SampleGrid samples() const;

    QSize size() const { return {width, height}; }

    /// What a sample is at most, though a file may have larger ones.
    int maximumGet() const { return maximum; }

private:
    const unsigned char* sampleAt(qint64 index) const;

    QByteArray bytes;
    int offset = 0; ///< of the first sample
    int width = 0;
    int height = 0;
    int maximum = 0;
    int channels = 0;
    int sampleSize = 0;
};
