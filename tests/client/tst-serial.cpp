// The real window on the serial line of a simulated board.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/console-widget.h"

namespace
{
class SerialTest : public BoardTest
{
protected:
    SerialTest()
    {
        serialUse();
        page("Auto Exposure");
    }

    /// The boxes that come up when the window gets a client of that kind.
    QStringList connectTo(const std::string& type, const std::string& port)
    {
        auto jConfig = clientConfig(type, port);
        return boxesDuring([&] { pMainWindow->clientHolderSet(jConfig); });
    }

    /// Reads the page again; true when it was an answer of the board's that it shows.
    bool isWorking()
    {
        board->requestsClear();
        emit pMainWindow->refresh();
        return sent(4000101) == 1 && !led().toolTip().isEmpty();
    }

    bool isOverTheNetwork() const { return !board->requests().front().head.empty(); }
};
} // namespace

TEST_F(SerialTest, PageIsShownAndCommandsReachTheBoard)
{
    EXPECT_TRUE(isWorking() && !isOverTheNetwork());
    actionOf(pMainWindow->findChildren<QAction*>(), "&Start")->trigger();
    EXPECT_EQ(sent(10006), 1u);
    QCoreApplication::processEvents();
    const auto text = pMainWindow->console().toPlainText();
    EXPECT_TRUE(text.contains("[Client] <<< {\n  \"config\": \"")) << str(text);
    EXPECT_TRUE(text.endsWith("\"preview\": true\n}\n[Client] <<< {\n  \"error\": 0\n}\n")) << str(text);
}

TEST_F(SerialTest, DeviceThatVanishesAndComesBack)
{
    const auto name = QString::fromStdString(board->serialName());
    board->serialSet(false);
    emit pMainWindow->refresh();
    EXPECT_EQ(status(), name + ": write failed, 0 bytes written\n");
    EXPECT_TRUE(led().toolTip().isEmpty());
    board->serialSet(true);
    EXPECT_EQ(connectTo("uart", board->serialName()), QStringList());
    EXPECT_TRUE(isWorking());
}

TEST_F(SerialTest, UnusablePortLeavesTheEarlierConnection)
{
    // It is in use: by the earlier connection itself.
    const auto* pEarlier = &pMainWindow->clientHolder();
    const auto failure = QString("Open UART [%1] failed\n").arg(QString::fromStdString(board->serialName()));
    EXPECT_EQ(connectTo("uart", board->serialName()), QStringList("Warning: " + failure));
    EXPECT_EQ(status(), failure);
    EXPECT_EQ(&pMainWindow->clientHolder(), pEarlier);
    EXPECT_TRUE(isWorking());
    // To the network and back: the port is free as soon as it is left.
    for (const bool isHttp : {true, false})
    {
        EXPECT_EQ(connectTo(isHttp ? "http" : "uart", isHttp ? std::to_string(board->port()) : board->serialName()),
                  QStringList());
        EXPECT_TRUE(isWorking());
        EXPECT_EQ(isOverTheNetwork(), isHttp);
    }
}

TEST_F(SerialTest, FilesDoNotMove)
{
    const QTemporaryDir local;
    config.preferences.capture.path = config.preferences.calibration.path = local.path();
    auto* pCapture = actionOf(pMainWindow->findChildren<QAction*>(), "&Capture Image");
    pCapture->trigger();
    EXPECT_EQ(status(), "Capture failed: not available on this transport");
    EXPECT_TRUE(waitUntil([&] { return pCapture->isEnabled(); }));
    EXPECT_EQ(sent(10003), 0u);

    // What is said and sent behind a transfer stays the same.
    for (const auto* name : {"board/b.xml", "board/mine.xml"})
        fileWrite(name, "the board's");
    const auto mine = local.filePath("mine.xml");
    fileWrite(mine, "mine");
    auto* pImport = actionOf(pMainWindow->findChildren<QAction*>(), "&Import All Settings")->menu();
    {
        const FileDialogAnswer answer(mine);
        pImport->actions().first()->trigger();
    }
    EXPECT_EQ(status(), "Upload file from " + mine);
    EXPECT_EQ(lastQuery(10002)["calib.file"], "mine.xml");
    remoteChoose(pImport->actions().last()->menu(), "b.xml", "Download");
    EXPECT_EQ(status(), "Save file b.xml to " + local.path());
    EXPECT_EQ(QDir(local.path()).entryList(QDir::Files), QStringList("mine.xml"));
    EXPECT_EQ(fileRead("board/mine.xml"), "the board's");
    EXPECT_TRUE(isWorking());
}
