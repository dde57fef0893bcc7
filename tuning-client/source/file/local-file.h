#pragma once

class QByteArray;
class QString;

namespace shortcut
{
/// Writes a file of the user's whole or leaves the one that was there. Throws `std::runtime_error` with a text that
/// names the file.
void fileWrite(const QString& path, const QByteArray& bytes);
} // namespace shortcut
