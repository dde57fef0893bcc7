#include "tuning-client/source/control/remote-file.h"

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
    Json::Value jFile;
    jFile["path"] = name.toStdString();
    jFile["path.local"] = directory.toStdString();
    clientHolder.fileDownload(jFile);

    // A transport that could not write has no way to say so.
    const auto localName = QString::fromStdString(t_common::FileSystem::localNameGet(name.toStdString()));
    if (!QFileInfo::exists(directory + "/" + localName))
        throw std::runtime_error(
            QMenu::tr("Download failed: no file %1 in %2").arg(localName, directory).toStdString());
}

void remoteUpload(t_transfer::ClientHolder& clientHolder, const QString& fileName)
{
    Json::Value jFile;
    jFile["path"] = fileName.toStdString();
    clientHolder.fileUpload(jFile);
}
} // namespace shortcut
