#include "tests/support/board-fixture.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <thread>

using board::Fault;

namespace
{
enum Command
{
    CalibrationGet = 10001,
    CalibrationSet = 10002,
    List = 50001,
    Remove = 50002,
    AeConfigGet = 4000101
};

std::string str(const QString& text) { return text.toStdString(); }

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << str(path);
    file.write(bytes);
}

class SettingsTransferTest : public BoardTest
{
protected:
    SettingsTransferTest()
    {
        QDir("board").removeRecursively();
        QDir().mkpath("board");
        board = std::make_unique<board::Simulator>(board::Options{0, "board"});
        config.preferences.server.http.collection = {{"127.0.0.1", board->port()}};
        config.preferences.calibration.path = local.path();
        chipWrite("One", {"Auto Exposure"});
        config.setting.chipName = "One";
        open();
        QApplication::processEvents();
        board->requestsClear();
    }

    ~SettingsTransferTest() override { EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "no cursor stays behind"; }

    static QAction* actionOf(const QList<QAction*>& actions, const QString& text)
    {
        for (auto* pAction : actions)
        {
            if (pAction->text() == text)
                return pAction;
        }
        throw std::logic_error("no action " + str(text));
    }

    QMenu* fileMenu() const { return actionOf(pMainWindow->menuBar()->actions(), "&File")->menu(); }
    QMenu* importMenu() const { return actionOf(fileMenu()->actions(), "&Import All Settings")->menu(); }

    /// The submenu as it is when it opens.
    QMenu* remoteMenu() const
    {
        auto* pMenu = actionOf(importMenu()->actions(), "Remote")->menu();
        emit pMenu->aboutToShow();
        return pMenu;
    }

    void remote(const QString& name, const QString& entry) const
    {
        actionOf(actionOf(remoteMenu()->actions(), name)->menu()->actions(), entry)->trigger();
    }

    void exportAll() const { actionOf(fileMenu()->actions(), "&Export All Settings")->trigger(); }

    /// "Local" with that file; a null name cancels. What the dialog was told comes back.
    QString localImport(const QString& path) const
    {
        QString seen;
        QTimer::singleShot(0,
                           [&]
                           {
                               auto* pDialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                               ASSERT_TRUE(pDialog);
                               seen = pDialog->windowTitle() + "|" + pDialog->directory().path() + "|" +
                                      pDialog->nameFilters().join(",");
                               if (path.isNull())
                                   return pDialog->reject();
                               pDialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
                               QMetaObject::invokeMethod(pDialog, "accept");
                           });
        actionOf(importMenu()->actions(), "Local")->trigger();
        return seen;
    }

    /// Answers the next box; what it said is in `boxText`.
    void answerNext(QMessageBox::StandardButton button)
    {
        QTimer::singleShot(0,
                           [this, button]
                           {
                               auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                               ASSERT_TRUE(pBox);
                               boxText = pBox->windowTitle() + "|" + pBox->text();
                               pBox->button(button)->click();
                           });
    }

    std::string lastQuery(int64_t id, const char* key) const
    {
        std::string value = "not sent";
        for (const auto& request : board->requests())
        {
            if (request.id == id)
                value = request.query[key].asString();
        }
        return value;
    }

    QStringList localFiles() const { return QDir(local.path()).entryList(QDir::Files | QDir::Hidden); }

    const QTemporaryDir local;
    QString boxText;
    /// Everything that a text file does not have.
    const QByteArray bytes = QByteArray("<a/>\r\n\0\xff\x1a\n", 10) + QByteArray(200000, 'x');
};
} // namespace

TEST_F(SettingsTransferTest, LocalIsUploadedAndActivated)
{
    for (const auto* name : {"plain.xml", "a b+&=ä€.xml", "a?b#c.xml"})
    {
        SCOPED_TRACE(name);
        board->requestsClear();
        const auto path = local.filePath(name);
        write(path, bytes);
        QStringList messages;
        const auto connection = QObject::connect(pMainWindow->statusBar(), &QStatusBar::messageChanged,
                                                 [&](const QString& text) { messages.append(text); });
        EXPECT_EQ(localImport(path), "Select File|" + local.path() + "|XML (*.xml)");
        QObject::disconnect(connection);
        EXPECT_EQ(messages, QStringList("Upload file from " + path));
        EXPECT_EQ(content(QString("board/") + name), bytes);
        EXPECT_EQ(lastQuery(CalibrationSet, "calib.file"), name);
        EXPECT_EQ(board->requestCount(), 2u) << "the pages are not refreshed";
    }
}

TEST_F(SettingsTransferTest, LocalThatIsRefused)
{
    EXPECT_EQ(localImport(QString()), "Select File|" + local.path() + "|XML (*.xml)");
    EXPECT_EQ(board->requestCount(), 0u) << "cancelled";

    const auto path = local.filePath("plain.xml");
    write(path, bytes);
    board->faultSet({Fault::Error, CalibrationSet, -1, 0, "Not for this sensor"});
    QStringList messages;
    QObject::connect(pMainWindow->statusBar(), &QStatusBar::messageChanged,
                     [&](const QString& text) { messages.append(text); });
    localImport(path);
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages.first(), "Upload file from " + path);
    EXPECT_TRUE(status().contains("Not for this sensor")) << str(status());
    EXPECT_EQ(content("board/plain.xml"), bytes) << "the upload has happened";

    board->faultsClear();
    QFile::remove("board/plain.xml");
    write(path, QByteArray(32 << 20, 'x'));
    board->faultSet({Fault::Silence, Fault::Upload});
    board->requestsClear();
    // The window is blocked meanwhile.
    std::thread vanish(
        [&]
        {
            for (int i = 0; i < waitLimit() / 10 && board->count(Fault::Upload) == 0; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            board->listenSet(false);
        });
    localImport(path);
    vanish.join();
    EXPECT_TRUE(status().contains("Connection refused")) << str(status());
    EXPECT_TRUE(QDir("board").entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(SettingsTransferTest, RemoteListsAnewEachTime)
{
    auto* pMenu = remoteMenu();
    ASSERT_EQ(pMenu->actions().size(), 1);
    EXPECT_EQ(pMenu->actions().first()->text(), "Not Found");
    pMenu->actions().first()->trigger();
    EXPECT_EQ(board->requestCount(), 1u) << "it does nothing";
    EXPECT_EQ(lastQuery(List, "file.extension") + lastQuery(List, "path"), "xml.");

    for (const auto* name : {"board/b.xml", "board/a&b.xml", "board/c.pgm"})
        write(name, bytes);
    QStringList names;
    for (auto* pAction : remoteMenu()->actions())
    {
        names.append(pAction->text());
        ASSERT_TRUE(pAction->menu());
        QStringList entries;
        for (auto* pEntry : pAction->menu()->actions())
            entries.append(pEntry->text());
        EXPECT_EQ(entries, QStringList({"Activate", "Download", "Remove"}));
    }
    EXPECT_EQ(names, QStringList({"a&&b.xml", "b.xml"}));

    for (const auto kind : {Fault::Error, Fault::WrongTypes, Fault::NotJson, Fault::Close})
    {
        pMainWindow->statusBar()->clearMessage();
        board->faultSet({kind, List});
        EXPECT_TRUE(remoteMenu()->isEmpty()) << kind;
        EXPECT_FALSE(status().isEmpty()) << kind;
    }
}

TEST_F(SettingsTransferTest, RemoteIsActivatedAndThePageReads)
{
    write("board/b.xml", bytes);
    remote("b.xml", "Activate");
    EXPECT_EQ(lastQuery(CalibrationSet, "calib.file"), "b.xml");
    EXPECT_EQ(sent(AeConfigGet), 1u);

    board->requestsClear();
    board->faultSet({Fault::Error, CalibrationSet, -1, 0, "Not now"});
    remote("b.xml", "Activate");
    EXPECT_TRUE(status().contains("Not now"));
    EXPECT_EQ(sent(AeConfigGet), 0u);
    board->faultsClear();

    Json::Value jList(Json::arrayValue);
    jList.append("sub/dir/b.xml");
    board->answerSet(List, "file.list", jList);
    remote("sub/dir/b.xml", "Activate");
    EXPECT_EQ(lastQuery(CalibrationSet, "calib.file"), "b.xml") << "by its file part";
    answerNext(QMessageBox::Yes);
    remote("sub/dir/b.xml", "Remove");
    EXPECT_EQ(lastQuery(Remove, "path"), "sub/dir/b.xml") << "by its full text";
    board->requestsClear();
    remote("sub/dir/b.xml", "Download");
    EXPECT_EQ(board->requests().back().target, "/sub/dir/b.xml");
}

TEST_F(SettingsTransferTest, RemoteIsDownloaded)
{
    for (const auto* name : {"b.xml", "a b+=ä€.xml"})
    {
        SCOPED_TRACE(name);
        write(QString("board/") + name, bytes);
        write(local.filePath(name), "an earlier file");
        remote(name, "Download");
        EXPECT_EQ(content(local.filePath(name)), bytes + '\n');
        EXPECT_EQ(status(), "Save file " + QString(name) + " to " + local.path());
    }
    EXPECT_EQ(localFiles().size(), 2);
}

TEST_F(SettingsTransferTest, RemoteIsRemovedWhenTheUserIsSure)
{
    write("board/b.xml", bytes);
    answerNext(QMessageBox::No);
    remote("b.xml", "Remove");
    EXPECT_EQ(boxText, "Warning: This action can't be undone|Are you sure to remove this file from remote?");
    EXPECT_EQ(sent(Remove), 0u);
    EXPECT_TRUE(QFile::exists("board/b.xml"));

    board->faultSet({Fault::Error, Remove, 1, 0, "In use"});
    answerNext(QMessageBox::Yes);
    remote("b.xml", "Remove");
    EXPECT_TRUE(status().contains("In use"));
    EXPECT_TRUE(QFile::exists("board/b.xml"));

    answerNext(QMessageBox::Yes);
    remote("b.xml", "Remove");
    EXPECT_FALSE(QFile::exists("board/b.xml"));
    EXPECT_EQ(remoteMenu()->actions().first()->text(), "Not Found");
}

TEST_F(SettingsTransferTest, ExportFetchesWhatTheBoardWrote)
{
    bool hasWaited = false;
    const auto connection = QObject::connect(pMainWindow->statusBar(), &QStatusBar::messageChanged,
                                             [&] {
                                                 hasWaited = QApplication::overrideCursor() &&
                                                             QApplication::overrideCursor()->shape() == Qt::WaitCursor;
                                             });
    exportAll();
    QObject::disconnect(connection);
    EXPECT_TRUE(hasWaited);
    const auto names = QDir("board").entryList(QDir::Files);
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(localFiles(), names);
    EXPECT_EQ(content(local.filePath(names[0])), content("board/" + names[0]) + '\n');
    EXPECT_EQ(status(), "Save " + names[0] + " to " + local.path());

    board->faultSet({Fault::Error, CalibrationGet, 1, 0, "No room"});
    board->requestsClear();
    exportAll();
    EXPECT_TRUE(status().contains("No room"));
    EXPECT_EQ(board->requestCount(), 1u) << "nothing is fetched";

    config.preferences.calibration.path = local.filePath("gone");
    board->requestsClear();
    answerNext(QMessageBox::Ok);
    exportAll();
    EXPECT_EQ(boxText, "Calibration Settings|The save directory does not exist.");
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(SettingsTransferTest, BrokenTransfersLeaveNoPart)
{
    write("board/b.xml", bytes);
    for (const auto kind : {Fault::ResetInBody, Fault::BodyShort, Fault::ChunkedCut, Fault::NotHttp, Fault::Close})
    {
        SCOPED_TRACE(kind);
        board->faultSet({kind, Fault::Download});
        write(local.filePath("b.xml"), "an earlier file");
        remote("b.xml", "Download");
        EXPECT_FALSE(status().startsWith("Save")) << str(status());
        EXPECT_EQ(content(local.filePath("b.xml")), "an earlier file");
        QFile::remove(local.filePath("b.xml"));
        remote("b.xml", "Download");
        EXPECT_LE(content(local.filePath("b.xml")).size(), 0) << "empty, never a part";
        EXPECT_EQ(localFiles(), QStringList("b.xml"));
        exportAll();
        EXPECT_FALSE(status().startsWith("Save")) << str(status());
        for (const auto& name : localFiles())
            EXPECT_TRUE(content(local.filePath(name)).isEmpty() && QFile::remove(local.filePath(name)));
    }
}

TEST_F(SettingsTransferTest, WhatCannotBeSavedIsNotCalledSaved)
{
    write("board/b.xml", bytes);
    write(local.filePath("file"), "in the way");
    QDir(local.path()).mkpath("taken/b.xml");
    for (const auto* directory : {"gone", "file/below", "taken"})
    {
        SCOPED_TRACE(directory);
        config.preferences.calibration.path = local.filePath(directory);
        remote("b.xml", "Download");
        EXPECT_TRUE(status().startsWith("Download failed: ")) << str(status());
    }
    EXPECT_EQ(content(local.filePath("file")), "in the way");
    config.preferences.calibration.path = "/proc/self";
    exportAll();
    EXPECT_TRUE(status().contains("failed")) << str(status());
}

TEST_F(SettingsTransferTest, HostileNamesStayInTheDirectory)
{
    QDir(local.path()).mkpath("a/b");
    config.preferences.calibration.path = local.filePath("a/b");
    const std::string names[]{"../up.xml",
                              "/etc/absolute.xml",
                              "..",
                              ".",
                              "",
                              "sub/",
                              "a\\b.xml",
                              "a\nb.xml",
                              std::string(4000, 'n'),
                              "q?mark.xml",
                              "h#ash.xml",
                              "../../?x/up.xml"};
    for (const auto& name : names)
    {
        SCOPED_TRACE(name.substr(0, 40));
        Json::Value jList(Json::arrayValue);
        jList.append(name);
        board->answerSet(List, "file.list", jList);
        board->answerSet(CalibrationGet, "calib.file", name);
        auto* pMenu = remoteMenu();
        ASSERT_EQ(pMenu->actions().size(), 1);
        EXPECT_LT(pMenu->actions().first()->text().size(), 300);
        pMenu->actions().first()->menu()->actions().at(1)->trigger();
        EXPECT_FALSE(status().isEmpty());
        exportAll();
        EXPECT_LE(status().size(), 4096 + 3);
        EXPECT_TRUE(QDir(local.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
        EXPECT_TRUE(QDir(local.filePath("a")).entryList(QDir::Files | QDir::Hidden).isEmpty());
        for (const auto& file : QDir(local.filePath("a/b")).entryList(QDir::Files | QDir::Hidden))
            EXPECT_TRUE(file == "up.xml" || file == "absolute.xml") << str(file);
    }
    EXPECT_FALSE(QFile::exists("/etc/absolute.xml"));
}
