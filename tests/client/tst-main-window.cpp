#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/console-widget.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-rest/source/camera.h"

#include <stdexcept>

using board::Fault;

namespace
{
QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtWarningMsg)
        warnings.append(text);
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

    QMenu* menu(const QString& title) const { return actionOf(pMainWindow->menuBar()->actions(), title)->menu(); }
    QAction* action(const QString& title, const QString& text) const { return actionOf(menu(title)->actions(), text); }
    QAction* tool(const QString& text) const { return actionOf(pMainWindow->findChild<QToolBar*>()->actions(), text); }

    /// The texts of the entries that are marked as current.
    QStringList marked(const QString& title) const
    {
        QStringList list;
        for (const auto* pAction : menu(title)->actions())
            if (!pAction->icon().isNull())
                list.append(pAction->text());
        return list;
    }

    QDockWidget* dock(const QString& name) const { return pMainWindow->findChild<QDockWidget*>(name); }
    QTreeView& tree() const { return *pMainWindow->findChild<QTreeView*>(); }
    QLabel& label(const QString& name) const { return *pMainWindow->statusBar()->findChild<QLabel*>(name); }

    QStringList boxesOfClient(Json::Value jConfig)
    {
        return boxesDuring([&] { pMainWindow->clientHolderSet(jConfig); });
    }

    /// Whether the command of the tool bar reaches that board.
    bool isConnected(board::Simulator& to)
    {
        to.requestsClear();
        tool("&Start")->trigger();
        return to.count("Camera::preview"_id) == 1;
    }
};

TEST_F(MainWindowTest, StartsWithItsMenusAndTools)
{
    config.widget.jRoot = {};
    open();
    EXPECT_EQ(str(pMainWindow->windowTitle()), "Orlenta ISP Tuning Tools");
    EXPECT_FALSE(pMainWindow->windowIcon().isNull());
    EXPECT_GE(pMainWindow->minimumWidth(), qMax(1150, pMainWindow->sizeHint().width()));
    EXPECT_GE(pMainWindow->minimumHeight(), 740);
    EXPECT_EQ(texts(pMainWindow->menuBar()->actions()),
              QStringList({"&Chip", "&File", "&Edit", "&View", "&Sensor", "&ISP", "&Help"}));
    EXPECT_EQ(texts(pMainWindow->findChild<QToolBar*>()->actions()),
              QStringList({"Refresh Status", "", "&Start", "&Stop", "", "&Capture Image"}));
    for (const auto* text : {"Refresh Status", "&Start", "&Stop", "&Capture Image"})
        EXPECT_FALSE(tool(text)->icon().isNull()) << text;
    EXPECT_EQ(tool("&Start")->toolTip() + tool("&Stop")->toolTip(), "Start PreviewStop Preview");
    EXPECT_EQ(label("LED").maximumSize(), QSize(16, 16));
    EXPECT_TRUE(config.widget.jRoot.contains("Exposure Control")) << "a page that was never shown has an entry too";
}

TEST_F(MainWindowTest, MessagesAreColoured)
{
    open();
    const std::pair<const char*, const char*> cases[]{
        {"SERVER failed with an error", "darkMagenta"},
        {"no observer here", "darkMagenta"},
        {"It FAILED", "darkRed"},
        {"terrors", "darkRed"},
        {"fail err serve", "default"},
    };
    for (const auto& [message, colour] : cases)
    {
        pMainWindow->statusBar()->showMessage(message);
        EXPECT_EQ(str(pMainWindow->statusBar()->styleSheet()), "QStatusBar { color: " + std::string(colour) + "; }")
            << message;
    }
    // What an entry of a menu sends when the mouse is over it.
    pMainWindow->statusBar()->showMessage("It FAILED");
    QStatusTipEvent event("");
    QApplication::sendEvent(pMainWindow->menuBar(), &event);
    EXPECT_EQ(status(), "It FAILED");
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
            pMainWindow->close();
            EXPECT_EQ(config.setting.*isView, !isShown) << "remembered on closing";
        }
        config.setting.*isView = true;
        open();
        dock(name)->close();
        EXPECT_FALSE(action("&View", text)->isChecked()) << "closed by its own button";
        action("&File", "E&xit")->trigger();
        EXPECT_FALSE(pMainWindow->isVisible() || config.setting.*isView);
    }
    EXPECT_EQ(pMainWindow->corner(Qt::BottomLeftCorner), Qt::LeftDockWidgetArea);
}

TEST_F(MainWindowTest, FirstChipIsTheRememberedOne)
{
    chipWrite("A", {"Auto Exposure"}, 1, 0);
    chipWrite("Z", {"Auto Exposure 2"}, 0, 1);
    for (const auto& [remembered, chosen] : {std::make_pair("Z", "Z"), {"", "A"}, {"a", ""}})
    {
        SCOPED_TRACE(remembered);
        pMainWindow.reset();
        config.setting.chipName = remembered;
        open();
        EXPECT_EQ(texts(menu("&Chip")->actions()), QStringList({"A", "Full", "Z"})) << "sorted by name";
        EXPECT_EQ(str(marked("&Chip").join("")), chosen);
        EXPECT_EQ(str(config.setting.chipName), *chosen ? chosen : remembered);
        EXPECT_EQ(pMainWindow->centralWidget() != nullptr, *chosen != 0);
    }
    action("&Chip", "Full")->trigger();
    EXPECT_EQ(marked("&Chip"), QStringList("Full")) << "another one can be chosen";

    pMainWindow.reset();
    chips.chips.clear();
    config.setting.chipName.clear();
    open();
    EXPECT_TRUE(menu("&Chip")->isEmpty());
    EXPECT_EQ(pMainWindow->centralWidget(), nullptr);
    tool("Refresh Status")->trigger();
}

TEST_F(MainWindowTest, ChoosingAChipBuildsItAnew)
{
    chipWrite("Small", {"Auto Exposure 2", "auto exposure", "Exposure Control"}, 0, 3);
    open();
    EXPECT_EQ(texts(menu("&Sensor")->actions()), QStringList({"Sensor &0", "Sensor &1"}));
    action("&Sensor", "Sensor &1")->trigger();
    const auto icon = action("&Sensor", "Sensor &1")->icon();
    const auto corner = [&](QIcon::Mode mode) { return icon.pixmap(16, mode).toImage().pixelColor(0, 0); };
    EXPECT_EQ(corner(QIcon::Normal).alpha(), 0);
    EXPECT_EQ(corner(QIcon::Active), QColor(Qt::white)) << "dark on a dark highlight";
    action("&ISP", "Core &0")->trigger();

    QPointer<QWidget> pOld = pMainWindow->centralWidget();
    QPointer<QAbstractItemModel> pOldModel = tree().model();
    action("&Chip", "Full")->trigger();
    ASSERT_NE(pMainWindow->centralWidget(), pOld);
    EXPECT_TRUE(pOldModel.isNull());
    EXPECT_TRUE(marked("&Sensor").isEmpty() && marked("&ISP").isEmpty()) << "these menus are new";
    EXPECT_TRUE(waitUntil([&] { return pOld.isNull(); })) << "the earlier pages are gone";

    board->requestsClear();
    action("&Chip", "Small")->trigger();
    EXPECT_EQ(marked("&Chip"), QStringList("Small"));
    EXPECT_EQ(config.setting.chipName, "Small");
    EXPECT_TRUE(menu("&Sensor")->isEmpty());
    EXPECT_EQ(texts(menu("&ISP")->actions()), QStringList({"Core &0", "Core &1", "Core &2"}));
    EXPECT_EQ(tree().model()->index(1, 0).data(), "auto exposure");
    EXPECT_EQ(central().pStackedWidget->count(), 2) << "names are compared exactly";
    EXPECT_TRUE(waitUntil([&] { return sent("Ae::configGet"_id) > 0; })) << "the first page reads";

    // The third row has no page.
    for (const auto& [row, shown] : {std::make_pair(1, 1), {2, 1}, {0, 0}, {2, 0}})
    {
        tree().setCurrentIndex(tree().model()->index(row, 0));
        EXPECT_EQ(central().pStackedWidget->currentIndex(), shown);
    }

    // Its file is gone: the chip stays as it is.
    QFile::remove("chip/Full.xml");
    action("&Chip", "Full")->trigger();
    EXPECT_EQ(central().pStackedWidget->count(), 2);
}

TEST_F(MainWindowTest, InputIsSwitchedOnceAndShown)
{
    open();
    board->requestsClear();
    action("&Sensor", "Sensor &1")->trigger();
    ASSERT_EQ(sent("Camera::inputSwitch"_id), 1u);
    EXPECT_EQ(lastQuery("Camera::inputSwitch"_id)["index"], 1);
    EXPECT_EQ(marked("&Sensor"), QStringList("Sensor &1"));
    EXPECT_EQ(label("Sensor Index").text(), "1");
    EXPECT_EQ(label("Sensor").pixmap(Qt::ReturnByValue).width(), 16);
    action("&Sensor", "Sensor &1")->trigger();
    EXPECT_EQ(sent("Camera::inputSwitch"_id), 1u) << "it is the current one";

    action("&ISP", "Core &1")->trigger();
    action("&ISP", "Core &0")->trigger();
    EXPECT_EQ(marked("&ISP"), QStringList("Core &0"));
    EXPECT_EQ(board->requestCount(), 1u) << "choosing a core sends nothing";

    // A failure goes to the log only.
    pMainWindow->statusBar()->showMessage("as before");
    board->faultSet({Fault::Error, "Camera::inputSwitch"_id, -1, 0, "100% gone %s%n"});
    qInstallMessageHandler(collectWarnings);
    warnings.clear();
    action("&Sensor", "Sensor &0")->trigger();
    qInstallMessageHandler(nullptr);
    EXPECT_EQ(warnings, QStringList("Server: 100% gone %s%n"));
    EXPECT_EQ(str(status()), "as before");
    EXPECT_EQ(marked("&Sensor"), QStringList("Sensor &0"));
    EXPECT_EQ(label("Sensor Index").text(), "0");
}

TEST_F(MainWindowTest, ToolBarReachesTheBoard)
{
    page("Auto Exposure");
    for (const bool isOn : {true, false})
    {
        board->requestsClear();
        tool(isOn ? "&Start" : "&Stop")->trigger();
        ASSERT_EQ(sent("Camera::preview"_id), 1u);
        EXPECT_EQ(lastQuery("Camera::preview"_id)["preview"], isOn);
        board->faultSet({Fault::Error, "Camera::preview"_id});
        tool(isOn ? "&Start" : "&Stop")->trigger();
        EXPECT_EQ(str(status()), "Server: The board refuses");
        board->faultsClear();
    }
    QApplication::processEvents();
    EXPECT_TRUE(pMainWindow->console().toPlainText().contains("\"preview\": true"));

    board->requestsClear();
    tool("Refresh Status")->trigger();
    EXPECT_GT(sent("Ae::configGet"_id), 0u);
    for (const auto& request : board->requests())
        EXPECT_EQ(request.query["generation"].asInt(), 0) << "only the visible page reads: " << request.body;
}

TEST_F(MainWindowTest, UnusableServersTellAtTheFirstCommand)
{
    const QPair<QString, uint16_t> usable("127.0.0.1", board->port());
    const struct
    {
        QVector<QPair<QString, uint16_t>> hosts;
        int index;
        const char* atStart;
    } cases[]{
        {{}, 0, "Server list is empty"},
        {{usable}, 1, "Server index is out of range"},
        {{{"wrong", 1}, usable}, 1, ""},
    };
    config.setting.chipName = "none";
    for (const auto& [hosts, index, atStart] : cases)
    {
        config.preferences.server.http.collection = hosts;
        config.preferences.server.http.index = index;
        pMainWindow.reset();
        open();
        EXPECT_EQ(str(status()), atStart);
        EXPECT_EQ(isConnected(*board), !*atStart);
        EXPECT_EQ(str(status()), *atStart ? "No board chosen: Edit > Preferences > Server Settings" : "");
    }
}

TEST_F(MainWindowTest, ClientIsReplacedOrStays)
{
    open();
    pMainWindow->statusBar()->showMessage("as before");
    EXPECT_EQ(boxesOfClient(clientConfig("pigeon", "")), QStringList("Warning: Unset client type"));
    EXPECT_EQ(str(status()), "as before");
    EXPECT_TRUE(isConnected(*board)) << "the earlier connection goes on working";
    board::Simulator other(board::Options{0, "other"});
    EXPECT_TRUE(boxesOfClient(clientConfig("http", std::to_string(other.port()))).isEmpty());
    EXPECT_TRUE(isConnected(other));
}

TEST_F(MainWindowTest, StartsWithoutAClientWhereNoneCanBeBuilt)
{
    config.preferences.server.type = "uart";
    config.preferences.server.uart.port = "/dev/null";
    config.setting.chipName = "none";
    EXPECT_EQ(boxesDuring([&] { open(); }), QStringList("Orlenta ISP Tuning Tools: Open UART [/dev/null] failed\n"))
        << "there is no window yet";
    tool("&Start")->trigger();
    EXPECT_EQ(str(status()), "Transfer is never initialized");
    EXPECT_THROW(pMainWindow->clientHolder(), t_common::LogicError);
    EXPECT_TRUE(boxesOfClient(clientConfig("http", std::to_string(board->port()))).isEmpty());
    EXPECT_TRUE(isConnected(*board));
    pMainWindow.reset();
    EXPECT_THROW(rest::Camera().preview(true), std::logic_error) << "no connection outlives its window";
}
