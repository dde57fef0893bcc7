#pragma once

#include <QDomDocument>

/// Reads an XML file whole. Throws `std::runtime_error`, with a text that names the file, when it cannot be opened, is
/// no regular file, is not well-formed, declares entities, or is larger, deeper or richer than any file of the house.
QDomDocument xmlDocumentRead(const QString& fileName);
