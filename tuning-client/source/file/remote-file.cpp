#include "tuning-client/source/file/remote-file.h"

#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/file-system.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/fs.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

namespace
{
/// Names travel in the address of an exchange. A board takes "?" and the like for the end of one and decodes "%41": it
/// would find another file.
void addressCheck(const QString& operation, const QString& name, const QString& ends)
{
    const auto match = QRegularExpression("[" + ends + "]|%[0-9A-Fa-f]{2}").match(name);
    if (match.hasMatch())
        throw std::runtime_error(QMenu::tr("%1 failed: %2 can't be named to the board, \"%3\" has a meaning of its own")
                                     .arg(operation, name, match.captured())
                                     .toStdString());
}

void disabledAdd(QMenu* pMenu, const QString& text) { pMenu->addAction(text)->setEnabled(false); }
} // namespace

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
    const auto shown = std::min(names.size(), t_common::limit::menuEntries);
    for (std::size_t i = 0; i < shown; ++i)
    {
        const auto name = QString::fromStdString(names[i]);
        if (name.toStdString() == names[i])
            fEntry(name);
        else
            disabledAdd(pMenu, menuText(name));
    }
    if (shown < names.size())
        disabledAdd(pMenu, QMenu::tr("... and %1 more").arg(names.size() - shown));
}

QString menuText(const QString& name)
{
    auto text = t_common::printable(name.toStdString(), t_common::limit::fileName);
    return QString::fromStdString(text).replace('&', "&&");
}

QString downloadNameGet(const std::string& name, const QString& directory)
{
    const auto localName = QString::fromStdString(t_common::FileSystem::localNameGet(name));
    addressCheck("Download", QString::fromStdString(name), "?#");
    const QFileInfo info(directory);
    if (!info.isDir() || !info.isWritable())
        throw std::runtime_error(
            QMenu::tr("Download failed: %1 is no directory that can be written").arg(directory).toStdString());
    return localName;
}

void remoteDownload(t_transfer::ClientHolder& clientHolder, const std::string& name, const QString& directory)
{
    const auto localName = downloadNameGet(name, directory);
    const QFileInfo local(directory + "/" + localName);
    // A transport that can't write has no way to say so, and an earlier file is no proof of this transfer.
    if (local.exists() && !(local.isFile() && local.isWritable()))
        throw std::runtime_error(
            QMenu::tr("Download failed: file %1 in %2 can't be written").arg(localName, directory).toStdString());

    const WaitCursor waiting;
    Json::Value jFile;
    jFile["path"] = name;
    jFile["path.local"] = directory.toStdString();
    clientHolder.fileDownload(jFile);
    // A transport without files has told so itself.
    if (clientHolder.abstract().failure.empty() && !QFileInfo::exists(local.filePath()))
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
    addressCheck("Upload", local.fileName(), "#&");

    const WaitCursor waiting;
    Json::Value jFile;
    jFile["path"] = fileName.toStdString();
    clientHolder.fileUpload(jFile);
}

void remoteRemove(const QString& name)
{
    addressCheck("Remove", name, "?#");
    rest::FileSystem().remove(name.toStdString());
}
} // namespace shortcut
