#include "tuning-client/source/file/register-document.h"

#include "tuning-client/source/file/local-file.h"
#include "tuning-client/source/file/xml-document.h"
#include "tuning-common/source/xml-bytes.h"

#include <QFile>
#include <QTextStream>
#include <QtDebug>

#include <algorithm>
#include <stdexcept>

namespace
{
void textSet(QDomElement element, const QString& text)
{
    for (auto child = element.firstChild(); !child.isNull();)
    {
        const auto next = child.nextSibling();
        if (child.isText())
            element.removeChild(child);
        child = next;
    }
    element.appendChild(element.ownerDocument().createTextNode(text));
}

/// A name without the underscores that stand for anything.
QString nameSpell(const QString& text)
{
    QString name;
    for (const auto character : text)
    {
        const auto code = character.unicode();
        const bool isPlain = code < 0x80 && (character.isLetter() || (character.isDigit() && !name.isEmpty()));
        name += isPlain ? QString(character) : QString::asprintf("u%04X", code);
    }
    return name;
}
} // namespace

namespace register_document
{
QString nameMake(const QString& text)
{
    QString name;
    for (const auto character : text)
    {
        const auto code = character.unicode();
        const bool isLetter = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_';
        const bool isInner = (code >= '0' && code <= '9') || code == '-' || code == '.';
        if (name.isEmpty() && !isLetter)
            name = "_";
        // Letters of other scripts are spelt out, or all names in them would be the same.
        if (code >= 0x80)
            name += QString::asprintf("u%04X", code);
        else
            name += isLetter || isInner ? character : QChar('_');
    }
    return name.isEmpty() ? "_" : name;
}

QString tagMake(const QString& module, const QStringList& modules)
{
    const auto tag = nameMake(module);
    const bool isShared = std::any_of(modules.begin(), modules.end(),
                                      [&](const QString& other) { return other != module && nameMake(other) == tag; });
    return isShared ? nameSpell(module) : tag;
}

QDomDocument create()
{
    QDomDocument document("norvik_registers_v1");
    document.appendChild(document.createProcessingInstruction("xml", "version=\"1.0\""));
    document.appendChild(document.createElement("OPTRIX_1"));
    return document;
}

QDomDocument read(const QString& path)
{
    QByteArray bytes;
    try
    {
        bytes = t_common::xmlBytesRead(path);
        // Refuses what would end the document object's own parser, which in its turn keeps everything.
        xmlDocumentParse(bytes, path);
    }
    catch (const std::exception&)
    {
        qDebug("No file to read...");
        throw;
    }
    QDomDocument document("norvik_registers_v1");
    QString reason;
    if (!document.setContent(bytes, &reason))
    {
        qDebug("No file to read...");
        throw std::runtime_error(QString("%1: %2").arg(reason, path).toStdString());
    }
    qDebug("File has loaded...");
    return document;
}

void write(const QDomDocument& document, const QString& path)
{
    QByteArray bytes;
    QTextStream stream(&bytes, QIODevice::WriteOnly);
    stream.setCodec("UTF-8");
    document.save(stream, 4);
    stream.flush();
    shortcut::fileWrite(path, bytes);
}

QDomElement registerElement(QDomDocument& document, const QString& name, uint32_t address, const QString& text)
{
    auto element = document.createElement(nameMake(name));
    element.setAttribute("size", "[1 1]");
    element.setAttribute("type", "uint32_t");
    element.setAttribute("address", QString::asprintf("0x%08X", address));
    textSet(element, text);
    return element;
}

QDomElement moduleFind(const QDomDocument& document, const QString& tag)
{
    // Without a tag the first child would do.
    return tag.isEmpty() ? QDomElement() : document.documentElement().firstChildElement(tag);
}

QStringList textsGet(const QDomDocument& document, const QString& tag)
{
    QStringList texts;
    for (auto module = moduleFind(document, tag); !module.isNull(); module = module.nextSiblingElement(tag))
    {
        int place = 0;
        for (auto element = module.firstChildElement(); !element.isNull(); element = element.nextSiblingElement())
        {
            if (place == texts.size())
                texts.append(QString());
            texts[place++] = element.text();
        }
    }
    return texts;
}

void textsSet(const QDomElement& module, const QStringList& texts)
{
    auto element = module.firstChildElement();
    for (const auto& text : texts)
    {
        if (element.isNull())
            break;
        textSet(element, text);
        element = element.nextSiblingElement();
    }
}

void logAppend(const QString& path, const Written& written)
{
    // A page built within the same second has the same file.
    auto document = QFile::exists(path) ? read(path) : create();
    auto root = document.documentElement();
    auto module = root.lastChildElement();
    if (module.tagName() != written.tag)
        module = root.appendChild(document.createElement(written.tag)).toElement();
    auto element = registerElement(document, written.name, written.address, written.value);
    element.setAttribute("PreValue", written.before);
    module.appendChild(element);
    write(document, path);
}
} // namespace register_document
