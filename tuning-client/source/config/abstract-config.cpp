#include "tuning-client/source/config/abstract-config.h"

#include "tuning-common/source/limits.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

namespace cfg
{
namespace
{
QString configDirectory() { return QDir::homePath() + "/" + ".tuning-client"; }

/// A pipe or a device would block the start or the exit of the program.
bool isRegularOrMissing(const QString& fileName)
{
    const QFileInfo info(fileName);
    return info.isFile() || (!info.exists() && !info.isSymLink());
}
} // namespace

Abstract::Abstract(const QString& fileName) : dConfig(configDirectory()), fullFileName(dConfig.path() + "/" + fileName)
{
    QFile file(fullFileName);
    if (!isRegularOrMissing(fullFileName) || file.size() > qint64(t_common::limit::configFile))
        return;
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QString text(file.readAll());
    jRoot = QJsonDocument::fromJson(text.toUtf8()).object();
}

Abstract::Abstract() : dConfig(configDirectory()) {}

Abstract::~Abstract()
{
    if (jRoot.isEmpty())
        return;
    if (!dConfig.exists())
        dConfig.mkdir(dConfig.path());
    if (fullFileName.isEmpty() || !isRegularOrMissing(fullFileName))
        return;
    QFile file(fullFileName);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(QJsonDocument(jRoot).toJson());
}
} // namespace cfg
