// "Input Control": the sensor with its driver, and stored images.

#include "tests/support/board-fixture.h"
#include "tests/support/modals.h"
#include "tuning-client/source/module/image-widget.h"
#include "tuning-client/source/module/input-widget.h"
#include "tuning-client/source/module/sensor-widget.h"
#include "tuning-common/source/base64.h"
#include "tuning-rest/source/image.h"

#include <QAbstractEventDispatcher>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cstring>
#include <fstream>
#include <set>

using board::Fault;
using rest::Sensor;

namespace
{
enum Id
{
    InputInfo = 10004,
    InputSwitch = 10005,
    List = 50001,
    Remove = 50002,
    Load = 60001,
    ConfigGet = 80001,
    ConfigSet = 80002,
    DriverChange = 80003,
    StatusGet = 80007
};

QStringList texts(const QMenu* pMenu)
{
    QStringList list;
    for (const auto* pAction : pMenu->actions())
        list.append(pAction->text());
    return list;
}

std::string joined(const QStringList& list) { return list.join("; ").toStdString(); }

void fileWrite(const std::string& name, const std::string& text) { std::ofstream(name) << text; }

class InputPageTest : public BoardTest
{
protected:
    InputPageTest()
    {
        for (const auto& name : QDir("board").entryList(QDir::Files))
            QFile::remove("board/" + name);
        // Records are compared byte for byte: the exposure has to stand still.
        Json::Value jStop;
        jStop["function"] = "test";
        jStop["id"] = 4000104;
        jStop["generation"] = 0;
        jStop["enable"] = false;
        EXPECT_EQ(board->execute(jStop)["error"].asInt(), 0);
        open();
        board->requestsClear();
    }

    InputWidget& input()
    {
        for (auto* pInput : pMainWindow->findChildren<InputWidget*>())
            return *pInput;
        throw std::logic_error("no input page");
    }

    /// The sensor page after all that its first seconds bring.
    SensorWidget& sensor()
    {
        page("Input Control");
        emit pMainWindow->refresh();
        board->requestsClear();
        return *input().pSensorWidget;
    }

    ImageWidget& image()
    {
        page("Input Control");
        input().pComboBox->setCurrentIndex(1);
        board->requestsClear();
        return *input().pImageWidget;
    }

    QMenu& imageMenu() { return *input().pImageWidget->pPushButtonImageList->menu(); }

    /// The "Remote" menu as it opens.
    QMenu& remoteMenu()
    {
        auto* pMenu = imageMenu().actions().at(1)->menu();
        emit pMenu->aboutToShow();
        return *pMenu;
    }

    QMenu& driverMenu()
    {
        auto* pMenu = input().pSensorWidget->pPushButtonDriverList->menu();
        emit pMenu->aboutToShow();
        return *pMenu;
    }

    static void entryTrigger(QMenu& menu, const QString& name, const QString& entry)
    {
        for (auto* pAction : menu.actions())
        {
            if (pAction->text() != name)
                continue;
            for (auto* pEntry : pAction->menu()->actions())
            {
                if (pEntry->text() == entry)
                {
                    pEntry->trigger();
                    return;
                }
            }
        }
        FAIL() << "no entry " << name.toStdString() << " / " << entry.toStdString();
    }

    Sensor::Status sensorStatus()
    {
        Sensor::Status status;
        const auto bytes = board->recordGet("Sensor", 0, "status");
        std::memcpy(&status, bytes.data(), sizeof status);
        return status;
    }

    template <class Record>
    void answerSet(int id, const char* key, const Record& record)
    {
        board->answerSet(id, key, t_common::Base64::encode(record));
    }

    /// What the board received, as numbers of commands.
    std::vector<int> ids() const
    {
        std::vector<int> list;
        for (const auto& request : board->requests())
            list.push_back(int(request.id));
        return list;
    }

    /// Answers the next message box, and remembers what it said.
    void boxAnswer(QMessageBox::StandardButton button)
    {
        boxTitle.clear();
        boxText.clear();
        QTimer::singleShot(0, pMainWindow.get(),
                           [this, button]
                           {
                               auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                               ASSERT_TRUE(pBox) << "no box";
                               boxTitle = pBox->windowTitle();
                               boxText = pBox->text();
                               pBox->button(button)->click();
                           });
    }

    QString boxTitle;
    QString boxText;
};
} // namespace

TEST_F(InputPageTest, IsBuiltOfTwoPagesAndAsksNothing)
{
    auto& widget = input();
    EXPECT_EQ(widget.objectName(), "Dewarp") << "the official key of its settings";
    ASSERT_EQ(widget.pComboBox->count(), 2);
    EXPECT_EQ(widget.pComboBox->itemText(0), "Sensor Control");
    EXPECT_EQ(widget.pComboBox->itemText(1), "Image Control");
    EXPECT_EQ(widget.pStackedWidget->currentWidget(), widget.pSensorWidget);
    EXPECT_EQ(widget.pSensorWidget->objectName(), "Sensor Control");
    EXPECT_EQ(widget.pImageWidget->objectName(), "Image Control");

    const auto* pForm = widget.pSensorWidget->findChild<QFormLayout*>();
    const std::pair<const char*, QWidget*> rows[] = {
        {"Sensor Driver", widget.pSensorWidget->pPushButtonDriverList},
        {"Resolution", widget.pSensorWidget->pComboBoxResolution},
        {"Enable Test Pattern", widget.pSensorWidget->pCheckBoxTestPattern},
        {"Connection Status", widget.pSensorWidget->pLabelSensorConnectValue},
        {"Bayer Pattern", widget.pSensorWidget->pLabelSensorBayerPatternValue}};
    ASSERT_EQ(pForm->rowCount(), 5);
    for (int row = 0; row < 5; ++row)
    {
        const auto* pLabel = qobject_cast<QLabel*>(pForm->itemAt(row, QFormLayout::LabelRole)->widget());
        EXPECT_EQ(pLabel->text(), rows[row].first);
        EXPECT_EQ(pLabel->buddy(), rows[row].second);
    }
    EXPECT_EQ(widget.pSensorWidget->pPushButtonDriverList->text(), "Select Sensor Driver (*.drv)");
    EXPECT_EQ(widget.pSensorWidget->pPushButtonDriverChange->text(), "Change Driver");
    EXPECT_EQ(widget.pSensorWidget->pLabelSensorConnectValue->text(), "Not Found");
    EXPECT_EQ(widget.pSensorWidget->pLabelSensorBayerPatternValue->frameStyle(), 6);

    const auto& page = *widget.pImageWidget;
    EXPECT_EQ(page.findChild<QGroupBox*>()->title(), "Image Settings");
    EXPECT_EQ(page.pPushButtonImageList->text(), "Select Image (*.pgm)");
    EXPECT_EQ(page.pCheckBoxLsb->text(), "LSB");
    EXPECT_EQ(page.pPushButtonChangeImage->text(), "Change Image");
    for (const auto* pLabel :
         {page.pLabelImageWidth, page.pLabelImageHeight, page.pLabelImageFormat, page.pLabelImageBayerPattern})
    {
        EXPECT_EQ(pLabel->text(), "Not Found");
        EXPECT_EQ(pLabel->frameStyle(), 6);
    }
    EXPECT_EQ(joined(texts(&imageMenu())), "Local; Remote");
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(InputPageTest, SensorIsReadOnceOnTheFirstShowAndTwiceLater)
{
    const std::vector<int> once{InputInfo, ConfigGet, StatusGet};
    page("Input Control");
    auto commands = ids();
    ASSERT_GE(commands.size(), 4u);
    EXPECT_EQ(commands[1], InputSwitch) << "the first mark of the board's input in the menu";
    commands.erase(commands.begin() + 1);
    EXPECT_EQ(commands, once);
    board->requestsClear();

    page("Auto Exposure");
    board->requestsClear();
    page("Input Control");
    std::vector<int> twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(ids(), twice) << "the input is marked already";
    EXPECT_EQ(led().toolTip(), "Sensor Connected");
}

TEST_F(InputPageTest, StartTimerReadsTheVisiblePageOnce)
{
    page("Input Control");
    board->requestsClear();
    const auto timers = [&] { return QAbstractEventDispatcher::instance()->registeredTimers(input().pSensorWidget); };
    ASSERT_EQ(timers().size(), 1);
    EXPECT_EQ(timers().front().interval, 1000);
    EXPECT_TRUE(waitUntil([&] { return timers().isEmpty(); }));
    EXPECT_EQ(sent(StatusGet), 1u);
}

TEST_F(InputPageTest, ShowsWhatTheSensorReports)
{
    auto& page = sensor();
    EXPECT_EQ(page.pPushButtonDriverList->text(), "sensor-main.drv");
    EXPECT_EQ(page.pComboBoxResolution->currentText(), "1920x1080");
    EXPECT_EQ(page.pComboBoxResolution->count(), 1);
    EXPECT_FALSE(page.pComboBoxResolution->isEditable());
    EXPECT_EQ(page.pLabelSensorConnectValue->text(), "Connected");
    EXPECT_EQ(page.pLabelSensorConnectValue->styleSheet(), "QLabel { color : green; }");
    EXPECT_FALSE(page.pCheckBoxTestPattern->isChecked());

    auto status = sensorStatus();
    std::memset(status.driverName, 'x', sizeof status.driverName);
    const rest::Flag no = false;
    status.isConnected = no;
    status.resolutionCollection.resolution = {480, 640};
    answerSet(StatusGet, "status", status);
    auto record = rest::recordZero<Sensor::Config>();
    const std::pair<int, const char*> patterns[] = {{0, "BGGR"}, {1, "GBRG"},      {2, "GRBG"},
                                                    {3, "RGGB"}, {4, "Not Found"}, {-1, "Not Found"}};
    for (const auto& [pattern, text] : patterns)
    {
        std::memcpy(&record.bayerPattern, &pattern, sizeof pattern);
        const char oddTruth = 2;
        std::memcpy(&record.isTestPattern, &oddTruth, 1);
        answerSet(ConfigGet, "config", record);
        emit pMainWindow->refresh();
        EXPECT_EQ(page.pLabelSensorBayerPatternValue->text(), text);
    }
    EXPECT_EQ(page.pPushButtonDriverList->text(), QString(30, 'x')) << "a name without an end";
    EXPECT_EQ(page.pLabelSensorConnectValue->text(), "Disconnected");
    EXPECT_EQ(page.pLabelSensorConnectValue->styleSheet(), "QLabel { color : red; }");
    EXPECT_EQ(led().toolTip(), "Sensor Disconnected");
    EXPECT_EQ(page.pComboBoxResolution->count(), 1);
    EXPECT_EQ(page.pComboBoxResolution->currentText(), "640x480");
    EXPECT_TRUE(page.pCheckBoxTestPattern->isChecked());
    EXPECT_EQ(sent(ConfigSet), 0u) << "showing writes nothing back";
}

TEST_F(InputPageTest, MainWindowFollowsTheBoardsInput)
{
    const auto* pMenu = pMainWindow->menuBar()->findChild<QMenu*>("Sensor Menu");
    sensor();
    board->answerSet(InputInfo, "index", 1);
    emit pMainWindow->refresh();
    ASSERT_EQ(sent(InputSwitch), 1u);
    EXPECT_EQ(board->requests().at(1).query["index"].asInt(), 1);
    EXPECT_TRUE(pMenu->actions().at(0)->icon().isNull());
    EXPECT_FALSE(pMenu->actions().at(1)->icon().isNull());

    for (const Json::Value index : {-1, 2, 2147483647})
    {
        board->answerSet(InputInfo, "index", index);
        board->requestsClear();
        emit pMainWindow->refresh();
        EXPECT_EQ(ids(), (std::vector<int>{InputInfo, ConfigGet, StatusGet})) << "no such entry, and the page reads on";
        EXPECT_FALSE(pMenu->actions().at(1)->icon().isNull());
    }
}

TEST_F(InputPageTest, ChangeReadsTheConfigurationAndSendsItBackWithItsFieldOnly)
{
    auto& page = sensor();
    // The board moves on after the page has read.
    auto expected = board->recordGet("Sensor", 0);
    expected[offsetof(Sensor::Config, framesPerSecond)] = 25;
    board->recordSet("Sensor", 0, expected);
    page.pCheckBoxTestPattern->click();
    EXPECT_EQ(ids(), (std::vector<int>{ConfigGet, ConfigSet}));
    expected[offsetof(Sensor::Config, isTestPattern)] = 1;
    EXPECT_EQ(t_common::Base64::decode(board->requests().back().query["config"].asString()), expected);

    const uint32_t size[] = {480, 640};
    page.pComboBoxResolution->addItem("640x480", QVariant::fromValue(Sensor::Config::Resolution{480, 640}));
    page.pComboBoxResolution->setCurrentIndex(1);
    std::memcpy(&expected[offsetof(Sensor::Config, resolution)], size, sizeof size);
    EXPECT_EQ(t_common::Base64::decode(board->requests().back().query["config"].asString()), expected);

    board->requestsClear();
    board->faultSet({Fault::Error, ConfigGet, -1, 0, "busy"});
    page.pCheckBoxTestPattern->click();
    EXPECT_EQ(status(), "Server: busy");
    EXPECT_EQ(sent(ConfigSet), 0u);
}

TEST_F(InputPageTest, TestPatternBeforeAnyReadKeepsTheResolution)
{
    board->faultSet({Fault::Error, StatusGet});
    page("Input Control");
    board->faultsClear();
    ASSERT_EQ(input().pSensorWidget->pComboBoxResolution->count(), 0);
    auto expected = board->recordGet("Sensor", 0);
    input().pSensorWidget->pCheckBoxTestPattern->click();
    expected[offsetof(Sensor::Config, isTestPattern)] = 1;
    EXPECT_EQ(board->recordGet("Sensor", 0), expected);
}

TEST_F(InputPageTest, DriverIsChosenFromTheBoardsFilesAndChanged)
{
    auto& page = sensor();
    EXPECT_EQ(joined(texts(&driverMenu())), "Not Found");
    driverMenu().actions().front()->trigger();
    EXPECT_EQ(page.pPushButtonDriverList->text(), "sensor-main.drv");
    for (const auto* name : {"board/a.drv", "board/b & c.drv", "board/other.pgm"})
        fileWrite(name, "x");
    EXPECT_EQ(joined(texts(&driverMenu())), "a.drv; b && c.drv");
    const auto query = board->requests().back().query;
    EXPECT_EQ(query["file.extension"], "drv");
    EXPECT_EQ(query["path"], ".");
    driverMenu().actions().back()->trigger();
    EXPECT_EQ(page.pPushButtonDriverList->text(), "b & c.drv");
    EXPECT_TRUE(hasWaitCursor(DriverChange, [&] { page.pPushButtonDriverChange->click(); }));
    EXPECT_EQ(ids(), (std::vector<int>{DriverChange, InputInfo, ConfigGet, StatusGet}));
    EXPECT_EQ(board->requests().front().query["driver.file"], "b & c.drv");
    EXPECT_EQ(page.pPushButtonDriverList->text(), "b & c.drv");

    // Without a choice the text goes out as it stands.
    page.pPushButtonDriverList->setText("Select Sensor Driver (*.drv)");
    board->requestsClear();
    board->faultSet({Fault::Error, DriverChange, -1, 0, "no such driver"});
    page.pPushButtonDriverChange->click();
    EXPECT_EQ(board->requests().front().query["driver.file"], "Select Sensor Driver (*.drv)");
    EXPECT_EQ(ids(), (std::vector<int>{DriverChange})) << "no read after the failure";
    EXPECT_EQ(status(), "Server: no such driver");
    board->faultSet({Fault::Error, List, -1, 0, "no list"});
    EXPECT_TRUE(driverMenu().isEmpty());
    EXPECT_EQ(status(), "Server: no list");
}

TEST_F(InputPageTest, ImagePageSendsOnlyOnRequest)
{
    auto& page = image();
    emit pMainWindow->refresh();
    EXPECT_EQ(board->requestCount(), 0u);
    boxAnswer(QMessageBox::Ok);
    page.pPushButtonChangeImage->click();
    EXPECT_EQ(boxTitle, "Oops");
    EXPECT_EQ(boxText, "Please select image");
    EXPECT_EQ(board->requestCount(), 0u);
    EXPECT_FALSE(page.isHidden());
}

TEST_F(InputPageTest, LoadedImageIsDescribed)
{
    auto& page = image();
    const auto shown = [&]
    {
        return (page.pLabelImageWidth->text() + "x" + page.pLabelImageHeight->text() + " " +
                page.pLabelImageFormat->text() + " " + page.pLabelImageBayerPattern->text())
            .toStdString();
    };
    const auto before = shown();
    page.pPushButtonImageList->setText("chart.pgm");
    page.pPushButtonChangeImage->click();
    EXPECT_TRUE(status().startsWith("Server: ")) << "no such file: " << status().toStdString();
    EXPECT_EQ(shown(), before);

    fileWrite("board/chart.pgm", "P5 64 48 255\n" + std::string(64 * 48, 'x'));
    page.pCheckBoxLsb->setChecked(true);
    board->requestsClear();
    page.pPushButtonChangeImage->click();
    EXPECT_EQ(ids(), std::vector<int>{Load});
    EXPECT_EQ(board->requests().front().query["file.name"], "chart.pgm");
    EXPECT_EQ(board->requests().front().query["is.lsb"], true);
    EXPECT_EQ(shown(), "64x48 RAW8 RGGB");

    const struct
    {
        unsigned type, layout;
        const char* text;
    } rows[] = {{18, 18, "7x4294967295 RAW10 GRBG"},
                {17, 19, "7x4294967295 RAW16 GBRG"},
                {19, 20, "7x4294967295  BGGR"},
                {16, 16, "7x4294967295 RAW8 "},
                {~0u, ~0u, "7x4294967295  "}};
    auto metaData = rest::recordZero<rest::PicBufMetaData_t>();
    metaData.Data.raw.PicWidthPixel = 7;
    metaData.Data.raw.PicHeightPixel = ~0u;
    for (const auto& row : rows)
    {
        std::memcpy(&metaData.Type, &row.type, 4);
        std::memcpy(&metaData.Layout, &row.layout, 4);
        answerSet(Load, "metadata", metaData);
        page.pPushButtonChangeImage->click();
        EXPECT_EQ(shown(), row.text);
    }
    board->faultSet({Fault::RecordShort, Load});
    page.pPushButtonChangeImage->click();
    EXPECT_EQ(status(), "Base64 decode failed: object size not match");
    EXPECT_EQ(shown(), rows[4].text);
}

TEST_F(InputPageTest, LocalImageIsUploaded)
{
    auto& page = image();
    QDir().mkpath("local");
    config.preferences.capture.path = QDir("local").absolutePath();
    fileWrite("local/mine + yours.pgm", "P5 2 1 255\nab");
    const auto choose = [&](const QString& name)
    {
        const FileDialogAnswer answer(name);
        imageMenu().actions().front()->trigger();
        return answer.seen;
    };
    EXPECT_EQ(choose({}), "Select File|" + QDir("local").absolutePath() + "|PGM (*.pgm)");
    EXPECT_EQ(board->requestCount(), 0u);
    EXPECT_EQ(page.pPushButtonImageList->text(), "Select Image (*.pgm)");

    choose("mine + yours.pgm");
    EXPECT_EQ(sent(Fault::Upload), 1u);
    std::ifstream stored("board/mine + yours.pgm");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stored), {}), "P5 2 1 255\nab");
    EXPECT_EQ(page.pPushButtonImageList->text(), "mine + yours.pgm");
    page.pPushButtonChangeImage->click();
    EXPECT_EQ(page.pLabelImageWidth->text(), "2");
}

TEST_F(InputPageTest, RemoteImagesAreActivatedDownloadedAndRemoved)
{
    auto& page = image();
    EXPECT_EQ(joined(texts(&remoteMenu())), "Not Found");
    for (const auto* name : {"board/a.pgm", "board/b.pgm", "board/c.drv"})
        fileWrite(name, "content");
    EXPECT_EQ(joined(texts(&remoteMenu())), "a.pgm; b.pgm");
    EXPECT_EQ(board->requests().back().query["file.extension"], "pgm");
    EXPECT_EQ(joined(texts(remoteMenu().actions().front()->menu())), "Activate; Download; Remove");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(remoteMenu().findChildren<QMenu*>().size(), 4) << "those of this opening and of the one before";

    entryTrigger(remoteMenu(), "a.pgm", "Activate");
    EXPECT_EQ(page.pPushButtonImageList->text(), "a.pgm");

    QDir().mkpath("calibration");
    config.preferences.calibration.path = QDir("calibration").absolutePath();
    entryTrigger(remoteMenu(), "b.pgm", "Download");
    EXPECT_EQ(status(), "Save file b.pgm to " + config.preferences.calibration.path);
    std::ifstream fetched("calibration/b.pgm");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(fetched), {}), "content\n");
    board->faultSet({Fault::ResetInBody, Fault::Download});
    entryTrigger(remoteMenu(), "b.pgm", "Download");
    EXPECT_FALSE(status().startsWith("Save file")) << status().toStdString();
    board->faultsClear();
    config.preferences.calibration.path = QDir("nowhere").absolutePath();
    entryTrigger(remoteMenu(), "b.pgm", "Download");
    EXPECT_TRUE(status().contains("failed", Qt::CaseInsensitive)) << status().toStdString();

    boxAnswer(QMessageBox::No);
    entryTrigger(remoteMenu(), "a.pgm", "Remove");
    EXPECT_EQ(boxTitle, "Warning: This action can't be undone");
    EXPECT_EQ(boxText, "Are you sure to remove this file from remote?");
    EXPECT_EQ(sent(Remove), 0u);
    boxAnswer(QMessageBox::Yes);
    board->faultSet({Fault::Error, Remove, 1, 0, "in use"});
    entryTrigger(remoteMenu(), "a.pgm", "Remove");
    EXPECT_EQ(status(), "Server: in use");
    EXPECT_EQ(page.pPushButtonImageList->text(), "a.pgm");

    boxAnswer(QMessageBox::Yes);
    entryTrigger(remoteMenu(), "b.pgm", "Remove");
    EXPECT_EQ(page.pPushButtonImageList->text(), "a.pgm") << "another one was removed";
    boxAnswer(QMessageBox::Yes);
    entryTrigger(remoteMenu(), "a.pgm", "Remove");
    EXPECT_EQ(page.pPushButtonImageList->text(), "Select Image (*.pgm)");
    EXPECT_FALSE(QFile::exists("board/a.pgm"));
    EXPECT_EQ(joined(texts(&remoteMenu())), "Not Found");

    board->faultSet({Fault::Error, List, -1, 0, "no list"});
    EXPECT_TRUE(remoteMenu().isEmpty());
    EXPECT_EQ(status(), "Server: no list");
}

TEST_F(InputPageTest, NamesOfAnyKindFromTheBoardStayNames)
{
    image();
    QDir().mkpath("inner/calibration");
    config.preferences.calibration.path = QDir("inner/calibration").absolutePath();
    board->faultSet({Fault::HostileNames, List});
    QStringList menuTexts = texts(&remoteMenu());
    ASSERT_GE(menuTexts.size(), 8);
    for (const auto& text : menuTexts)
    {
        EXPECT_LE(text.toUtf8().size(), 260);
        for (auto character : text)
            EXPECT_GE(character.unicode(), 0x20) << text.toStdString();
    }
    EXPECT_TRUE(menuTexts.contains("&&<b>bold</b>.xml"));
    const int count = menuTexts.size();
    for (int i = 0; i < count; ++i)
    {
        auto* pEntries = remoteMenu().actions().at(i)->menu();
        if (!pEntries)
            continue;
        pEntries->actions().at(0)->trigger();
        pEntries->actions().at(1)->trigger();
    }
    // Whatever was stored has its place in the one directory.
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    EXPECT_EQ(joined(QDir("inner").entryList(everything)), "calibration");
    EXPECT_TRUE(QFile::exists("inner/calibration/hostile"));
    EXPECT_TRUE(QFile::exists("inner/calibration/passwd"));
    EXPECT_FALSE(QFile::exists("/tmp/etc"));
    for (const auto kind : {Fault::WrongTypes, Fault::NotJson})
    {
        board->faultSet({kind, List});
        EXPECT_TRUE(remoteMenu().isEmpty());
        EXPECT_TRUE(driverMenu().isEmpty());
    }
}
