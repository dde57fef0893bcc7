#include "tuning-client/source/image/picture.h"

#include "tuning-client/source/image/netpbm-image.h"
#include "tuning-common/source/limits.h"

#include <QColor>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRgba64>

namespace
{
constexpr auto limit = qint64(t_common::limit::picture);
constexpr int copiedRows = 64;

QString tripleText(int red, int green, int blue) { return QString("%1 %2 %3").arg(red).arg(green).arg(blue); }

bool hasWideSamples(const QImage& image) { return image.depth() > 32 || image.format() == QImage::Format_Grayscale16; }
} // namespace

Picture::Picture(const QString& fileName)
{
    QFile file(fileName);
    // Opening anything else, such as a pipe, could block.
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly))
        return;
    const auto magic = file.peek(2);
    if (magic == "P5" || magic == "P6")
    {
        if (file.size() <= limit)
            netpbm = Netpbm::parse(file.readAll());
        if (netpbm)
            image = netpbmImage(*netpbm);
        return;
    }
    QImageReader reader(&file);
    // A format that does not tell its size beforehand can't be held to a limit.
    const auto size = reader.size();
    if (size.isValid() && qint64(size.width()) * size.height() * 4 <= limit)
        image = reader.read();
}

QString Picture::samplesText(const QPoint& pixel) const
{
    const int x = pixel.x();
    const int y = pixel.y();
    if (netpbm && netpbm->isColour())
        return tripleText(netpbm->sample(x, y, 0), netpbm->sample(x, y, 1), netpbm->sample(x, y, 2));
    if (netpbm)
        return QString::number(netpbm->sample(x, y, 0));
    const auto colour = image.pixelColor(x, y);
    const auto wide = colour.rgba64();
    if (isGrey())
        return QString::number(hasWideSamples(image) ? wide.red() : colour.red());
    return hasWideSamples(image) ? tripleText(wide.red(), wide.green(), wide.blue())
                                 : tripleText(colour.red(), colour.green(), colour.blue());
}

bool Picture::isGrey() const
{
    return netpbm ? !netpbm->isColour()
                  : image.format() == QImage::Format_Grayscale8 || image.format() == QImage::Format_Grayscale16;
}

std::vector<ChannelStatistics> Picture::statistics(const QRect& part, bool isMosaic) const
{
    const bool isWide = hasWideSamples(image);
    const auto kind = isWide ? SampleGrid::Words : SampleGrid::Bytes;
    SampleCounter counter(isMosaic);
    if (netpbm)
        counter.add(netpbm->samples(), part);
    else if (isGrey())
        counter.add({image.constBits(), image.bytesPerLine(), 1, 1, kind}, part);
    else
        // These have one order of samples on every machine, and colours that their transparency leaves alone. A copy of
        // the whole part could take as much memory as the picture.
        for (int y = part.top(); y <= part.bottom(); y += copiedRows)
        {
            const auto rows = part & QRect(part.left(), y, part.width(), copiedRows);
            const auto copy =
                image.copy(rows).convertToFormat(isWide ? QImage::Format_RGBA64 : QImage::Format_RGBA8888);
            counter.add({copy.constBits(), copy.bytesPerLine(), 4, 3, kind}, copy.rect());
        }
    return std::move(counter).result();
}
