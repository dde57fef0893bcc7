#include "tuning-client/source/image/mosaic.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace mosaic
{
QString name(Pattern pattern)
{
    switch (pattern)
    {
    case Pattern::Bggr:
        return "BGGR";
    case Pattern::Gbrg:
        return "GBRG";
    case Pattern::Grbg:
        return "GRBG";
    case Pattern::Rggb:
        return "RGGB";
    default:
        return {};
    }
}

QStringList channels(Pattern pattern)
{
    const auto letters = name(pattern);
    if (letters.isNull())
        return {"x0 y0", "x1 y0", "x0 y1", "x1 y1"};
    QStringList channels;
    for (int i = 0; i < 4; ++i)
    {
        const auto beside = letters[i ^ 1];
        channels.append(letters[i] == 'G' ? QString("G") + beside.toLower() : QString(letters[i]));
    }
    return channels;
}

bool isRawCapture(const QString& fileName)
{
    static const QRegularExpression prefix("^RAW(08|10|12|16)_");
    return prefix.match(QFileInfo(fileName).fileName()).hasMatch();
}
} // namespace mosaic
