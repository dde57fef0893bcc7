#include "tuning-client/source/chip/chip.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/xml-bytes.h"

#include <QXmlStreamReader>
#include <QtDebug>

#include <exception>

namespace
{
/// Texts of the file become menu entries and rows.
QString text(const QXmlStreamAttributes& attributes, const char* name)
{
    return attributes.value(QLatin1String(name)).left(int(t_common::limit::listText)).toString();
}

/// Numbers of the file become menu entries.
int bounded(const QXmlStreamAttributes& attributes, const char* name)
{
    const auto number = attributes.value(QLatin1String(name));
    bool isNumber = false;
    const int value = number.toInt(&isNumber);
    const int held = qBound(0, value, t_common::limit::chipCounterMaximum);
    if (held != value || (!isNumber && !number.isEmpty()))
        qWarning("%s is out of range, %d is taken", name, held);
    return held;
}

/// The document's first element. Declarations are refused: a few lines of entities or of default attributes make
/// gigabytes.
bool readRoot(QXmlStreamReader& reader)
{
    while (!reader.atEnd())
    {
        reader.readNext();
        if (reader.isDTD() && reader.text().contains('['))
            reader.raiseError("Declarations are not allowed");
        if (reader.isStartElement())
            return true;
    }
    return false;
}
} // namespace

void Chip::loadXml(const QString& fileName, bool isPreload)
{
    QByteArray bytes;
    try
    {
        // The heads of all chips are read at every start.
        bytes = t_common::xmlBytesRead(fileName, isPreload ? t_common::limit::chipHead : t_common::limit::xmlBytes);
    }
    catch (const std::exception& exception)
    {
        qWarning() << exception.what();
    }

    QXmlStreamReader reader(bytes);
    if (readRoot(reader) && reader.name() == QLatin1String("Table"))
    {
        const auto attributes = reader.attributes();
        chipName = text(attributes, "ChipName");
        inputMax = bounded(attributes, "InputMax");
        ispMax = bounded(attributes, "IspMax");
        version = text(attributes, "Version");
        if (!isPreload)
        {
            pages.clear();
            if (reader.readNextStartElement())
                parseTable(reader);
        }
    }
    if (reader.hasError())
        qWarning() << reader.errorString();
    emit valueChanged();
}

void Chip::parseTable(QXmlStreamReader& reader)
{
    pages.clear();
    while (!reader.atEnd())
    {
        if (reader.isStartElement() && reader.name() == QLatin1String("Page"))
        {
            if (pages.size() >= int(t_common::limit::chipPages))
            {
                reader.raiseError("Too many pages");
                return;
            }
            const auto attributes = reader.attributes();
            pages.append({attributes.value("Level").toInt(), text(attributes, "Name"), text(attributes, "Type")});
        }
        reader.readNext();
    }
}
