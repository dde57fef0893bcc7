#include "tuning-client/source/image/yuv-file.h"

#include "tuning-client/source/file/local-file.h"
#include "tuning-client/source/image/yuv.h"
#include "tuning-common/source/limits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace
{
constexpr uint8_t mode422 = 4;

[[noreturn]] void fail(const QString& fileName, const QString& reason)
{
    throw std::runtime_error(QObject::tr("Conversion of %1 failed: %2").arg(fileName, reason).toStdString());
}

/// Unlike a vector's, the bytes are not cleared.
std::unique_ptr<uint8_t[]> bufferMake(std::size_t size) { return std::unique_ptr<uint8_t[]>(new uint8_t[size]); }
} // namespace

// The directories keep their points and their names: the file would leave the directory that the user chose.
QString displayFileGet(const QString& fileName)
{
    const auto directoryLength = fileName.lastIndexOf('/') + 1;
    auto name = fileName.mid(directoryLength);
    name = name.left(name.indexOf('.'));
    return fileName.left(directoryLength) + name.replace("YUV", "RGB") + ".ppm";
}

QString yuvFileConvert(const QString& fileName, uint32_t width, uint32_t height)
{
    namespace limit = t_common::limit;
    const auto pixels = uint64_t(width) * height;
    const bool isSide = std::min(width, height) >= 1 && std::max(width, height) <= limit::yuvSide;
    if (!isSide || pixels * 4 > limit::picture)
        fail(fileName, QObject::tr("the sensor tells a size of %1x%2").arg(width).arg(height));

    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly))
        fail(fileName, QObject::tr("the file can't be read"));
    const auto w = uint16_t(width);
    const auto h = uint16_t(height);
    const auto size = std::max<std::size_t>(pixels * 2, semiplanarSizeGet(mode422, w, h));
    if (uint64_t(file.size()) < size)
        fail(fileName,
             QObject::tr("%1x%2 takes %3 bytes, the file has %4").arg(width).arg(height).arg(size).arg(file.size()));
    const auto pYuv = bufferMake(size);
    if (file.read(reinterpret_cast<char*>(pYuv.get()), qint64(size)) != qint64(size))
        fail(fileName, file.errorString());

    const auto head = QString("P6\n%1 %2\n255\n").arg(width).arg(height).toLatin1();
    QByteArray picture(int(head.size() + pixels * 3), Qt::Uninitialized);
    std::copy(head.begin(), head.end(), picture.begin());
    auto* pRgb = reinterpret_cast<uint8_t*>(picture.data()) + head.size();
    convert_semiplanar_to_rgb24_buffer(pYuv.get(), pRgb, mode422, w, h);

    QFile written(QDir::current().filePath("client_rgb.ppm"));
    shortcut::fileWrite(written.fileName(), picture);
    const auto displayFile = displayFileGet(fileName);
    const bool isCopied = written.copy(displayFile);
    const auto reason = written.errorString();
    written.remove();
    if (!isCopied)
        fail(fileName, QObject::tr("%1 can't be written: %2").arg(displayFile, reason));
    return displayFile;
}
