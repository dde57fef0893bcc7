#include "tuning-client/source/file/xml-document.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/xml-bytes.h"

#include <QBuffer>
#include <QSet>
#include <QXmlStreamReader>

#include <stdexcept>

namespace
{
namespace limit = t_common::limit;

[[noreturn]] void refuse(const QString& fileName, const QString& reason)
{
    throw std::runtime_error(QString("%1: %2").arg(reason, fileName).toStdString());
}

/// The characters alone: `toString()` may give the reader's whole buffer, half a KiB for each text.
QString copy(const QStringRef& text) { return QString(text.constData(), text.size()); }

/// Builds a document, and refuses what the document object itself would end the process with.
class Builder
{
public:
    explicit Builder(const QString& sourceName) : fileName(sourceName) {}

    QDomDocument build(QByteArray bytes)
    {
        // From a device, the reader decodes piece by piece.
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&buffer);
        // Prefixes are part of the names, declared or not.
        reader.setNamespaceProcessing(false);
        while (!reader.atEnd())
        {
            reader.readNext();
            take(reader);
            if (nodes > limit::xmlNodes)
                refuse(fileName, "XML file has too many nodes");
        }
        if (reader.hasError())
            refuse(fileName, QString("%1 (line %2)").arg(reader.errorString()).arg(reader.lineNumber()));
        return document;
    }

private:
    void take(const QXmlStreamReader& reader)
    {
        switch (reader.tokenType())
        {
        case QXmlStreamReader::DTD:
            if (reader.text().contains('['))
                refuse(fileName, "XML file has declarations of its own");
            break;
        case QXmlStreamReader::StartElement:
            elementOpen(reader);
            break;
        case QXmlStreamReader::EndElement:
            parent = parent.parentNode();
            --depth;
            break;
        case QXmlStreamReader::Characters:
            ++nodes;
            if (reader.isCDATA())
                parent.appendChild(document.createCDATASection(copy(reader.text())));
            else if (!reader.isWhitespace())
                parent.appendChild(document.createTextNode(copy(reader.text())));
            break;
        default:
            ++nodes;
        }
    }

    void elementOpen(const QXmlStreamReader& reader)
    {
        const auto attributes = reader.attributes();
        nodes += 1 + attributes.size();
        if (++depth > limit::xmlDepth)
            refuse(fileName, "XML elements are nested too deeply");
        auto element = document.createElement(nameShared(reader.qualifiedName()));
        for (const auto& attribute : attributes)
            element.setAttribute(nameShared(attribute.qualifiedName()), copy(attribute.value()));
        parent = parent.appendChild(element);
    }

    QString nameShared(const QStringRef& name) { return *names.insert(copy(name)); }

    const QString& fileName;
    QDomDocument document{QString()};
    QDomNode parent = document;
    QSet<QString> names; ///< each held once, however many nodes have it
    std::size_t depth = 0;
    std::size_t nodes = 0;
};
} // namespace

QDomDocument xmlDocumentParse(const QByteArray& bytes, const QString& fileName)
{
    return Builder(fileName).build(bytes);
}

QDomDocument xmlDocumentRead(const QString& fileName)
{
    return xmlDocumentParse(t_common::xmlBytesRead(fileName), fileName);
}
