#include "tuning-client/source/control/xml-document.h"

#include "tuning-common/source/limits.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <stdexcept>

namespace
{
namespace limit = t_common::limit;

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
        {
            count = 0;
        }
        else if ((byte == '"' || byte == '\'') && last == '=')
        {
            most = std::max(most, ++count);
        }
        if (byte != 0 && byte != ' ' && byte != '\t' && byte != '\r' && byte != '\n')
        {
            last = byte;
        }
    }
    return most;
}

/// Walks through without building anything: the document object would end the process with what is refused here.
void check(const QString& fileName, const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    std::size_t depth = 0;
    std::size_t nodes = 0;
    while (!reader.atEnd())
    {
        switch (reader.readNext())
        {
        case QXmlStreamReader::DTD:
            if (reader.text().contains('['))
            {
                refuse(fileName, "XML file has declarations of its own");
            }
            break;
        case QXmlStreamReader::StartElement:
            nodes += 1 + reader.attributes().size();
            if (++depth > limit::xmlDepth)
            {
                refuse(fileName, "XML elements are nested too deeply");
            }
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            ++nodes;
        }
        if (nodes > limit::xmlNodes)
        {
            refuse(fileName, "XML file has too many nodes");
        }
    }
    if (reader.hasError())
    {
        refuse(fileName, QString("%1 (line %2)").arg(reader.errorString()).arg(reader.lineNumber()));
    }
}
} // namespace

QByteArray xmlBytesRead(const QString& fileName, std::size_t most)
{
    QFile file(fileName);
    // Opening a pipe would wait for its other end.
    if (file.exists() && !QFileInfo(fileName).isFile())
    {
        refuse(fileName, "Not a regular file");
    }
    if (!file.open(QIODevice::ReadOnly))
    {
        refuse(fileName, file.errorString());
    }
    if (static_cast<std::uint64_t>(file.size()) > limit::xmlBytes)
    {
        refuse(fileName, "XML file is larger than 64 MiB");
    }
    auto bytes = file.read(static_cast<qint64>(most));
    if (file.error() != QFileDevice::NoError)
    {
        refuse(fileName, file.errorString());
    }
    if (attributesMax(bytes) > attributeLimit)
    {
        refuse(fileName, "XML element has too many attributes");
    }
    return bytes;
}

QDomDocument xmlDocumentRead(const QString& fileName)
{
    const auto bytes = xmlBytesRead(fileName);
    check(fileName, bytes);

    // The same reader as in the check, so that both see the same document.
    QXmlStreamReader reader(bytes);
    QDomDocument document;
    if (!document.setContent(&reader, false))
    {
        refuse(fileName, "Not an XML document");
    }
    return document;
}
