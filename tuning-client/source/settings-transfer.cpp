#include "tuning-client/source/settings-transfer.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/file/file-menu.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-rest/source/camera.h"

#include <QFileInfo>
#include <QMessageBox>

namespace
{
void activate(const QString& fileName)
{
    const shortcut::WaitCursor waiting;
    rest::Camera().calibrationSet(QFileInfo(fileName).fileName().toStdString(), false);
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
    shortcut::remoteSave(pMainWindow->clientHolder(), pMainWindow->statusBar(), name, MainWindow::tr("Save "));
}
} // namespace

void settingsTransferAdd(MainWindow* pMainWindow, QMenu* pMenuFile)
{
    shortcut::fileMenuAdd(pMainWindow, pMenuFile->addMenu(MainWindow::tr("&Import All Settings")),
                          {"xml", config.preferences.calibration.path,
                           [=](const QString& path)
                           {
                               shortcut::messageShow(pMainWindow->statusBar(),
                                                     MainWindow::tr("Upload file from ") + path);
                               activate(path);
                           },
                           [=](const QString& name)
                           {
                               activate(name);
                               emit pMainWindow->refresh();
                           },
                           [](const QString&) {}});
    shortcut::connectGuarded(pMainWindow, pMenuFile->addAction(MainWindow::tr("&Export All Settings")),
                             &QAction::triggered, [=] { exportAll(pMainWindow); });
}
