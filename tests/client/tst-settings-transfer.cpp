#include "tests/support/board-fixture.h"
#include "tuning-client/source/file/capture.h"
#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/shortcut/failure-guard.h"

#include <algorithm>
#include <string>
#include <vector>

using board::Fault;

namespace
{
class SettingsTransferTest : public BoardTest
{
protected:
    SettingsTransferTest()
    {
        config.preferences.calibration.path = local.path();
        chipWrite("One", {"Auto Exposure"});
        config.setting.chipName = "One";
        aeEnable(false); // no page that polls
        open();
        QApplication::processEvents();
        board->requestsClear();
    }

    ~SettingsTransferTest() override { EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "no cursor stays behind"; }

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
        remoteChoose(actionOf(importMenu()->actions(), "Remote")->menu(), name, entry);
    }

    /// "Remove" of that file, with that answer to the question.
    void remove(const QString& name, QMessageBox::StandardButton answer) const
    {
        const ClosedBoxes boxes(answer);
        remote(name, "Remove");
        EXPECT_EQ(boxes.texts, QStringList("Warning: This action can't be undone: "
                                           "Are you sure to remove this file from remote?"));
        EXPECT_EQ(boxes.details, QStringList(name));
    }

    void exportAll() const { actionOf(fileMenu()->actions(), "&Export All Settings")->trigger(); }
    void capture() const { actionOf(pMainWindow->findChildren<QAction*>(), "&Capture Image")->trigger(); }

    /// "Local" with that file; a null name cancels. What the dialog was told comes back.
    QString localImport(const QString& path) const
    {
        const FileDialogAnswer answer(path);
        actionOf(importMenu()->actions(), "Local")->trigger();
        return answer.seen;
    }

    void listSet(const std::vector<std::string>& names)
    {
        Json::Value jList(Json::arrayValue);
        for (const auto& name : names)
            jList.append(name);
        board->answerSet("FileSystem::list"_id, "file.list", jList);
    }

    static QStringList filesOf(const QString& directory)
    {
        return QDir(directory).entryList(QDir::Files | QDir::Hidden);
    }

    const QTemporaryDir local;
    /// Everything that a text file does not have.
    const QByteArray bytes = QByteArray("<a/>\r\n\0\xff\x1a\n", 10) + QByteArray(200000, 'x');
};
} // namespace

TEST_F(SettingsTransferTest, LocalIsUploadedAndActivated)
{
    for (const auto* name : {"a b+=ä€.xml", "50% a?b.xml"})
    {
        SCOPED_TRACE(name);
        board->requestsClear();
        const auto path = local.filePath(name);
        fileWrite(path, bytes);
        EXPECT_EQ(localImport(path), "Select File|" + local.path() + "|XML (*.xml)");
        EXPECT_EQ(status(), "Upload file from " + path);
        EXPECT_EQ(fileRead(QString("board/") + name), bytes);
        EXPECT_EQ(lastQuery("Camera::calibrationSet"_id)["calib.file"], name);
        EXPECT_EQ(board->requestCount(), 2u) << "the pages are not refreshed";
    }
    const auto path = local.filePath("plain.xml");
    fileWrite(path, bytes);
    EXPECT_TRUE(hasWaitCursor(Fault::Upload, [&] { localImport(path); }));

    board->requestsClear();
    localImport(QString());
    for (const auto& name : {local.filePath("gone.xml"), local.path()})
    {
        shortcut::guarded(pMainWindow.get(), [&] { shortcut::remoteUpload(pMainWindow->clientHolder(), name); });
        EXPECT_EQ(status(), "Upload failed: " + name + " is no file that can be read");
    }
    EXPECT_EQ(board->requestCount(), 0u) << "cancelled, or nothing to send";

    fileWrite(path, "other");
    board->faultSet({Fault::Error, "Camera::calibrationSet"_id, -1, 0, "Not for this sensor"});
    QStringList messages;
    QObject::connect(pMainWindow->statusBar(), &QStatusBar::messageChanged,
                     [&](const QString& text) { messages.append(text); });
    localImport(path);
    EXPECT_EQ(messages, QStringList({"Upload file from " + path, "Server: Not for this sensor"}));
    EXPECT_EQ(fileRead("board/plain.xml"), "other") << "the upload has happened";
}

TEST_F(SettingsTransferTest, RemoteListsAnewEachTime)
{
    auto* pMenu = remoteMenu();
    ASSERT_EQ(texts(pMenu->actions()), QStringList("Not Found"));
    pMenu->actions().first()->trigger();
    EXPECT_EQ(board->requestCount(), 1u) << "it does nothing";
    EXPECT_EQ(lastQuery("FileSystem::list"_id)["file.extension"], "xml");
    EXPECT_EQ(lastQuery("FileSystem::list"_id)["path"], ".");

    for (const auto* name : {"board/b.xml", "board/a&b.xml", "board/c.pgm"})
        fileWrite(name, bytes);
    for (int opening = 0; opening < 3; ++opening)
    {
        EXPECT_EQ(texts(remoteMenu()->actions()), QStringList({"a&&b.xml", "b.xml"}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_LE(pMenu->findChildren<QMenu*>().size(), 4) << "of this opening and of the one before";
    EXPECT_EQ(texts(pMenu->actions().first()->menu()->actions()), QStringList({"Activate", "Download", "Remove"}));

    // One that is no UTF-8, one that would lose its first character, and more than a menu takes.
    std::vector<std::string> names(1003, "b.xml");
    names[0] = "\xff.xml";
    names[1] = "\xef\xbb\xbf" + names[2];
    listSet(names);
    const auto entries = remoteMenu()->actions();
    ASSERT_EQ(entries.size(), 1001);
    for (const int place : {0, 1, 1000})
        EXPECT_TRUE(!entries[place]->isEnabled() && !entries[place]->menu()) << place;
    EXPECT_EQ(entries.back()->text(), "... and 3 more");
    EXPECT_TRUE(entries[999]->menu());

    board->answersClear();

    board->faultSet({Fault::HostileNames, "FileSystem::list"_id});
    const auto hostile = texts(remoteMenu()->actions());
    EXPECT_TRUE(hostile.contains("&&<b>bold</b>.xml"));
    for (const auto& text : hostile)
    {
        EXPECT_LE(text.toUtf8().size(), 260);
        EXPECT_TRUE(std::none_of(text.begin(), text.end(), [](QChar c) { return c < ' '; })) << str(text);
    }
    board->faultSet({Fault::Error, "FileSystem::list"_id});
    EXPECT_TRUE(remoteMenu()->isEmpty());
    EXPECT_EQ(status(), "Server: The board refuses");
}

TEST_F(SettingsTransferTest, RemoteIsActivatedAndThePageReads)
{
    fileWrite("board/b.xml", bytes);
    EXPECT_TRUE(hasWaitCursor("Camera::calibrationSet"_id, [this] { remote("b.xml", "Activate"); }));
    EXPECT_EQ(lastQuery("Camera::calibrationSet"_id)["calib.file"], "b.xml");
    EXPECT_EQ(sent("Ae::configGet"_id), 1u);

    board->requestsClear();
    board->faultSet({Fault::Error, "Camera::calibrationSet"_id, -1, 0, "Not now"});
    remote("b.xml", "Activate");
    EXPECT_EQ(status(), "Server: Not now");
    EXPECT_EQ(sent("Ae::configGet"_id), 0u);
    board->faultsClear();

    listSet({"sub/dir/b.xml"});
    remote("sub/dir/b.xml", "Activate");
    EXPECT_EQ(lastQuery("Camera::calibrationSet"_id)["calib.file"], "b.xml") << "by its file part";
    remove("sub/dir/b.xml", QMessageBox::Yes);
    EXPECT_EQ(lastQuery("FileSystem::remove"_id)["path"], "sub/dir/b.xml") << "by its full text";
    board->requestsClear();
    remote("sub/dir/b.xml", "Download");
    EXPECT_EQ(board->requests().back().target, "/sub/dir/b.xml");
}

TEST_F(SettingsTransferTest, RemoteIsDownloadedAndRemoved)
{
    const QString name = "a b+=ä€.xml";
    fileWrite("board/" + name, bytes);
    fileWrite(local.filePath(name), "an earlier file");
    EXPECT_TRUE(hasWaitCursor(Fault::Download, [&] { remote(name, "Download"); }));
    EXPECT_EQ(fileRead(local.filePath(name)), bytes + '\n');
    EXPECT_EQ(status(), "Save file " + name + " to " + local.path());
    remove(name, QMessageBox::No);
    board->faultSet({Fault::Error, "FileSystem::remove"_id, 1, 0, "In use"});
    remove(name, QMessageBox::Yes);
    EXPECT_EQ(status(), "Server: In use");
    EXPECT_TRUE(QFile::exists("board/" + name));
    remove(name, QMessageBox::Yes);
    EXPECT_FALSE(QFile::exists("board/" + name));
    EXPECT_EQ(filesOf(local.path()), QStringList(name));
}

TEST_F(SettingsTransferTest, WindowThatIsClosedMeanwhileLeavesWholeFiles)
{
    config.preferences.capture.path = local.path();
    fileWrite("board/b.xml", bytes);
    fileWrite(local.filePath("mine.xml"), bytes);
    const std::pair<int64_t, std::function<void()>> rows[] = {
        {Fault::Upload, [this] { localImport(local.filePath("mine.xml")); }},
        {Fault::Download, [this] { remote("b.xml", "Download"); }},
        {"Camera::calibrationGet"_id, [this] { exportAll(); }},
        {Fault::Download, [this] { exportAll(); }},
        {"Camera::capture"_id, [this] { capture(); }},
        {Fault::Download, [this] { capture(); }}};
    for (const auto& [id, action] : rows)
    {
        SCOPED_TRACE(id);
        closedDuring(id, action);
        for (const auto& name : filesOf(local.path()))
            EXPECT_EQ(fileRead(local.filePath(name)), fileRead("board/" + name) + (name == "mine.xml" ? "" : "\n"));
        open();
    }
    EXPECT_GE(filesOf(local.path()).size(), 4);
}

TEST_F(SettingsTransferTest, ExportFetchesWhatTheBoardWrote)
{
    EXPECT_TRUE(hasWaitCursor("Camera::calibrationGet"_id, [this] { exportAll(); }));
    const auto names = QDir("board").entryList(QDir::Files);
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(filesOf(local.path()), names);
    EXPECT_EQ(fileRead(local.filePath(names[0])), fileRead("board/" + names[0]) + '\n');
    EXPECT_EQ(status(), "Save " + names[0] + " to " + local.path());

    board->faultSet({Fault::Error, "Camera::calibrationGet"_id, 1, 0, "No room"});
    board->requestsClear();
    exportAll();
    EXPECT_EQ(status(), "Server: No room");
    EXPECT_EQ(board->requestCount(), 1u) << "nothing is fetched";

    config.preferences.calibration.path = local.filePath("gone");
    const ClosedBoxes boxes;
    exportAll();
    EXPECT_EQ(boxes.texts, QStringList("Calibration Settings: The save directory does not exist."));
    EXPECT_EQ(board->requestCount(), 1u);
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

    config.preferences.calibration.path = local.path();
    fileWrite(local.filePath("b.xml"), "an earlier file");
    board->faultSet({Fault::ResetInBody, Fault::Download});
    for (const bool isExport : {false, true})
    {
        isExport ? exportAll() : remote("b.xml", "Download");
        EXPECT_TRUE(status().contains(" failed: ")) << str(status());
        EXPECT_EQ(fileRead(local.filePath("b.xml")), "an earlier file");
    }
}

// Whatever the board calls a file, it is one in the user's directory, it is the one that the board means, or it stays
// where it is.
TEST_F(SettingsTransferTest, HostileNamesAreRefused)
{
    QDir(local.path()).mkpath("a/b");
    const auto directory = local.filePath("a/b");
    config.preferences.calibration.path = config.preferences.capture.path = directory;
    auto& holder = pMainWindow->clientHolder();
    const struct
    {
        std::string name;
        const char* failure; ///< null where the name is a file's
    } rows[] = {{"../up.pgm", nullptr},
                {"/etc/absolute.pgm", nullptr},
                {"50% \xc3\xa4.pgm", nullptr},
                {"..", "File name check failed"},
                {"", "File name check failed"},
                {"a\nb.pgm", "File name check failed"},
                {std::string(4000, 'n'), "File name check failed"},
                {"\xff.pgm", "is not plain UTF-8"},
                {"q?.pgm", "q?.pgm can't be named to the board, \"?\" has a meaning of its own"},
                {"h#.pgm", "h#.pgm can't be named to the board, \"#\" has a meaning of its own"},
                {"../?x/a.pgm", "can't be named to the board, \"?\" has a meaning of its own"},
                {"a%4f%1.pgm", "a%4f%1.pgm can't be named to the board, \"%4f\" has a meaning of its own"}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name.substr(0, 40));
        board->answerSet("Camera::capture"_id, "file.name", row.name);
        board->answerSet("Camera::calibrationGet"_id, "calib.file", row.name);
        const std::function<void()> operations[] = {
            [&] { exportAll(); },
            [&] {
                shortcut::guarded(pMainWindow.get(),
                                  [&] { shortcut::captureTake(holder, config.preferences.capture); });
            },
            [&]
            { shortcut::guarded(pMainWindow.get(), [&] { shortcut::remoteDownload(holder, row.name, directory); }); }};
        for (const auto& operation : operations)
        {
            pMainWindow->statusBar()->clearMessage();
            board->requestsClear();
            operation();
            EXPECT_TRUE(row.failure ? status().contains(row.failure) : !status().contains("failed")) << str(status());
            EXPECT_LE(status().size(), 4096 + 3);
            EXPECT_EQ(sent(Fault::Download), row.failure ? 0u : 1u);
            const auto stored = filesOf(directory);
            EXPECT_EQ(stored.size(), row.failure ? 0 : 1);
            EXPECT_TRUE(filesOf(local.path()).isEmpty() && filesOf(local.filePath("a")).isEmpty());
            for (const auto& name : stored)
                EXPECT_TRUE(QFile::remove(directory + "/" + name));
        }
    }
    EXPECT_FALSE(QFile::exists("/etc/absolute.pgm"));
}

TEST_F(SettingsTransferTest, NamesThatWouldBeOthersOnTheirWayAreNotSent)
{
    for (const auto* name : {"q.xml?.xml", "h.xml#.xml", "a%41.xml"})
    {
        fileWrite(QString("board/") + name, bytes);
        remote(name, "Activate");
        EXPECT_EQ(lastQuery("Camera::calibrationSet"_id)["calib.file"], name) << "no address is needed";
        remove(name, QMessageBox::Yes);
        EXPECT_TRUE(status().startsWith(QString("Remove failed: %1 can't be named to the board").arg(name)));
    }
    for (const auto* name : {"a&b.xml", "h#ash.xml", "a%41.xml"})
    {
        fileWrite(local.filePath(name), bytes);
        localImport(local.filePath(name));
        EXPECT_TRUE(status().startsWith(QString("Upload failed: %1 can't be named to the board").arg(name)));
    }
    EXPECT_EQ(sent("FileSystem::remove"_id) + sent(Fault::Upload), 0u);
}
