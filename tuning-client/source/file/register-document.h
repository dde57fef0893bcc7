#pragma once

#include <QDomDocument>
#include <QStringList>

#include <cstdint>

/// The XML form of register files and of the log of written registers: a root, an element for each module, in it an
/// element for each register.
namespace register_document
{
/// A name for an element, made of whatever the board calls a module or a register.
QString nameMake(const QString& text);

/// The name of a module's element. Where other modules of the board would get the same, as "A/B" and "A B" would, all
/// that is no letter or digit is spelt out.
QString tagMake(const QString& module, const QStringList& modules);

/// The prolog and the root.
QDomDocument create();

/// Reads a file with its comments and instructions kept. Throws `std::runtime_error` with a text that names the file.
QDomDocument read(const QString& path);

/// Writes the file whole or leaves the one that was there. Throws as above.
void write(const QDomDocument& document, const QString& path);

/// A register's element, not yet in the document's tree.
QDomElement registerElement(QDomDocument& document, const QString& name, uint32_t address, const QString& text);

/// The root's first child of that tag, or null.
QDomElement moduleFind(const QDomDocument& document, const QString& tag);

/// The texts of the module's registers. Of a module that stands in the document several times, as in a log, the last
/// text of each place counts.
QStringList textsGet(const QDomDocument& document, const QString& tag);

/// Makes the texts those of the module's registers, as far as there are both.
void textsSet(const QDomElement& module, const QStringList& texts);

/// A write to a register.
struct Written
{
    QString tag;  ///< of the module
    QString name; ///< of the register
    uint32_t address;
    QString value;
    QString before;
};

/// Appends to the log of that path, which need not exist. Throws when it cannot be read or written.
void logAppend(const QString& path, const Written& written);
} // namespace register_document
