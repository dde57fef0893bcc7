#pragma once

#include "tuning-image/source/netpbm.h"

#include <QImage>
#include <QPoint>
#include <QString>

/// A picture file as it is shown, and with the samples that the file has.
class Picture
{
public:
    Picture() = default;

    /// Null when the file is no regular one, is no picture, or is too large to show.
    explicit Picture(const QString& fileName);

    bool isNull() const { return image.isNull(); }
    const QImage& imageGet() const { return image; }

    /// The samples of a pixel inside the picture: one of a grey picture, three of a coloured one, in up to 16 bits.
    QString samplesText(const QPoint& pixel) const;

    /// Whether a pixel has one sample, not three.
    bool isGrey() const;

    /// The statistics of a part inside the picture; only a grey picture can be a mosaic.
    std::vector<ChannelStatistics> statistics(const QRect& part, bool isMosaic) const;

private:
    QImage image;
    std::optional<Netpbm> netpbm;
};
