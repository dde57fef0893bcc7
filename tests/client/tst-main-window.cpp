#include "tests/support/board-fixture.h"
#include "tests/support/files.h"
#include "tuning-client/source/control/console-widget.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-rest/source/camera.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QAction>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QStatusTipEvent>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>

#include <stdexcept>

using board::Fault;

namespace
{
enum Command
{
    InputInfo = 10004,
    InputSwitch = 10005,
    Preview = 10006,
    AeConfigGet = 4000101
};

QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtWarningMsg)
        warnings.append(text);
}

/// Texts of the modal boxes that `action` opens; each is closed at once.
template <class Action>
QStringList boxesDuring(Action action)
{
    QStringList texts;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout,
                     [&]
                     {
                         if (auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                         {
                             texts.append(pBox->text());
                             pBox->accept();
                         }
                     });
    closer.start(1);
    action();
    return texts;
}
} // namespace

class MainWindowTest : public BoardTest
{
protected:
    MainWindowTest()
    {
        config.setting.isViewTemplate = false;
        config.setting.isViewTransfer = false;
    }

    ~MainWindowTest() override
    {
        pMainWindow.reset();
        QDir("chip").removeRecursively();
        chips.chips.clear();
        chips.chip.chipName.clear();
        chips.chip.pages.clear();
        config.preferences.server.type = "http";
        config.setting.chipName.clear();
    }

    QMenu* menu(const QString& title) const
    {
        for (auto* pAction : pMainWindow->menuBar()->actions())
        {
            if (pAction->text() == title)
                return pAction->menu();
        }
        ADD_FAILURE() << "no menu " << str(title);
        return nullptr;
    }

    static QStringList texts(const QList<QAction*>& actions)
    {
        QStringList list;
        for (const auto* pAction : actions)
            list.append(pAction->text());
        return list;
    }

    QAction* action(const QString& title, const QString& text) const { return actionOf(menu(title)->actions(), text); }

    QAction* tool(const QString& text) const { return actionOf(pMainWindow->findChild<QToolBar*>()->actions(), text); }

    static QAction* actionOf(const QList<QAction*>& actions, const QString& text)
    {
        for (auto* pAction : actions)
        {
            if (pAction->text() == text)
                return pAction;
        }
        throw std::logic_error("no action " + str(text));
    }

    /// The texts of the entries that are marked as current.
    QStringList marked(const QString& title) const
    {
        QStringList list;
        for (const auto* pAction : menu(title)->actions())
        {
            if (!pAction->icon().isNull())
                list.append(pAction->text());
        }
        return list;
    }

    QDockWidget* dock(const QString& name) const { return pMainWindow->findChild<QDockWidget*>(name); }
    QTreeView& tree() const { return *pMainWindow->findChild<QTreeView*>(); }
    QLabel& label(const QString& name) const { return *pMainWindow->statusBar()->findChild<QLabel*>(name); }

    QString console() const
    {
        QApplication::processEvents();
        return pMainWindow->console().toPlainText();
    }

    QStringList boxesOfClient(const Json::Value& jClient)
    {
        auto jConfig = jClient;
        return boxesDuring([&] { pMainWindow->clientHolderSet(jConfig); });
    }

    Json::Value boardClient() const
    {
        Json::Value jConfig;
        jConfig["type"] = "http";
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = board->port();
        return jConfig;
    }
};

TEST_F(MainWindowTest, StartsWithItsMenusToolsAndLabels)
{
    open();
    EXPECT_EQ(str(pMainWindow->windowTitle()), "Orlenta ISP Tuning Tools");
    EXPECT_FALSE(pMainWindow->windowIcon().isNull());
    EXPECT_GE(pMainWindow->width(), 1150);
    EXPECT_GE(pMainWindow->height(), 740);
    EXPECT_GE(pMainWindow->minimumWidth(), pMainWindow->sizeHint().width());

    QStringList titles;
    for (const auto* title : {"&Chip", "&File", "&Edit", "&View", "&Sensor", "&ISP", "&Help"})
        titles.append(title);
    EXPECT_EQ(texts(pMainWindow->menuBar()->actions()), titles);
    EXPECT_EQ(texts(menu("&File")->actions()),
              QStringList({"&Import All Settings", "&Export All Settings", "", "E&xit"}));
    EXPECT_EQ(menu("&Sensor")->objectName(), "Sensor Menu");
    EXPECT_EQ(menu("&ISP")->objectName(), "ISP Menu");

    const auto tools = texts(pMainWindow->findChild<QToolBar*>()->actions()).mid(0, 4);
    EXPECT_EQ(tools, QStringList({"Refresh Status", "", "&Start", "&Stop"}));
    for (const auto* text : {"Refresh Status", "&Start", "&Stop"})
        EXPECT_FALSE(tool(text)->icon().isNull()) << text;
    EXPECT_EQ(tool("&Start")->toolTip(), "Start Preview");
    EXPECT_EQ(tool("&Stop")->toolTip(), "Stop Preview");

    QStringList labels;
    for (const auto* pLabel : pMainWindow->statusBar()->findChildren<QLabel*>())
        labels.append(pLabel->objectName() + pLabel->text());
    EXPECT_EQ(labels, QStringList({"Sensor", "Sensor Index", "LED"}));
    EXPECT_EQ(label("LED").maximumSize(), QSize(16, 16));
    EXPECT_EQ(label("Sensor").maximumSize(), QSize(16, 16));
    EXPECT_TRUE(label("Sensor").pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(MainWindowTest, MessagesAreColoured)
{
    open();
    const struct
    {
        const char* message;
        const char* colour;
    } cases[]{
        {"Server: Too hot", "darkMagenta"},
        {"SERVER failed with an error", "darkMagenta"},
        {"no observer here", "darkMagenta"},
        {"It FAILED", "darkRed"},
        {"Error", "darkRed"},
        {"terrors", "darkRed"},
        {"Request update...", "default"},
        {"", "default"},
        {"failed", "darkRed"},
        {"fail err serve", "default"},
    };
    for (const auto& [message, colour] : cases)
    {
        pMainWindow->statusBar()->showMessage(message);
        EXPECT_EQ(str(pMainWindow->statusBar()->styleSheet()), "QStatusBar { color: " + std::string(colour) + "; }")
            << message;
    }
    // What an entry of a menu sends when the mouse is over it.
    for (const QString tip : {"", "a tip"})
    {
        pMainWindow->statusBar()->showMessage("It FAILED");
        QStatusTipEvent event(tip);
        QApplication::sendEvent(pMainWindow->menuBar(), &event);
        EXPECT_EQ(status(), tip.isEmpty() ? "It FAILED" : tip);
    }
}

TEST_F(MainWindowTest, DocksFollowTheirActionsAndTheSettings)
{
    const struct
    {
        const char* name;
        const char* text;
        Qt::DockWidgetArea area;
        bool cfg::Setting::*isView;
    } cases[]{
        {"Template", "&Template", Qt::LeftDockWidgetArea, &cfg::Setting::isViewTemplate},
        {"Transfer", "T&ransfer", Qt::BottomDockWidgetArea, &cfg::Setting::isViewTransfer},
    };
    for (const auto& [name, text, area, isView] : cases)
    {
        SCOPED_TRACE(name);
        for (const bool isShown : {false, true})
        {
            config.setting.*isView = isShown;
            open();
            EXPECT_EQ(dock(name)->isVisible(), isShown);
            EXPECT_EQ(action("&View", text)->isChecked(), isShown);
            EXPECT_EQ(pMainWindow->dockWidgetArea(dock(name)), area);
            EXPECT_EQ(int(dock(name)->allowedAreas()), int(area));

            action("&View", text)->trigger();
            EXPECT_EQ(dock(name)->isVisible(), !isShown);
            EXPECT_EQ(action("&View", text)->isChecked(), !isShown);
            pMainWindow->close();
            EXPECT_EQ(config.setting.*isView, !isShown) << "remembered on closing";
        }
        config.setting.*isView = true;
        open();
        dock(name)->close();
        EXPECT_FALSE(action("&View", text)->isChecked()) << "closed by its own button";
        action("&File", "E&xit")->trigger();
        EXPECT_FALSE(pMainWindow->isVisible());
        EXPECT_FALSE(config.setting.*isView);
    }
    open();
    EXPECT_EQ(pMainWindow->corner(Qt::BottomLeftCorner), Qt::LeftDockWidgetArea);
}

TEST_F(MainWindowTest, FirstChipIsTheRememberedOne)
{
    chipWrite("A", {"Auto Exposure"}, 1, 0);
    chipWrite("Z", {"Auto Exposure 2"}, 0, 1);
    const struct
    {
        const char* remembered;
        QStringList marked;
        const char* after;
    } cases[]{
        {"Z", {"Z"}, "Z"},
        {"", {"A"}, "A"},
        {"a", {}, "a"},
        {"gone", {}, "gone"},
    };
    for (const auto& [remembered, mark, after] : cases)
    {
        pMainWindow.reset();
        config.setting.chipName = remembered;
        open();
        EXPECT_EQ(texts(menu("&Chip")->actions()), QStringList({"A", "Full", "Z"})) << "sorted by name";
        EXPECT_EQ(marked("&Chip"), mark) << remembered;
        EXPECT_EQ(config.setting.chipName, after);
        EXPECT_EQ(pMainWindow->centralWidget() != nullptr, !mark.isEmpty());
        EXPECT_EQ(tree().model() != nullptr, !mark.isEmpty());
    }
    action("&Chip", "Full")->trigger();
    EXPECT_EQ(marked("&Chip"), QStringList("Full")) << "another one can be chosen";

    pMainWindow.reset();
    chips.chips.clear();
    config.setting.chipName.clear();
    open();
    EXPECT_TRUE(menu("&Chip")->isEmpty());
    EXPECT_EQ(pMainWindow->centralWidget(), nullptr);
    board->requestsClear();
    tool("Refresh Status")->trigger();
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(MainWindowTest, ChoosingAChipBuildsItAnew)
{
    chipWrite("Small", {"Auto Exposure 2", "auto exposure", "Exposure Control"}, 0, 3);
    open();
    EXPECT_EQ(texts(menu("&Sensor")->actions()), QStringList({"Sensor &0", "Sensor &1"}));
    EXPECT_EQ(texts(menu("&ISP")->actions()), QStringList({"Core &0", "Core &1"}));
    action("&Sensor", "Sensor &1")->trigger();
    action("&ISP", "Core &0")->trigger();

    QPointer<QWidget> pOld = pMainWindow->centralWidget();
    QPointer<QAbstractItemModel> pOldModel = tree().model();
    action("&Chip", "Full")->trigger();
    ASSERT_NE(pMainWindow->centralWidget(), pOld);
    EXPECT_NE(tree().model(), pOldModel);
    EXPECT_EQ(marked("&Chip"), QStringList("Full"));
    EXPECT_TRUE(marked("&Sensor").isEmpty() && marked("&ISP").isEmpty()) << "these menus are new";
    EXPECT_TRUE(waitUntil([&] { return pOld.isNull(); })) << "the earlier pages are gone";

    board->requestsClear();
    action("&Chip", "Small")->trigger();
    EXPECT_EQ(marked("&Chip"), QStringList("Small"));
    EXPECT_EQ(config.setting.chipName, "Small");
    EXPECT_TRUE(menu("&Sensor")->isEmpty());
    EXPECT_EQ(texts(menu("&ISP")->actions()), QStringList({"Core &0", "Core &1", "Core &2"}));
    EXPECT_EQ(tree().model()->rowCount(), 3);
    EXPECT_EQ(tree().model()->index(1, 0).data(), "auto exposure");
    EXPECT_EQ(central().pStackedWidget->count(), 2) << "names are compared exactly";
    EXPECT_TRUE(waitUntil([&] { return sent(AeConfigGet) > 0; })) << "the first page reads";

    tree().setCurrentIndex(tree().model()->index(1, 0));
    EXPECT_EQ(central().pStackedWidget->currentIndex(), 1);
    tree().setCurrentIndex(tree().model()->index(2, 0));
    EXPECT_EQ(central().pStackedWidget->currentIndex(), 1) << "no such page";
    tree().setCurrentIndex(tree().model()->index(0, 0));
    EXPECT_EQ(central().pStackedWidget->currentIndex(), 0);
    EXPECT_TRUE(central().pStackedWidget->currentWidget()->isVisible());

    tree().setCurrentIndex(tree().model()->index(2, 0));
    action("&Chip", "Full")->trigger();
    EXPECT_EQ(central().pStackedWidget->currentIndex(), 0);
}

TEST_F(MainWindowTest, BrokenChipFilesLeaveAWorkingWindow)
{
    qInstallMessageHandler(collectWarnings);
    const struct
    {
        const char* what;
        QByteArray text; // null removes the file
        int pages;
    } cases[]{
        {"gone", {}, 1},
        {"other root", "<Other/>", 1},
        {"cut", "<Table ChipName=\"A\" InputMax=\"1\"><Page Name=\"Exposure Control\"/><Pa", 1},
        {"no page", "<Table ChipName=\"A\"/>", 0},
        {"entities", "<!DOCTYPE T [<!ENTITY a \"b\">]><Table ChipName=\"A\"/>", 0},
        {"deep", "<Table ChipName=\"A\">" + QByteArray("<a>").repeated(100000), 0},
        {"long names", "<Table ChipName=\"A\"><Page Name=\"" + QByteArray(10 << 20, 'n') + "\"/></Table>", 0},
        {"many pages", "<Table ChipName=\"A\">" + QByteArray("<Page Name=\"n\"/>").repeated(100000) + "</Table>", 0},
        {"many inputs", "<Table ChipName=\"A\" InputMax=\"2000000000\"/>", 0},
    };
    config.setting.isViewTemplate = true;
    chipWrite("A", {"Auto Exposure"}, 1, 0);
    open();
    action("&Chip", "A")->trigger();
    for (const auto& [what, text, pages] : cases)
    {
        QFile file("chip/A.xml");
        file.remove();
        if (!text.isNull())
        {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(text);
            file.close();
        }
        QElapsedTimer clock;
        clock.start();
        action("&Chip", "A")->trigger();
        QApplication::processEvents();
        EXPECT_LT(clock.elapsed(), waitLimit() / 2) << what;
        EXPECT_EQ(central().pStackedWidget->count(), pages) << what;
        EXPECT_LE(menu("&Sensor")->actions().size(), 64) << what;
    }
    qInstallMessageHandler(nullptr);
    action("&Chip", "Full")->trigger();
    EXPECT_EQ(central().pStackedWidget->count(), CentralWidget::catalogue().size());
}

TEST_F(MainWindowTest, InputIsSwitchedOnceAndShown)
{
    open();
    board->requestsClear();
    action("&Sensor", "Sensor &1")->trigger();
    ASSERT_EQ(sent(InputSwitch), 1u);
    EXPECT_EQ(board->requests().back().query["index"], 1);
    EXPECT_EQ(marked("&Sensor"), QStringList("Sensor &1"));
    EXPECT_EQ(label("Sensor Index").text(), "1");
    EXPECT_EQ(label("Sensor").pixmap(Qt::ReturnByValue).width(), 16);

    action("&Sensor", "Sensor &1")->trigger();
    EXPECT_EQ(sent(InputSwitch), 1u) << "it is the current one";
    action("&Sensor", "Sensor &0")->trigger();
    EXPECT_EQ(sent(InputSwitch), 2u);
    EXPECT_EQ(marked("&Sensor"), QStringList("Sensor &0"));

    action("&ISP", "Core &1")->trigger();
    action("&ISP", "Core &0")->trigger();
    EXPECT_EQ(marked("&ISP"), QStringList("Core &0"));
    EXPECT_EQ(marked("&Sensor"), QStringList("Sensor &0")) << "each menu has a mark of its own";
    EXPECT_EQ(board->requestCount(), 2u) << "choosing a core sends nothing";
}

TEST_F(MainWindowTest, FailedInputSwitchGoesToTheLogOnly)
{
    open();
    pMainWindow->statusBar()->showMessage("as before");
    board->faultSet({Fault::Error, InputSwitch, -1, 0, "100% gone %s%n"});
    qInstallMessageHandler(collectWarnings);
    warnings.clear();
    action("&Sensor", "Sensor &1")->trigger();
    qInstallMessageHandler(nullptr);
    EXPECT_EQ(warnings, QStringList("Server: 100% gone %s%n"));
    EXPECT_EQ(str(status()), "as before");
    EXPECT_EQ(marked("&Sensor"), QStringList("Sensor &1"));
    EXPECT_EQ(label("Sensor Index").text(), "1");
}

TEST_F(MainWindowTest, ToolBarReachesTheBoard)
{
    page("Auto Exposure");
    for (const bool isOn : {true, false})
    {
        board->requestsClear();
        tool(isOn ? "&Start" : "&Stop")->trigger();
        ASSERT_EQ(sent(Preview), 1u);
        EXPECT_EQ(board->requests().back().query["preview"], isOn);
    }
    board->requestsClear();
    tool("Refresh Status")->trigger();
    EXPECT_GT(sent(AeConfigGet), 0u);
    for (const auto& request : board->requests())
        EXPECT_EQ(request.query["generation"].asInt(), 0) << "only the visible page reads: " << request.body;

    const struct
    {
        Fault fault;
        const char* text;
        const char* colour;
    } cases[]{
        {{Fault::Error}, "Server: The board refuses", "darkMagenta"},
        {{Fault::ErrorBare}, "REST: rest::Camera::preview() failed", "darkRed"},
        {{Fault::NotJson}, "JSON parse failed", "darkRed"},
        {{Fault::Close}, "Connection to 127.0.0.1", "darkRed"},
        {{Fault::WrongTypes, 0, -1, 0, "error"}, "Error in the answer: \"error\" is not an integer", "darkRed"},
        {{Fault::MessageControl}, "Server: ?[31mred?", "darkMagenta"},
        {{Fault::MessageLong}, "Server: mmmm", "darkMagenta"},
    };
    for (const auto& [fault, text, colour] : cases)
    {
        board->faultSet(fault);
        for (const auto* name : {"&Start", "&Stop"})
        {
            pMainWindow->statusBar()->clearMessage();
            tool(name)->trigger();
            EXPECT_TRUE(status().startsWith(text)) << str(status().left(200)) << " for " << text;
            EXPECT_LE(status().size(), 4100);
            EXPECT_TRUE(pMainWindow->statusBar()->styleSheet().contains(colour)) << text;
        }
    }
}

TEST_F(MainWindowTest, UnusableServersTellAtTheFirstCommand)
{
    const auto port = board->port();
    const struct
    {
        QVector<QPair<QString, uint16_t>> hosts;
        int index;
        const char* atStart; // null where there is nothing to tell
        const char* atCommand;
    } cases[]{
        {{}, 0, "Server list is empty", "\"\" is not the address of a board"},
        {{{"127.0.0.1", port}}, 1, "Server index is out of range", "\"\" is not the address of a board"},
        {{{"127.0.0.1", port}}, -1, "Server index is out of range", "\"\" is not the address of a board"},
        {{{"", port}}, 0, nullptr, "\"\" is not the address of a board"},
        {{{"127.0.0.1", 0}}, 0, nullptr, "\"0\" is not a port from 1 to 65535"},
        {{{"127.0.0.1", 1}}, 0, nullptr, "refused"},
        {{{"nowhere.invalid", port}}, 0, nullptr, "nowhere.invalid"},
        {{{"bad host\n", port}}, 0, nullptr, "is not the address of a board"},
        {{{"wrong", 1}, {"127.0.0.1", port}}, 1, nullptr, ""},
    };
    config.setting.chipName = "none";
    for (const auto& [hosts, index, atStart, atCommand] : cases)
    {
        config.preferences.server.http.collection = hosts;
        config.preferences.server.http.index = index;
        pMainWindow.reset();
        open();
        EXPECT_EQ(str(status()), atStart ? atStart : "");
        EXPECT_FALSE(pMainWindow->statusBar()->styleSheet().contains("dark"));
        EXPECT_NO_THROW(pMainWindow->clientHolder());
        tool("&Start")->trigger();
        if (*atCommand)
            EXPECT_TRUE(status().contains(atCommand)) << str(status());
        else
            EXPECT_EQ(str(status()), "");
        EXPECT_EQ(sent(Preview), *atCommand ? 0u : 1u);
    }
    board->listenSet(false);
    tool("&Start")->trigger();
    EXPECT_TRUE(status().contains("refused")) << str(status());
    board->listenSet(true);
    tool("&Start")->trigger();
    EXPECT_EQ(sent(Preview), 2u) << "the board is back";
}

TEST_F(MainWindowTest, ClientIsReplacedOrStays)
{
    open();
    auto* pFirst = &pMainWindow->clientHolder();
    Json::Value jConfig;
    const struct
    {
        const char* text;
        const char* box;
        const char* status;
    } cases[]{
        {R"({"type":"pigeon"})", "Unset client type", "as before"},
        {R"({})", "Unset client type", "as before"},
        {R"({"type":5})", "Unset client type", "as before"},
        {R"({"type":"uart","port":"/dev/null"})", "Open UART [/dev/null] failed\n", "Open UART [/dev/null] failed\n"},
        {R"({"type":"http","ip":{},"port":1})", nullptr, nullptr},
        {R"(["http"])", nullptr, nullptr},
    };
    for (const auto& [text, box, statusText] : cases)
    {
        Json::Reader().parse(text, jConfig);
        pMainWindow->statusBar()->showMessage("as before");
        const auto boxes = boxesOfClient(jConfig);
        ASSERT_EQ(boxes.size(), 1) << text;
        if (box)
        {
            EXPECT_EQ(str(boxes[0]), box);
            EXPECT_EQ(str(status()), statusText);
        }
        EXPECT_EQ(&pMainWindow->clientHolder(), pFirst) << text;
        board->requestsClear();
        tool("&Start")->trigger();
        EXPECT_EQ(sent(Preview), 1u) << "the earlier connection goes on working";
    }

    board::Simulator other(board::Options{0, "other"});
    jConfig = boardClient();
    jConfig["port"] = std::to_string(other.port());
    EXPECT_TRUE(boxesOfClient(jConfig).isEmpty());
    board->requestsClear();
    tool("&Start")->trigger();
    EXPECT_EQ(sent(Preview), 0u);
    EXPECT_EQ(other.count(Preview), 1u) << "port as text, the new board";
    EXPECT_TRUE(boxesOfClient(boardClient()).isEmpty());
}

TEST_F(MainWindowTest, StartsWithoutAClientWhereNoneCanBeBuilt)
{
    config.preferences.server.type = "uart";
    config.setting.chipName = "none";
    EXPECT_EQ(boxesDuring([&] { open(); }), QStringList("Open UART [] failed\n"));
    tool("&Start")->trigger();
    EXPECT_EQ(str(status()), "Transfer is never initialized");
    try
    {
        pMainWindow->clientHolder();
        ADD_FAILURE();
    }
    catch (const t_common::LogicError& error)
    {
        EXPECT_EQ(error.error, 9);
        EXPECT_STREQ(error.what(), "pClientHolder is never initialized");
    }
    config.preferences.server.type = "pigeon";
    pMainWindow.reset();
    EXPECT_EQ(boxesDuring([&] { open(); }), QStringList("Unset client type"));
    EXPECT_TRUE(boxesOfClient(boardClient()).isEmpty());
    tool("&Start")->trigger();
    EXPECT_EQ(sent(Preview), 1u);
    pMainWindow.reset();
    EXPECT_THROW(rest::Camera().preview(true), std::logic_error) << "no connection outlives its window";
}

TEST_F(MainWindowTest, TrafficGoesToTheConsole)
{
    config.setting.chipName = "none";
    config.setting.isViewTransfer = true;
    open();
    tool("&Start")->trigger();
    EXPECT_TRUE(console().contains("[Client] >>> {\n")) << str(console());
    EXPECT_TRUE(console().contains("\"preview\": true")) << str(console());
    EXPECT_TRUE(console().contains("[Client] <<< {\n"));
    const auto before = console().count("<<<");
    board->faultSet({Fault::Close});
    tool("&Start")->trigger();
    EXPECT_EQ(console().count("<<<"), before) << "no answer, no line";
    EXPECT_EQ(console().count(">>>"), before + 1);
}

TEST_F(MainWindowTest, PagesLeaveAnEntryEach)
{
    config.widget.jRoot = {};
    open();
    for (const auto* name : {"Auto Exposure", "Exposure Control"})
        EXPECT_TRUE(config.widget.jRoot.contains(name)) << name;
}

TEST_F(MainWindowTest, StoredPageSizesMayBeAnything)
{
    config.preferences.window.isAutoResize = true;
    for (const auto& size : {QJsonValue(QJsonObject({{"width", 2147483647}, {"height", 2147483647}})),
                             QJsonValue(QJsonObject({{"width", 16777215}, {"height", 16777215}})),
                             QJsonValue(QJsonObject({{"width", 40000}, {"height", 40000}})),
                             QJsonValue(QJsonObject({{"width", -5}, {"height", "x"}})), QJsonValue(5),
                             QJsonValue(QJsonObject({{"height", 900}}))})
    {
        pMainWindow.reset();
        config.widget.jRoot["Auto Exposure"] = QJsonObject({{"size", size}});
        open();
        QApplication::processEvents();
        EXPECT_GE(pMainWindow->width(), 1150);
        EXPECT_LT(pMainWindow->width(), 10000) << "no screen is that large";
    }
    config.preferences.window.isAutoResize = false;
    config.widget.jRoot = {};
}
