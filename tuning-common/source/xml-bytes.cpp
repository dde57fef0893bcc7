#include "tuning-common/source/xml-bytes.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

namespace t_common
{
namespace
{
// The reader compares each attribute of a tag with all others.
constexpr int attributeLimit = 1024;

[[noreturn]] void refuse(const QString& fileName, const QString& reason)
{
    throw std::runtime_error(QString("%1: %2").arg(reason, fileName).toStdString());
}

/// The most attributes that any tag can have, in whatever encoding: no tag has a second '<' in it.
int attributesMax(const QByteArray& bytes)
{
    int most = 0;
    int count = 0;
    char last = 0;
    for (auto byte : bytes)
    {
        if (byte == '<')
            count = 0;
        else if ((byte == '"' || byte == '\'') && last == '=')
            most = std::max(most, ++count);
        if (byte != 0 && byte != ' ' && byte != '\t' && byte != '\r' && byte != '\n')
            last = byte;
    }
    return most;
}
} // namespace

QByteArray xmlBytesRead(const QString& fileName, std::size_t most)
{
    QFile file(fileName);
    // Opening a pipe would wait for its other end.
    if (file.exists() && !QFileInfo(fileName).isFile())
        refuse(fileName, "Not a regular file");
    if (!file.open(QIODevice::ReadOnly))
        refuse(fileName, file.errorString());
    if (static_cast<std::uint64_t>(file.size()) > limit::xmlBytes)
        refuse(fileName, "XML file is larger than 64 MiB");
    auto bytes = file.read(static_cast<qint64>(most));
    if (file.error() != QFileDevice::NoError)
        refuse(fileName, file.errorString());
    if (attributesMax(bytes) > attributeLimit)
        refuse(fileName, "XML element has too many attributes");
    return bytes;
}
} // namespace t_common
