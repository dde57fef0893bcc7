#include "tests/support/board-fixture.h"
#include "tests/support/files.h"
#include "tests/support/modals.h"
#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/shortcut/failure-guard.h"

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
        const FileDialogAnswer answer(path);
        actionOf(importMenu()->actions(), "Local")->trigger();
        return answer.seen;
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
    for (const auto* name : {"plain.xml", "a b+=ä€.xml", "50% x.xml", "a?b.xml"})
    {
        SCOPED_TRACE(name);
        board->requestsClear();
        const auto path = local.filePath(name);
        fileWrite(path, bytes);
        QStringList messages;
        const auto connection = QObject::connect(pMainWindow->statusBar(), &QStatusBar::messageChanged,
                                                 [&](const QString& text) { messages.append(text); });
        EXPECT_EQ(localImport(path), "Select File|" + local.path() + "|XML (*.xml)");
        QObject::disconnect(connection);
        EXPECT_EQ(messages, QStringList("Upload file from " + path));
        EXPECT_EQ(fileRead(QString("board/") + name), bytes);
        EXPECT_EQ(lastQuery(CalibrationSet, "calib.file"), name);
        EXPECT_EQ(board->requestCount(), 2u) << "the pages are not refreshed";
    }
    EXPECT_TRUE(hasWaitCursor(Fault::Upload, [&] { localImport(local.filePath("plain.xml")); }));
}

TEST_F(SettingsTransferTest, LocalThatIsRefused)
{
    EXPECT_EQ(localImport(QString()), "Select File|" + local.path() + "|XML (*.xml)");
    EXPECT_EQ(board->requestCount(), 0u) << "cancelled";

    for (const auto* name : {"a&b.xml", "h#ash.xml", "a%41.xml"})
    {
        fileWrite(local.filePath(name), bytes);
        localImport(local.filePath(name));
        EXPECT_TRUE(status().startsWith(QString("Upload failed: %1 can't be named to the board, ").arg(name)))
            << str(status());
    }
    for (const auto& name : {local.filePath("gone.xml"), local.path()})
    {
        shortcut::guarded(pMainWindow.get(), [&] { shortcut::remoteUpload(pMainWindow->clientHolder(), name); });
        EXPECT_EQ(status(), "Upload failed: " + name + " is no file that can be read");
    }
    EXPECT_EQ(board->requestCount(), 0u) << "nor any of these";

    const auto path = local.filePath("plain.xml");
    fileWrite(path, bytes);
    board->faultSet({Fault::Error, CalibrationSet, -1, 0, "Not for this sensor"});
    QStringList messages;
    QObject::connect(pMainWindow->statusBar(), &QStatusBar::messageChanged,
                     [&](const QString& text) { messages.append(text); });
    localImport(path);
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages.first(), "Upload file from " + path);
    EXPECT_TRUE(status().contains("Not for this sensor")) << str(status());
    EXPECT_EQ(fileRead("board/plain.xml"), bytes) << "the upload has happened";

    board->faultsClear();
    QFile::remove("board/plain.xml");
    fileWrite(path, QByteArray(32 << 20, 'x'));
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
        fileWrite(name, bytes);
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

    // One that is no UTF-8, one that would lose its first character, and more than a menu takes.
    Json::Value jList(Json::arrayValue);
    jList.append("\xff.xml");
    jList.append("\xef\xbb\xbf"
                 "b.xml");
    for (int i = 0; i < 1001; ++i)
        jList.append("b.xml");
    board->answerSet(List, "file.list", jList);
    const auto entries = remoteMenu()->actions();
    ASSERT_EQ(entries.size(), 1001);
    for (const int place : {0, 1, 1000})
        EXPECT_TRUE(!entries[place]->isEnabled() && !entries[place]->menu()) << place;
    EXPECT_EQ(entries.back()->text(), "... and 3 more");
    EXPECT_TRUE(entries[999]->menu());
    board->answersClear();

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
    fileWrite("board/b.xml", bytes);
    EXPECT_TRUE(hasWaitCursor(CalibrationSet, [this] { remote("b.xml", "Activate"); }));
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

TEST_F(SettingsTransferTest, RemoteIsDownloadedAndRemovedWhateverItsName)
{
    for (const auto* name : {"b.xml", "a b+=ä€.xml", "50% x.xml"})
    {
        SCOPED_TRACE(name);
        fileWrite(QString("board/") + name, bytes);
        fileWrite(local.filePath(name), "an earlier file");
        remote(name, "Download");
        EXPECT_EQ(fileRead(local.filePath(name)), bytes + '\n');
        EXPECT_EQ(status(), "Save file " + QString(name) + " to " + local.path());
        answerNext(QMessageBox::Yes);
        remote(name, "Remove");
        EXPECT_FALSE(QFile::exists(QString("board/") + name));
    }
    EXPECT_EQ(localFiles().size(), 3);
    fileWrite("board/b.xml", bytes);
    EXPECT_TRUE(hasWaitCursor(Fault::Download, [this] { remote("b.xml", "Download"); }));
}

TEST_F(SettingsTransferTest, NamesThatWouldBeOthersOnTheirWayAreRefused)
{
    const struct
    {
        const char* name;
        const char* other; ///< what a board would take it for
    } rows[] = {{"q.xml?.xml", "q.xml"}, {"h.xml#.xml", "h.xml"}, {"a%41.xml", "aA.xml"}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name);
        for (const auto* name : {row.name, row.other})
        {
            fileWrite(QString("board/") + name, bytes);
            fileWrite(local.filePath(name), "an earlier file");
        }
        remote(row.name, "Activate");
        EXPECT_EQ(lastQuery(CalibrationSet, "calib.file"), row.name) << "no address is needed";
        board->requestsClear();
        const QString reason = QString(" failed: %1 can't be named to the board, ").arg(row.name);
        remote(row.name, "Download");
        EXPECT_TRUE(status().startsWith("Download" + reason)) << str(status());
        answerNext(QMessageBox::Yes);
        remote(row.name, "Remove");
        EXPECT_TRUE(status().startsWith("Remove" + reason)) << str(status());
        EXPECT_EQ(board->requestCount(), sent(List));
        for (const auto* name : {row.name, row.other})
        {
            EXPECT_EQ(fileRead(QString("board/") + name), bytes);
            EXPECT_EQ(fileRead(local.filePath(name)), "an earlier file");
        }
    }
    board->answerSet(CalibrationGet, "calib.file", "\xff.xml");
    exportAll();
    EXPECT_TRUE(status().contains("is not plain UTF-8")) << str(status());
    EXPECT_EQ(sent(Fault::Download), 0u);
}

TEST_F(SettingsTransferTest, WindowThatIsClosedMeanwhileLeavesWholeFiles)
{
    fileWrite("board/b.xml", bytes);
    fileWrite(local.filePath("mine.xml"), bytes);
    const struct
    {
        int64_t id;
        std::function<void()> action;
    } rows[] = {{Fault::Upload, [this] { localImport(local.filePath("mine.xml")); }},
                {Fault::Download, [this] { remote("b.xml", "Download"); }},
                {CalibrationGet, [this] { exportAll(); }},
                {Fault::Download, [this] { exportAll(); }}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.id);
        closedDuring(row.id, row.action);
        for (const auto& name : localFiles())
            EXPECT_EQ(fileRead(local.filePath(name)), fileRead("board/" + name) + (name == "mine.xml" ? "" : "\n"));
        open();
    }
    EXPECT_GE(localFiles().size(), 3);
}

TEST_F(SettingsTransferTest, LineWithoutFilesGoesOnAsUsual)
{
    pMainWindow.reset();
    board.reset();
    board = std::make_unique<board::Simulator>(board::Options{0, "board", false, true});
    config.preferences.server.type = "uart";
    config.preferences.server.uart.port = QString::fromStdString(board->serialName());
    open();
    config.preferences.server.type = "http";
    for (const auto* name : {"board/b.xml", "board/mine.xml"})
        fileWrite(name, bytes);
    const auto mine = local.filePath("mine.xml");
    fileWrite(mine, bytes);
    for (const auto& earlier : {QByteArray("no file"), QByteArray("an earlier file")})
    {
        if (earlier != "no file")
            fileWrite(local.filePath("b.xml"), earlier);
        board->requestsClear();
        localImport(mine);
        EXPECT_EQ(status(), "Upload file from " + mine);
        EXPECT_EQ(lastQuery(CalibrationSet, "calib.file"), "mine.xml");
        remote("b.xml", "Download");
        EXPECT_EQ(status(), "Save file b.xml to " + local.path());
        exportAll();
        EXPECT_TRUE(status().startsWith("Save ") && status().endsWith(" to " + local.path())) << str(status());
        EXPECT_EQ(fileRead(local.filePath("b.xml")), earlier);
    }
    EXPECT_EQ(localFiles(), QStringList({"b.xml", "mine.xml"})) << "nothing was saved";
}

TEST_F(SettingsTransferTest, RemoteIsRemovedWhenTheUserIsSure)
{
    fileWrite("board/b.xml", bytes);
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
    EXPECT_EQ(fileRead(local.filePath(names[0])), fileRead("board/" + names[0]) + '\n');
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
    fileWrite("board/b.xml", bytes);
    for (const auto kind : {Fault::ResetInBody, Fault::BodyShort, Fault::ChunkedCut, Fault::NotHttp, Fault::Close})
    {
        SCOPED_TRACE(kind);
        board->faultSet({kind, Fault::Download});
        fileWrite(local.filePath("b.xml"), "an earlier file");
        remote("b.xml", "Download");
        EXPECT_FALSE(status().startsWith("Save")) << str(status());
        EXPECT_EQ(fileRead(local.filePath("b.xml")), "an earlier file");
        QFile::remove(local.filePath("b.xml"));
        remote("b.xml", "Download");
        EXPECT_LE(fileRead(local.filePath("b.xml")).size(), 0) << "empty, never a part";
        EXPECT_EQ(localFiles(), QStringList("b.xml"));
        exportAll();
        EXPECT_FALSE(status().startsWith("Save")) << str(status());
        for (const auto& name : localFiles())
            EXPECT_TRUE(fileRead(local.filePath(name)).isEmpty() && QFile::remove(local.filePath(name)));
    }
}

TEST_F(SettingsTransferTest, WhatCannotBeSavedIsNotCalledSaved)
{
    fileWrite("board/b.xml", bytes);
    fileWrite(local.filePath("file"), "in the way");
    QDir(local.path()).mkpath("taken/b.xml");
    for (const auto* name : {"gone", "file", "file/below", "taken"})
    {
        SCOPED_TRACE(name);
        const auto directory = local.filePath(name);
        config.preferences.calibration.path = directory;
        remote("b.xml", "Download");
        EXPECT_EQ(status(), name == std::string("taken")
                                ? "Download failed: file b.xml in " + directory + " can't be written"
                                : "Download failed: " + directory + " is no directory that can be written");
    }
    EXPECT_EQ(sent(Fault::Download), 0u) << "told before anything is fetched";
    EXPECT_EQ(fileRead(local.filePath("file")), "in the way");
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
