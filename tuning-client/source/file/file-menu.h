#pragma once

#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/shortcut/failure-guard.h"

#include <QAction>
#include <QMenu>
#include <QString>

#include <functional>
#include <string>

namespace shortcut
{
/// What one menu of local and remote files has of its own.
struct FileMenu
{
    QString extension;
    const QString& localDirectory;                      ///< where the choice of a local file starts
    std::function<void(const QString& path)> fUploaded; ///< after a local file was sent
    std::function<void(const QString& name)> fActivate;
    std::function<void(const QString& name)> fRemoved; ///< after the board's file has gone
};

/// Shows `text` in the status bar, if there is one. Names in it come from the board, so it is made plain and bounded.
void messageShow(QStatusBar* pStatusBar, const QString& text);

/// The local file that the user chooses; empty for none.
QString localChoose(QWidget* pParent, const FileMenu& files);

/// Fetches the board's file `name` into the directory of the calibration and says so with `saved` in front. Throws as
/// `remoteDownload` does.
void remoteSave(t_transfer::ClientHolder& clientHolder, QStatusBar* pStatusBar, const std::string& name,
                const QString& saved);

/// Removes a file of the board if the user is sure; false if not. Throws as `remoteRemove` does.
bool remoteRemoveAsk(QWidget* pParent, const QString& name);

/// Adds "Activate", "Download" and "Remove" for the board's file `name`.
template <class Owner>
void remoteEntryAdd(Owner* pOwner, QMenu* pMenu, const FileMenu& files, const QString& name)
{
    auto* pMenuFile = pMenu->addMenu(menuText(name));
    const auto actionAdd = [&](const QString& text, auto action)
    { connectGuarded(pOwner, pMenuFile->addAction(text), &QAction::triggered, action); };
    actionAdd(QMenu::tr("Activate"), [=] { files.fActivate(name); });
    actionAdd(
        QMenu::tr("Download"),
        [=] { remoteSave(pOwner->clientHolder(), pOwner->statusBar(), name.toStdString(), QMenu::tr("Save file ")); });
    actionAdd(QMenu::tr("Remove"),
              [=]
              {
                  if (remoteRemoveAsk(pOwner, name))
                      files.fRemoved(name);
              });
}

/// Adds "Local", which sends a local file, and "Remote", a menu of the board's files that is filled each time that it
/// opens.
template <class Owner>
void fileMenuAdd(Owner* pOwner, QMenu* pMenu, const FileMenu& files)
{
    connectGuarded(pOwner, pMenu->addAction(QMenu::tr("Local")), &QAction::triggered,
                   [=]
                   {
                       const auto path = localChoose(pOwner, files);
                       if (path.isEmpty())
                           return;
                       remoteUpload(pOwner->clientHolder(), path);
                       files.fUploaded(path);
                   });
    auto* pMenuRemote = pMenu->addMenu(QMenu::tr("Remote"));
    connectGuarded(pOwner, pMenuRemote, &QMenu::aboutToShow,
                   [=]
                   {
                       remoteMenuFill(pMenuRemote, files.extension.toStdString(),
                                      [=](const QString& name) { remoteEntryAdd(pOwner, pMenuRemote, files, name); });
                   });
}
} // namespace shortcut
