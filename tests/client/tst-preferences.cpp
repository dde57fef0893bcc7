#include "tests/support/board-fixture.h"
#include "tuning-client/source/preferences/capture-widget.h"
#include "tuning-client/source/preferences/preferences-dialog.h"
#include "tuning-client/source/preferences/serial-ports.h"
#include "tuning-client/source/preferences/server-widget.h"
#include "tuning-client/source/preferences/window-widget.h"
#include "tuning-rest/source/camera.h"

namespace
{
class PreferencesTest : public BoardTest
{
protected:
    PreferencesTest()
    {
        chipWrite("Empty", {});
        config.setting.chipName = "Empty";
        config.preferences.capture = {};
        config.preferences.calibration = {};
        config.preferences.window = {};
        config.preferences.server.uart.port.clear();
        open();
        pDialog = std::make_unique<PreferencesDialog>(nullptr);
        pDialog->show();
        QApplication::setActiveWindow(pDialog.get());
    }

    template <class Page>
    Page& settings()
    {
        auto* pPage = pDialog->findChild<Page*>();
        pDialog->pToolBox->setCurrentWidget(pPage);
        return *pPage;
    }

    static void press(const QWidget& page, const QString& text)
    {
        for (auto* pButton : page.findChildren<QPushButton*>())
            if (pButton->text() == text)
                return pButton->click();
        throw std::logic_error("no button " + str(text));
    }

    static QStringList entries(const ServerWidget& page)
    {
        QStringList list;
        for (int i = 0; i < page.pListWidget->count(); ++i)
            list.append(page.pListWidget->item(i)->text() + (page.pListWidget->item(i)->icon().isNull() ? "" : " *"));
        return list;
    }

    std::unique_ptr<PreferencesDialog> pDialog;
};
} // namespace

TEST_F(PreferencesTest, OpensFromTheMenuWithItsPages)
{
    const auto& toolBox = *pDialog->pToolBox;
    QStringList items;
    for (int i = 0; i < toolBox.count(); ++i)
    {
        items.append(toolBox.itemText(i) + " " + toolBox.widget(i)->objectName());
        EXPECT_FALSE(toolBox.itemIcon(i).pixmap(16).isNull()) << i;
    }
    EXPECT_EQ(items, QStringList({"Calibration Settings calibration", "Capture Settings capture",
                                  "Server Settings server", "Window Settings window"}));
    EXPECT_GE(pDialog->minimumWidth(), pDialog->sizeHint().width());
    for (auto* pWidget : pDialog->findChildren<QWidget*>())
    {
        const bool isNamedByUs = qobject_cast<QLineEdit*>(pWidget) || qobject_cast<QComboBox*>(pWidget) ||
                                 qobject_cast<QListWidget*>(pWidget);
        EXPECT_FALSE(isNamedByUs && pWidget->accessibleName().isEmpty()) << pWidget->metaObject()->className();
    }
    pDialog.reset();

    QPointer<QDialog> pFromMenu;
    const Modals modals(
        [&](QDialog& dialog)
        {
            pFromMenu = &dialog;
            EXPECT_EQ(dialog.windowTitle(), "Preferences");
            dialog.close();
        });
    board->requestsClear();
    actionOf(pMainWindow->menuBar()->actions(), "&Edit")->menu()->actions().first()->trigger();
    EXPECT_TRUE(waitUntil([&] { return pFromMenu.isNull(); }));
    EXPECT_EQ(board->requestCount(), 0u) << "the preferences never ask the board";
}

TEST_F(PreferencesTest, DirectoriesAreTakenOver)
{
    const QTemporaryDir chosen;
    const auto here = QDir::currentPath();
    const auto box = "Select Directory: Cannot save file to " + str(here) + ", change another directory";
    config.preferences.calibration.path = config.preferences.capture.path = "/as before";
    const PreferencesDialog dialog(nullptr);
    for (const bool isCapture : {false, true})
    {
        SCOPED_TRACE(isCapture);
        const auto& page = *dialog.findChildren<SettingsAbstractWidget*>()[isCapture];
        const auto& line = *page.findChild<QLineEdit*>();
        const auto& path = isCapture ? config.preferences.capture.path : config.preferences.calibration.path;
        EXPECT_TRUE(line.isReadOnly());
        for (const auto& [entered, expected] :
             {std::make_pair(QString(), QString("/as before")), {chosen.path(), chosen.path()}, {here, here}})
        {
            const FileDialogAnswer answer(entered);
            press(page, "Browse...");
            EXPECT_TRUE(answer.seen.startsWith("Select Directory|" + here)) << str(answer.seen);
            EXPECT_EQ(str(answer.said), isCapture && entered == here ? box : "");
            EXPECT_EQ(str(path), str(expected)) << "taken over whatever the box said";
            EXPECT_EQ(str(line.text()), str(expected));
        }
    }
}

TEST_F(PreferencesTest, CaptureAndWindowWriteAtOnce)
{
    using rest::Camera;
    auto& stored = config.preferences.capture;
    {
        auto& page = settings<CaptureWidget>();
        const Camera::SnapshotType types[]{Camera::Raw08, Camera::Raw10, Camera::Raw12, Camera::Raw16, Camera::Yuv};
        ASSERT_EQ(page.pComboBoxImageType->count(), 5);
        for (int i = 4; i >= 0; --i)
        {
            page.pComboBoxImageType->setCurrentIndex(i);
            EXPECT_EQ(stored.snapshotType, types[i]);
        }
        page.pCheckBoxAe->click();
        EXPECT_TRUE(stored.isAe && !stored.isAf && !stored.isAwb);
        for (auto* pCheckBox : {page.pCheckBoxAwb, page.pCheckBoxAe, page.pCheckBoxAf})
            pCheckBox->click();
        EXPECT_TRUE(!stored.isAe && !stored.isAf && stored.isAwb) << "AF can't be changed";
        settings<WindowWidget>().pCheckBoxAutoResize->click();
        EXPECT_TRUE(config.preferences.window.isAutoResize);
    }
    stored = {true, true, false, "/captures", Camera::Rgb};
    const CaptureWidget page(nullptr);
    EXPECT_TRUE(page.pCheckBoxAe->isChecked() && page.pCheckBoxAf->isChecked() && !page.pCheckBoxAwb->isChecked());
    EXPECT_EQ(page.pComboBoxImageType->currentIndex(), 0);
    EXPECT_EQ(stored.snapshotType, Camera::Rgb) << "stands until an entry is chosen";
    emit page.pComboBoxImageType->activated(0);
    EXPECT_EQ(stored.snapshotType, Camera::Raw08);
    EXPECT_TRUE(WindowWidget(nullptr).pCheckBoxAutoResize->isChecked());
}

TEST_F(PreferencesTest, ServerListIsEditedAndApplied)
{
    auto& stored = config.preferences.server;
    auto& page = settings<ServerWidget>();
    const auto port = QString::number(board->port());
    EXPECT_EQ(entries(page), QStringList("127.0.0.1:" + port + " *"));
    EXPECT_TRUE(page.pGroupBoxHttp->isVisible() && !page.pGroupBoxUart->isVisible());

    QTest::mouseClick(page.pLineEditPort, Qt::LeftButton);
    EXPECT_EQ(page.pLineEditPort->selectedText(), "8080_") << "the first click takes it all";
    QTest::mouseClick(page.pLineEditPort, Qt::LeftButton);
    EXPECT_EQ(page.pLineEditPort->selectedText(), "") << "the next one sets the cursor";
    page.pLineEditPort->setText("70000");
    page.pPushButtonAdd->click();
    page.pLineEditServer->setText("10.0.0.7");
    page.pPushButtonAdd->click();
    EXPECT_EQ(entries(page), QStringList({"127.0.0.1:" + port + " *", "127.0.0.1:70000", "10.0.0.7:70000"}));
    EXPECT_EQ(stored.http.collection.size(), 1) << "nothing counts before Apply";

    page.pListWidget->setCurrentRow(1);
    EXPECT_EQ(entries(page), QStringList({"127.0.0.1:" + port, "127.0.0.1:70000 *", "10.0.0.7:70000"}));
    press(page, "Apply");
    EXPECT_EQ(status(), "Server 127.0.0.1:70000");
    EXPECT_EQ(stored.http.index, 1);
    page.pListWidget->setCurrentRow(0);
    page.configGet();
    EXPECT_EQ(page.pListWidget->currentRow(), 1) << "as it is stored";
    const QVector<QPair<QString, uint16_t>> hosts{
        {"127.0.0.1", board->port()}, {"127.0.0.1", 4464}, {"10.0.0.7", 4464}};
    EXPECT_EQ(stored.http.collection, hosts);
    EXPECT_THROW(rest::Camera().preview(true), std::logic_error) << "the client has the port as it was typed";

    page.pPushButtonDelete->click();
    EXPECT_EQ(entries(page).filter("*").size(), 1) << "another one takes the mark";
    page.pListWidget->setCurrentRow(0);
    press(page, "Apply");
    board->requestsClear();
    rest::Camera().preview(true);
    EXPECT_EQ(board->requestCount(), 1u) << "the new client is in place at once";

    while (page.pListWidget->count() > 0)
        page.pPushButtonDelete->click();
    EXPECT_FALSE(page.pPushButtonDelete->isEnabled());
    const auto before = stored.http.collection;
    EXPECT_EQ(boxesDuring([&] { press(page, "Apply"); }),
              QStringList("Information Error: Ip address cannot be empty, please add it firstly"));
    EXPECT_EQ(stored.http.collection, before);

    page.pPushButtonAdd->click();
    EXPECT_EQ(entries(page), QStringList("10.0.0.7:70000 *"));
    settings<WindowWidget>();
    settings<ServerWidget>();
    EXPECT_EQ(entries(page).size(), before.size()) << "shown again as it is stored";

    stored.http.collection.clear();
    ServerWidget empty(nullptr);
    empty.configGet();
    EXPECT_EQ(empty.pListWidget->count(), 0);
    EXPECT_FALSE(empty.pPushButtonDelete->isEnabled());
}

TEST_F(PreferencesTest, SerialLineIsChosenAndRemembered)
{
    auto& stored = config.preferences.server;
    auto& page = settings<ServerWidget>();
    EXPECT_EQ(page.pLineEditUart->text(), "COM");
    page.pRadioButtonUart->click();
    EXPECT_TRUE(!page.pGroupBoxHttp->isVisible() && page.pGroupBoxUart->isVisible());
    auto* pPorts = page.findChild<QStringListModel*>();
    ASSERT_TRUE(pPorts);
    EXPECT_EQ(pPorts->stringList(), serialPorts());

    pPorts->setStringList({"/dev/ttyUSB0", "/dev/ttyUSB1"});
    const auto& list = *page.findChild<QCompleter*>()->popup();
    const auto isOffered = [&] { return waitUntil([&] { return list.isVisible(); }); };
    page.pLineEditUart->setFocus();
    ASSERT_TRUE(isOffered()) << "all ports, before a letter is typed";
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_X);
    EXPECT_FALSE(list.isVisible()) << "a letter is typed";
    QTest::keyClick(page.pLineEditUart, Qt::Key_Down);
    ASSERT_TRUE(isOffered());
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(QApplication::activePopupWidget(), key);
    QApplication::processEvents();
    EXPECT_FALSE(list.isVisible()) << "nothing brings it back";
    EXPECT_EQ(str(page.pLineEditUart->text()), "/dev/ttyUSB1");

    page.pLineEditUart->setText("/no/such/port");
    {
        const ClosedBoxes boxes;
        press(page, "Apply");
        EXPECT_EQ(boxes.parents, QList<QWidget*>{pDialog.get()}) << "a port that can't be opened";
        EXPECT_EQ(status(), "Open UART [/no/such/port] failed\n") << "no server that was not taken";
    }
    rest::Camera().preview(true);
    EXPECT_EQ(str(stored.type), "uart");
    EXPECT_EQ(str(stored.uart.port), "/no/such/port");
    EXPECT_EQ(stored.http.collection.size(), 1) << "the other transport loses nothing";

    ServerWidget again(nullptr);
    again.configGet();
    EXPECT_TRUE(again.pRadioButtonUart->isChecked());
    EXPECT_EQ(str(again.pLineEditUart->text()), "/no/such/port");
}

TEST_F(PreferencesTest, PortsThatAreThereAreFound)
{
    const QTemporaryDir terminals;
    const QDir directory(terminals.path());
    for (const auto* name : {"tty0", "ttyUSB0/device", "ttyS1/device", "ttyS0/device", "ttyACM1/device"})
        directory.mkpath(name);
    fileWrite(directory.filePath("ttyS0/type"), "4\n");
    fileWrite(directory.filePath("ttyS1/type"), "0\n");
    EXPECT_EQ(serialPorts(directory), QStringList({"/dev/ttyACM1", "/dev/ttyS0", "/dev/ttyUSB0"}));
    EXPECT_TRUE(serialPorts(QDir("/no/such/directory")).isEmpty());
}
