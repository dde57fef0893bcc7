#include "tuning-client/source/image/netpbm-image.h"

#include <vector>

QImage netpbmImage(const Netpbm& netpbm)
{
    // Samples above the maximum, which a file may have all the same, are white.
    constexpr int sampleCount = 65536;
    std::vector<uchar> shades(sampleCount, 255);
    for (int i = 0; i < netpbm.maximumGet(); ++i)
        shades[std::size_t(i)] = uchar(i * 255 / netpbm.maximumGet());

    QImage image(netpbm.size(), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const auto grid = netpbm.samples();
    const auto sampleSize = grid.kind == SampleGrid::Bytes ? 1 : 2;
    for (int y = 0; y < image.height(); ++y)
    {
        auto* pPixel = reinterpret_cast<QRgb*>(image.scanLine(y));
        const auto* pSample = grid.pFirst + y * grid.rowBytes;
        const auto shadeNext = [&]
        {
            const auto value = sampleSize == 1 ? *pSample : pSample[0] << 8 | pSample[1];
            pSample += sampleSize;
            return shades[std::size_t(value)];
        };
        for (int x = 0; x < image.width(); ++x)
        {
            const auto red = shadeNext();
            const auto green = netpbm.isColour() ? shadeNext() : red;
            const auto blue = netpbm.isColour() ? shadeNext() : red;
            pPixel[x] = qRgb(red, green, blue);
        }
    }
    return image;
}
