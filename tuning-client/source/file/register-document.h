#pragma once

#include <QDomDocument>
#include <QString>

#include <cstdint>

/// The XML form of register files and of the log of written registers: a root, an element for each module, in it an
/// element for each register.
namespace register_document
{
/// A name for an element, made of whatever the board calls a module or a register.
QString nameMake(const QString& text);

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

/// Makes `text` the text of the element.
void textSet(QDomElement element, const QString& text);
} // namespace register_document
