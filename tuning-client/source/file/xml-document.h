#pragma once

#include "tuning-common/source/limits.h"

#include <QDomDocument>

/// All throw `std::runtime_error` with a text that names the file.

/// The bytes of an XML file, or the first `most` of them, for a stream reader. Throws when the file cannot be opened,
/// is no regular file, is too large, or has tags with so many attributes that the reader would compare them for hours.
QByteArray xmlBytesRead(const QString& fileName, std::size_t most = t_common::limit::xmlBytes);

/// The elements, attributes and texts of an XML file's bytes, without comments and instructions. Throws when they are
/// not well-formed, declare entities, or have more elements or a deeper nesting than any file of the house.
QDomDocument xmlDocumentParse(const QByteArray& bytes, const QString& fileName);

/// Both in one.
QDomDocument xmlDocumentRead(const QString& fileName);
