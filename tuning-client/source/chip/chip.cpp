#include "tuning-client/source/chip/chip.h"

#include "tuning-common/source/limits.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QtDebug>

namespace
{
/// Numbers of the file become menu entries.
int bounded(const QXmlStreamAttributes& attributes, const char* name)
{
    const auto text = attributes.value(QLatin1String(name));
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    const int held = qBound(0, value, t_common::limit::chipCounterMaximum);
    if (held != value || (!isNumber && !text.isEmpty()))
        qWarning("%s is out of range, %d is taken", name, held);
    return held;
}

/// The document's first element. Entity declarations are refused: a few lines of them make gigabytes of text.
bool readRoot(QXmlStreamReader& reader)
{
    while (!reader.atEnd())
    {
        reader.readNext();
        if (reader.isDTD() && reader.text().contains(QLatin1String("<!ENTITY")))
            reader.raiseError("Entity declarations are not allowed");
        if (reader.isStartElement())
            return true;
    }
    return false;
}
} // namespace

void Chip::loadXml(const QString& fileName, bool isPreload)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        qWarning() << file.errorString() << fileName;

    QXmlStreamReader reader(&file);
    if (file.size() > qint64(t_common::limit::xmlBytes))
        reader.raiseError("The file is too large");
    if (readRoot(reader) && reader.name() == QLatin1String("Table"))
    {
        const auto attributes = reader.attributes();
        chipName = attributes.value("ChipName").toString();
        inputMax = bounded(attributes, "InputMax");
        ispMax = bounded(attributes, "IspMax");
        version = attributes.value("Version").toString();
        if (!isPreload)
        {
            pages.clear();
            if (reader.readNextStartElement())
                parseTable(reader);
        }
    }
    if (reader.hasError())
        qWarning() << reader.errorString();
    file.close();
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
            pages.append({attributes.value("Level").toInt(), attributes.value("Name").toString(),
                          attributes.value("Type").toString()});
        }
        reader.readNext();
    }
}
