#include "tuning-client/source/file/file-menu.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/shortcut/message-box.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <QFileDialog>

namespace shortcut
{
void messageShow(QStatusBar* pStatusBar, const QString& text)
{
    if (pStatusBar)
        pStatusBar->showMessage(
            QString::fromStdString(t_common::printable(text.toStdString(), t_common::limit::statusBarText)));
}

QString localChoose(QWidget* pParent, const FileMenu& files)
{
    return QFileDialog::getOpenFileName(pParent, QMenu::tr("Select File"), files.localDirectory,
                                        files.extension.toUpper() + " (*." + files.extension + ")");
}

void remoteSave(t_transfer::ClientHolder& clientHolder, QStatusBar* pStatusBar, const std::string& name,
                const QString& saved)
{
    const auto directory = config.preferences.calibration.path;
    remoteDownload(clientHolder, name, directory);
    messageShow(pStatusBar, saved + QString::fromStdString(name) + QMenu::tr(" to ") + directory);
}

bool remoteRemoveAsk(QWidget* pParent, const QString& name)
{
    if (!message_box::question(pParent, QMenu::tr("Warning: This action can't be undone"),
                               QMenu::tr("Are you sure to remove this file from remote?"), name))
        return false;
    remoteRemove(name);
    return true;
}
} // namespace shortcut
