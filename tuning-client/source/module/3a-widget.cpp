#include "tuning-client/source/module/3a-widget.h"

#include "tuning-client/source/control/json-view.h"
#include "tuning-client/source/file/local-file.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QPushButton>
#include <QStatusBar>

#include <sstream>
#include <stdexcept>
#include <sys/stat.h>

namespace
{
/// The number of the file behind a name; 0 for none, and where files have no numbers.
std::uint64_t fileNumber(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 ? std::uint64_t(status.st_ino) : 0;
}

/// Empty when there is no such file, or one that cannot be read.
std::string downloadRead(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    auto text = file.read(t_common::limit::jsonFile + 2).toStdString();
    // The download added it. It must not go back to the board, or the file would grow with each visit.
    if (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}
} // namespace

_3AWidget::_3AWidget(QWidget* pParent)
    : AbstractWidget(pParent, "3A Config", false),
      pJsonView(new JsonView(nullptr)),
      pPushButtonLoad(new QPushButton(tr("Load"))),
      pPushButtonSave(new QPushButton(tr("Save")))
{
    pGridLayoutScrollArea->addWidget(pPushButtonLoad, 0, 0);
    pGridLayoutScrollArea->addWidget(pPushButtonSave, 0, 1);
    pGridLayoutScrollArea->addWidget(pJsonView, 1, 0, 1, 2);
    pJsonView->setAccessibleName(tr("3A Config"));

    connectGuarded(pPushButtonLoad, &QPushButton::clicked, [this] { readStatus(); });
    connectWrite(pPushButtonSave, &QPushButton::clicked, [this] { configSet(); });
    connectGuarded(pJsonView, &QTreeView::expanded, [this] { pJsonView->columnsFit(); });
    connectGuarded(pJsonView, &JsonView::edited,
                   [this]
                   {
                       unsavedSet(true);
                       // What was refused before is over.
                       if (auto* pStatusBar = statusBar())
                           pStatusBar->clearMessage();
                   });
}

Json::Value _3AWidget::fileQuery() const
{
    Json::Value jFile;
    jFile["path"] = remotePath;
    jFile["localPath"] = localPath;
    return jFile;
}

void _3AWidget::updateStatus()
{
    // The text of an earlier failure is no longer true.
    AbstractWidget::updateStatus();
    const shortcut::WaitCursor cursor;
    const auto numberBefore = fileNumber(localPath);
    auto jFile = fileQuery();
    clientHolder().fileDownload(jFile, t_transfer::pagePatience);
    // A transport that stored nothing has no way to say so, and what lies here would be taken for the board's.
    const auto number = fileNumber(localPath);
    if (!QFileInfo::exists(QString::fromStdString(localPath)) || (number != 0 && number == numberBefore))
        throw std::runtime_error("Download failed: " + localPath + " did not arrive");

    std::istringstream stream(downloadRead(localPath));
    t_json::Value jRead;
    stream >> jRead;
    // The view lets go of the last document before that ends.
    std::swap(jRoot, jRead);
    pJsonView->binding(&jRoot, false);
    isLoaded = true;
    if (isUnsaved)
        // A show reads once more and says so.
        QMetaObject::invokeMethod(this, &_3AWidget::dropTell, Qt::QueuedConnection);
    unsavedSet(false);
}

void _3AWidget::unsavedSet(bool isUnsaved_)
{
    isUnsaved = isUnsaved_;
    auto font = pPushButtonSave->font();
    font.setBold(isUnsaved);
    pPushButtonSave->setFont(font);
}

void _3AWidget::dropTell()
{
    if (auto* pStatusBar = statusBar())
        pStatusBar->showMessage(tr("Unsaved changes of %1 were dropped").arg(QString::fromStdString(remotePath)));
}

void _3AWidget::configSet()
{
    if (!isLoaded)
        throw std::runtime_error("Save failed: " + remotePath + " has not been loaded");
    if (pJsonView->isEditing())
        throw std::runtime_error("Save failed: the text in the open editor is no value");
    if (auto* pStatusBar = statusBar())
        pStatusBar->clearMessage();
    const shortcut::WaitCursor cursor;
    std::ostringstream stream;
    stream << jRoot;
    shortcut::fileWrite(QString::fromStdString(localPath), QByteArray::fromStdString(stream.str()));
    clientHolder().fileUpload(fileQuery());
    unsavedSet(false);
}
