#pragma once

#include "tuning-common/source/limits.h"

#include <QDomDocument>

/// Both throw `std::runtime_error` with a text that names the file.

/// The bytes of an XML file, or the first `most` of them, for a stream reader. Throws when the file cannot be opened,
/// is no regular file, is too large, or has tags with so many attributes that the reader would compare them for hours.
QByteArray xmlBytesRead(const QString& fileName, std::size_t most = t_common::limit::xmlBytes);

/// Reads an XML file whole. Throws as `xmlBytesRead` does, and when the file is not well-formed, declares entities, or
/// has more elements or a deeper nesting than any file of the house.
QDomDocument xmlDocumentRead(const QString& fileName);
