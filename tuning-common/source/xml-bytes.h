#pragma once

#include "tuning-common/source/limits.h"

#include <QByteArray>
#include <QString>

namespace t_common
{
/// The bytes of an XML file, or the first `most` of them, for a stream reader. Throws `std::runtime_error` with a text
/// that names the file when it cannot be opened, is no regular file, is too large, or has tags with so many attributes
/// that the reader would compare them for hours.
QByteArray xmlBytesRead(const QString& fileName, std::size_t most = limit::xmlBytes);
} // namespace t_common
