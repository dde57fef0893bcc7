#include "tuning-client/source/control/remote-file.h"

#include "tuning-client/source/control/wait-cursor.h"
#include "tuning-common/source/file-system.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/fs.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QFileInfo>

#include <stdexcept>

namespace shortcut
{
std::vector<std::string> remoteList(const std::string& extension)
{
    std::vector<std::string> names;
    rest::FileSystem().list(names, extension, ".");
    return names;
}

void remoteMenuFill(QMenu* pMenu, const std::string& extension, const std::function<void(const QString&)>& fEntry)
{
    pMenu->clear();
    // Clearing leaves submenus behind: their actions belong to them. Later, since one of them may be on its way up.
    for (auto* pSubmenu : pMenu->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly))
        pSubmenu->deleteLater();
    const auto names = remoteList(extension);
    if (names.empty())
        pMenu->addAction(QMenu::tr("Not Found"));
    for (const auto& name : names)
        fEntry(QString::fromStdString(name));
}

QString menuText(const QString& name)
{
    auto text = t_common::printable(name.toStdString(), t_common::limit::fileName);
    return QString::fromStdString(text).replace('&', "&&");
}

void remoteDownload(t_transfer::ClientHolder& clientHolder, const QString& name, const QString& directory)
{
    const auto localName = QString::fromStdString(t_common::FileSystem::localNameGet(name.toStdString()));
    // A transport takes these for the end of the name, and would store the file under another one.
    if (name.contains('?') || name.contains('#'))
        throw std::runtime_error(QMenu::tr("Download failed: no file can be asked for as %1").arg(name).toStdString());
    const QFileInfo local(directory + "/" + localName);
    // A transport that can't write has no way to say so, and an earlier file is no proof of this transfer.
    if (local.exists() && !(local.isFile() && local.isWritable()))
        throw std::runtime_error(
            QMenu::tr("Download failed: file %1 in %2 can't be written").arg(localName, directory).toStdString());

    const WaitCursor waiting;
    Json::Value jFile;
    jFile["path"] = name.toStdString();
    jFile["path.local"] = directory.toStdString();
    clientHolder.fileDownload(jFile);
    if (!QFileInfo::exists(local.filePath()))
        throw std::runtime_error(
            QMenu::tr("Download failed: no file %1 in %2").arg(localName, directory).toStdString());
}

void remoteUpload(t_transfer::ClientHolder& clientHolder, const QString& fileName)
{
    // The transport would send an empty file in its place.
    const QFileInfo local(fileName);
    if (!local.isFile() || !local.isReadable())
        throw std::runtime_error(
            QMenu::tr("Upload failed: %1 is no file that can be read").arg(fileName).toStdString());

    const WaitCursor waiting;
    Json::Value jFile;
    jFile["path"] = fileName.toStdString();
    clientHolder.fileUpload(jFile);
}
} // namespace shortcut
