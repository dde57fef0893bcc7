// The real window on the serial line of a simulated board.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/console-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"

#include <QAction>
#include <QMessageBox>
#include <QSlider>
#include <QTest>
#include <QTimer>

using board::Fault;

namespace
{
class SerialTest : public BoardTest
{
protected:
    SerialTest()
    {
        board.reset();
        board = std::make_unique<board::Simulator>(board::Options{0, "board", false, true});
        // Auto exposure off frees the controls of the exposure pages.
        Json::Value query;
        query["function"] = "test";
        query["id"] = 4000104;
        query["enable"] = false;
        query["generation"] = 0;
        board->execute(query);
        config.preferences.server.type = "uart";
        config.preferences.server.uart.port = QString::fromStdString(board->serialName());
    }

    ~SerialTest() override { config.preferences.server.type = "http"; }

    Json::Value portConfig() const
    {
        Json::Value jConfig;
        jConfig["type"] = "uart";
        jConfig["port"] = board->serialName();
        return jConfig;
    }

    QString console()
    {
        QCoreApplication::processEvents();
        return pMainWindow->console().toPlainText();
    }

    /// The text of the box that the action brings up, which is closed at once.
    static QString boxOf(const std::function<void()>& action)
    {
        QString text;
        QTimer closer;
        closer.setSingleShot(true);
        QObject::connect(&closer, &QTimer::timeout,
                         [&text]
                         {
                             if (auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                             {
                                 text = pBox->text();
                                 pBox->accept();
                             }
                         });
        closer.start(0);
        action();
        return text;
    }

    static QString openFailure(const std::string& port)
    {
        return QString("Open UART [%1] failed\n").arg(QString::fromStdString(port));
    }

    /// Reads the page again; true when it was an answer of the board's that it shows.
    bool isWorking()
    {
        board->requestsClear();
        emit pMainWindow->refresh();
        return sent(4000101) == 1 && !led().toolTip().isEmpty();
    }
};
} // namespace

TEST_F(SerialTest, PageIsShownAndChanged)
{
    config.setting.isViewTransfer = true;
    auto& widget = page("Auto Exposure");
    EXPECT_FALSE(led().toolTip().isEmpty());
    for (const auto& request : board->requests())
        EXPECT_EQ(request.head, "") << "that came over the network";
    ASSERT_GE(sent(4000101), 1u);
    auto text = console();
    EXPECT_TRUE(text.contains("[Client] >>> {\n  \"function\": \"rest::Ae::configGet\",\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("[Client] <<< {\n  \"config\": \"")) << text.toStdString();

    const auto before = board->recordGet("Ae", 0);
    board->requestsClear();
    QSlider* pSlider = nullptr;
    for (auto* pChild : widget.findChildren<QSlider*>())
        pSlider = pSlider || !pChild->isVisible() || !pChild->isEnabled() ? pSlider : pChild;
    ASSERT_TRUE(pSlider);
    QTest::keyClick(pSlider, Qt::Key_Up);
    ASSERT_EQ(sent(4000102), 1u);
    EXPECT_NE(board->recordGet("Ae", 0), before);
    const auto body = board->requests().front().body;
    EXPECT_EQ(body.front(), '{');
    EXPECT_EQ(body.back(), '}');
    text = console();
    EXPECT_TRUE(text.contains("\"id\": 4000102\n}\n[Client] <<< {\n  \"error\": 0\n}\n")) << text.toStdString();
    EXPECT_EQ(pMainWindow->statusBar()->styleSheet(), "QStatusBar { color: default; }");
}

TEST_F(SerialTest, FailuresReachTheStatusBar)
{
    page("Auto Exposure");
    const std::pair<Fault, QString> cases[] = {
        {{Fault::Error}, "Server: The board refuses"},
        {{Fault::NotJson}, "JSON parse failed: "},
        {{Fault::AnswerArray}, "JSON parse failed: the answer is no object"},
        {{Fault::RecordShort}, "Base64 decode failed: object size not match"},
    };
    for (const auto& [fault, text] : cases)
    {
        board->faultSet(fault);
        emit pMainWindow->refresh();
        EXPECT_TRUE(status().startsWith(text)) << status().toStdString();
        board->faultsClear();
        EXPECT_TRUE(isWorking()) << text.toStdString();
    }
}

TEST_F(SerialTest, DeviceThatVanishesAndComesBack)
{
    page("Auto Exposure");
    const auto name = QString::fromStdString(board->serialName());
    board->serialSet(false);
    emit pMainWindow->refresh();
    EXPECT_EQ(status(), name + ": write failed, 0 bytes written\n");
    EXPECT_EQ(pMainWindow->statusBar()->styleSheet(), "QStatusBar { color: darkRed; }");
    EXPECT_TRUE(led().toolTip().isEmpty());

    board->serialSet(true);
    auto jConfig = portConfig();
    EXPECT_EQ(boxOf([&] { pMainWindow->clientHolderSet(jConfig); }), "");
    EXPECT_TRUE(isWorking());
}

TEST_F(SerialTest, CaptureIsRefusedWithAText)
{
    page("Auto Exposure");
    QDir().mkpath("captures");
    config.preferences.capture.path = QDir::currentPath() + "/captures";
    QAction* pCapture = nullptr;
    for (auto* pAction : pMainWindow->findChildren<QAction*>())
        pCapture = pAction->text() == "&Capture Image" ? pAction : pCapture;
    ASSERT_TRUE(pCapture);
    pCapture->trigger();
    EXPECT_EQ(status(), "Capture failed: not available on this transport");
    EXPECT_TRUE(waitUntil([&] { return pCapture->isEnabled(); }));
    EXPECT_EQ(sent(10003), 0u);
    EXPECT_TRUE(isWorking());
}

TEST_F(SerialTest, UnusablePortLeavesTheEarlierConnection)
{
    page("Auto Exposure");
    const auto* pEarlier = &pMainWindow->clientHolder();
    // The port that is in use is that of the earlier connection itself.
    for (const auto& port : {std::string("/no/such/port"), std::string("setting.json"), board->serialName()})
    {
        auto jConfig = portConfig();
        jConfig["port"] = port;
        EXPECT_EQ(boxOf([&] { pMainWindow->clientHolderSet(jConfig); }), openFailure(port));
        EXPECT_EQ(status(), openFailure(port));
        EXPECT_EQ(&pMainWindow->clientHolder(), pEarlier);
        EXPECT_TRUE(isWorking());
    }
    auto jConfig = portConfig();
    jConfig["type"] = "usb";
    EXPECT_EQ(boxOf([&] { pMainWindow->clientHolderSet(jConfig); }), "Unset client type");
    EXPECT_TRUE(isWorking());

    // To the network and back: the port is free as soon as it is left.
    jConfig["type"] = "http";
    jConfig["ip"] = "127.0.0.1";
    jConfig["port"] = board->port();
    EXPECT_EQ(boxOf([&] { pMainWindow->clientHolderSet(jConfig); }), "");
    EXPECT_TRUE(isWorking());
    EXPECT_NE(board->requests().front().head, "");
    jConfig = portConfig();
    EXPECT_EQ(boxOf([&] { pMainWindow->clientHolderSet(jConfig); }), "");
    EXPECT_TRUE(isWorking());
    EXPECT_EQ(board->requests().front().head, "");
}

TEST_F(SerialTest, StartWithoutThePortOpensTheWindow)
{
    config.preferences.server.uart.port = "no-such-port";
    EXPECT_EQ(boxOf([&] { open(); }), openFailure("no-such-port"));
    page("Auto Exposure");
    EXPECT_EQ(status(), "Transfer is never initialized");
    auto jConfig = portConfig();
    pMainWindow->clientHolderSet(jConfig);
    EXPECT_TRUE(isWorking());
}
