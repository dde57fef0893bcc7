#include "tuning-client/source/settings-transfer.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/shortcut/failure-guard.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/camera.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>

namespace
{
/// Names in it come from the board.
void messageShow(MainWindow* pMainWindow, const QString& text)
{
    const auto shown = t_common::printable(text.toStdString(), t_common::limit::statusBarText);
    pMainWindow->statusBar()->showMessage(QString::fromStdString(shown));
}

void activate(const QString& fileName)
{
    const shortcut::WaitCursor waiting;
    rest::Camera().calibrationSet(QFileInfo(fileName).fileName().toStdString(), false);
}

void localImport(MainWindow* pMainWindow)
{
    const auto fileName = QFileDialog::getOpenFileName(
        pMainWindow, MainWindow::tr("Select File"), config.preferences.calibration.path, MainWindow::tr("XML (*.xml)"));
    if (fileName.isEmpty())
        return;
    shortcut::remoteUpload(pMainWindow->clientHolder(), fileName);
    messageShow(pMainWindow, MainWindow::tr("Upload file from ") + fileName);
    activate(fileName);
}

void download(MainWindow* pMainWindow, const std::string& name, const QString& message)
{
    const auto directory = config.preferences.calibration.path;
    shortcut::remoteDownload(pMainWindow->clientHolder(), name, directory);
    messageShow(pMainWindow, message + QString::fromStdString(name) + MainWindow::tr(" to ") + directory);
}

void remove(MainWindow* pMainWindow, const QString& name)
{
    if (QMessageBox::question(pMainWindow, MainWindow::tr("Warning: This action can't be undone"),
                              MainWindow::tr("Are you sure to remove this file from remote?"),
                              QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
        shortcut::remoteRemove(name);
}

void remoteEntryAdd(MainWindow* pMainWindow, QMenu* pMenu, const QString& name)
{
    auto* pMenuFile = pMenu->addMenu(shortcut::menuText(name));
    const auto actionAdd = [&](const QString& text, auto action)
    { shortcut::connectGuarded(pMainWindow, pMenuFile->addAction(text), &QAction::triggered, action); };
    actionAdd(MainWindow::tr("Activate"),
              [=]
              {
                  activate(name);
                  emit pMainWindow->refresh();
              });
    actionAdd(MainWindow::tr("Download"),
              [=] { download(pMainWindow, name.toStdString(), MainWindow::tr("Save file ")); });
    actionAdd(MainWindow::tr("Remove"), [=] { remove(pMainWindow, name); });
}

void exportAll(MainWindow* pMainWindow)
{
    if (!QFileInfo(config.preferences.calibration.path).isDir())
    {
        QMessageBox::information(pMainWindow, MainWindow::tr("Calibration Settings"),
                                 MainWindow::tr("The save directory does not exist."));
        return;
    }
    const shortcut::WaitCursor waiting;
    std::string name;
    rest::Camera().calibrationGet(name, false);
    download(pMainWindow, name, MainWindow::tr("Save "));
}
} // namespace

void settingsTransferAdd(MainWindow* pMainWindow, QMenu* pMenuFile)
{
    auto* pMenuImport = pMenuFile->addMenu(MainWindow::tr("&Import All Settings"));
    shortcut::connectGuarded(pMainWindow, pMenuImport->addAction(MainWindow::tr("Local")), &QAction::triggered,
                             [=] { localImport(pMainWindow); });
    auto* pMenuRemote = pMenuImport->addMenu(MainWindow::tr("Remote"));
    shortcut::connectGuarded(pMainWindow, pMenuRemote, &QMenu::aboutToShow,
                             [=]
                             {
                                 shortcut::remoteMenuFill(pMenuRemote, "xml",
                                                          [=](const QString& name)
                                                          { remoteEntryAdd(pMainWindow, pMenuRemote, name); });
                             });
    shortcut::connectGuarded(pMainWindow, pMenuFile->addAction(MainWindow::tr("&Export All Settings")),
                             &QAction::triggered, [=] { exportAll(pMainWindow); });
}
