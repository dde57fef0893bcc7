#include "tuning-client/source/file/local-file.h"

#include <QSaveFile>

#include <stdexcept>

namespace shortcut
{
void fileWrite(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    // Unbuffered: of what a buffer holds at the end, nobody learns that it could not be written.
    bool isSound = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    for (int written = 0; isSound && written < bytes.size();)
    {
        const auto count = file.write(bytes.data() + written, bytes.size() - written);
        isSound = count > 0;
        written += int(count);
    }
    if (!isSound || !file.commit())
        throw std::runtime_error(QString("Saving of \"%1\" failed: %2").arg(path, file.errorString()).toStdString());
}
} // namespace shortcut
