#pragma once

#include <QByteArray>
#include <QDomDocument>

/// Both throw `std::runtime_error` with a text that names the file.

/// The elements, attributes and texts of an XML file's bytes, without comments and instructions. Throws when they are
/// not well-formed, declare entities, or have more elements or a deeper nesting than any file of the house.
QDomDocument xmlDocumentParse(const QByteArray& bytes, const QString& fileName);

/// The same for the bytes of that file, which `t_common::xmlBytesRead` reads.
QDomDocument xmlDocumentRead(const QString& fileName);
