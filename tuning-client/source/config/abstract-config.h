#pragma once

#include <QDir>
#include <QJsonObject>

namespace cfg
{
/// One configuration file: read when it is built, written when it is destroyed. Never throws and never says anything:
/// what can't be read yields defaults, what can't be written is lost.
class Abstract
{
public:
    /// Reads `fileName` in the configuration directory; anything but a JSON object gives an empty `jRoot`.
    explicit Abstract(const QString& fileName);

    /// Without a file: nothing is ever read or written.
    Abstract();

    /// Writes the file, unless `jRoot` is empty. A derived class has stored its fields into `jRoot` by then.
    ~Abstract();

    Abstract(const Abstract&) = delete;
    Abstract& operator=(const Abstract&) = delete;

    const QDir dConfig;
    QString fullFileName;
    QJsonObject jRoot;
};
} // namespace cfg
