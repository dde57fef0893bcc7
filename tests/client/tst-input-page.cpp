// "Input Control": the sensor with its driver, and stored images.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/module/image-widget.h"
#include "tuning-client/source/module/input-widget.h"
#include "tuning-client/source/module/sensor-widget.h"
#include "tuning-rest/source/image.h"

using board::Fault;
using rest::Sensor;

namespace
{
class InputPageTest : public BoardTest
{
protected:
    InputPageTest()
    {
        // Records are compared byte for byte.
        aeEnable(false);
        open();
        board->requestsClear();
    }

    InputWidget& input() { return *pMainWindow->findChild<InputWidget*>(); }

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

    /// "Activate" and the like of an image on the board.
    void remote(const QString& name, const QString& entry)
    {
        remoteChoose(actionOf(imageMenu().actions(), "Remote")->menu(), name, entry);
    }

    QMenu& driverMenu()
    {
        auto* pMenu = input().pSensorWidget->pPushButtonDriverList->menu();
        emit pMenu->aboutToShow();
        return *pMenu;
    }

    /// What the board received, as numbers of commands.
    std::vector<int64_t> ids() const
    {
        std::vector<int64_t> list;
        for (const auto& request : board->requests())
            list.push_back(request.id);
        return list;
    }

    std::string configSent() const
    {
        return t_common::Base64::decode(lastQuery("Sensor::configSet"_id)["config"].asString());
    }

    const std::vector<int64_t> once{"Camera::inputInfo"_id, "Sensor::configGet"_id, "Sensor::statusGet"_id};
};
} // namespace

TEST_F(InputPageTest, SensorIsReadOnceOnTheFirstShowAndTwiceLater)
{
    EXPECT_EQ(input().objectName(), "Dewarp") << "the official key of its settings";
    EXPECT_EQ(input().pComboBox->itemText(0) + input().pComboBox->itemText(1), "Sensor ControlImage Control");
    EXPECT_EQ(input().pSensorWidget->pLabelSensorConnectValue->text(), "Not Found");
    EXPECT_EQ(board->requestCount(), 0u);
    page("Input Control");
    auto commands = ids();
    ASSERT_GE(commands.size(), 4u);
    EXPECT_EQ(commands[1], "Camera::inputSwitch"_id) << "the first mark of the board's input in the menu";
    commands.erase(commands.begin() + 1);
    EXPECT_EQ(commands, once);

    page("Auto Exposure");
    board->requestsClear();
    page("Input Control");
    std::vector<int64_t> twice = once;
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
    EXPECT_EQ(sent("Sensor::statusGet"_id), 1u);
}

TEST_F(InputPageTest, ShowsWhatTheSensorReports)
{
    auto& page = sensor();
    const auto connection = [&]
    { return page.pLabelSensorConnectValue->text() + " " + page.pLabelSensorConnectValue->styleSheet(); };
    EXPECT_EQ(page.pPushButtonDriverList->text(), "sensor-main.drv");
    EXPECT_EQ(connection(), "Connected QLabel { color : green; }");

    auto status = record<Sensor::Status>("Sensor", "status");
    std::memset(status.driverName, 'x', sizeof status.driverName);
    status.isConnected = false;
    status.resolutionCollection.resolution = {480, 640};
    answerSet("Sensor::statusGet"_id, "status", status);
    auto sensorConfig = rest::recordZero<Sensor::Config>();
    const char oddTruth = 2;
    std::memcpy(&sensorConfig.isTestPattern, &oddTruth, 1);
    const std::pair<int, const char*> patterns[] = {
        {0, "BGGR"}, {1, "GBRG"}, {2, "GRBG"}, {3, "RGGB"}, {4, "Not Found"}};
    for (const auto& [pattern, text] : patterns)
    {
        std::memcpy(&sensorConfig.bayerPattern, &pattern, sizeof pattern);
        answerSet("Sensor::configGet"_id, "config", sensorConfig);
        emit pMainWindow->refresh();
        EXPECT_EQ(page.pLabelSensorBayerPatternValue->text(), text);
    }
    EXPECT_EQ(page.pPushButtonDriverList->text(), QString(30, 'x')) << "a name without an end";
    EXPECT_EQ(connection(), "Disconnected QLabel { color : red; }");
    EXPECT_EQ(led().toolTip(), "Sensor Disconnected");
    EXPECT_EQ(page.pComboBoxResolution->count(), 1);
    EXPECT_EQ(page.pComboBoxResolution->currentText(), "640x480");
    EXPECT_TRUE(page.pCheckBoxTestPattern->isChecked());
    EXPECT_EQ(sent("Sensor::configSet"_id), 0u) << "showing writes nothing back";
}

TEST_F(InputPageTest, MainWindowFollowsTheBoardsInput)
{
    const auto* pMenu = pMainWindow->menuBar()->findChild<QMenu*>("Sensor Menu");
    sensor();
    board->answerSet("Camera::inputInfo"_id, "index", 1);
    emit pMainWindow->refresh();
    ASSERT_EQ(sent("Camera::inputSwitch"_id), 1u);
    EXPECT_EQ(lastQuery("Camera::inputSwitch"_id)["index"], 1);
    EXPECT_TRUE(pMenu->actions().at(0)->icon().isNull());
    EXPECT_FALSE(pMenu->actions().at(1)->icon().isNull());

    for (const Json::Value index : {-1, 2})
    {
        board->answerSet("Camera::inputInfo"_id, "index", index);
        board->requestsClear();
        emit pMainWindow->refresh();
        EXPECT_EQ(ids(), once) << "no such entry, and the page reads on";
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
    EXPECT_EQ(ids(), (std::vector<int64_t>{"Sensor::configGet"_id, "Sensor::configSet"_id}));
    expected[offsetof(Sensor::Config, isTestPattern)] = 1;
    EXPECT_EQ(configSent(), expected);

    const uint32_t size[] = {480, 640};
    page.pComboBoxResolution->addItem("640x480", QVariant::fromValue(Sensor::Config::Resolution{480, 640}));
    page.pComboBoxResolution->setCurrentIndex(1);
    std::memcpy(&expected[offsetof(Sensor::Config, resolution)], size, sizeof size);
    EXPECT_EQ(configSent(), expected);
}

TEST_F(InputPageTest, SendingWithoutAResolutionKeepsTheBoards)
{
    board->faultSet({Fault::Error, "Sensor::statusGet"_id});
    page("Input Control");
    board->faultsClear();
    ASSERT_EQ(input().pSensorWidget->pComboBoxResolution->count(), 0);
    const auto expected = board->recordGet("Sensor", 0);
    input().pSensorWidget->configSet();
    EXPECT_EQ(board->recordGet("Sensor", 0), expected);
}

TEST_F(InputPageTest, DriverIsChosenFromTheBoardsFilesAndChanged)
{
    auto& page = sensor();
    for (const auto* name : {"board/a.drv", "board/b & c.drv", "board/other.pgm"})
        fileWrite(name, "x");
    EXPECT_EQ(texts(driverMenu().actions()), QStringList({"a.drv", "b && c.drv"}));
    EXPECT_EQ(lastQuery("FileSystem::list"_id)["file.extension"], "drv");
    driverMenu().actions().back()->trigger();
    EXPECT_EQ(page.pPushButtonDriverList->text(), "b & c.drv");
    EXPECT_TRUE(hasWaitCursor("Sensor::driverChange"_id, [&] { page.pPushButtonDriverChange->click(); }));
    EXPECT_EQ(ids(), (std::vector<int64_t>{"Sensor::driverChange"_id, "Camera::inputInfo"_id, "Sensor::configGet"_id,
                                           "Sensor::statusGet"_id}));
    EXPECT_EQ(lastQuery("Sensor::driverChange"_id)["driver.file"], "b & c.drv");

    // Without a choice the text goes out as it stands.
    page.pPushButtonDriverList->setText("Select Sensor Driver (*.drv)");
    board->requestsClear();
    board->faultSet({Fault::Error, "Sensor::driverChange"_id, -1, 0, "no such driver"});
    page.pPushButtonDriverChange->click();
    EXPECT_EQ(lastQuery("Sensor::driverChange"_id)["driver.file"], "Select Sensor Driver (*.drv)");
    EXPECT_EQ(ids(), (std::vector<int64_t>{"Sensor::driverChange"_id})) << "no read after the failure";
    EXPECT_EQ(status(), "Server: no such driver");
}

TEST_F(InputPageTest, LoadedImageIsDescribed)
{
    auto& page = image();
    const auto shown = [&]
    {
        return str(page.pLabelImageWidth->text() + "x" + page.pLabelImageHeight->text() + " " +
                   page.pLabelImageFormat->text() + " " + page.pLabelImageBayerPattern->text());
    };
    const auto before = shown();
    EXPECT_EQ(before, "Not FoundxNot Found Not Found Not Found");
    emit pMainWindow->refresh();
    EXPECT_EQ(boxesDuring([&] { page.pPushButtonChangeImage->click(); }), QStringList("Oops: Please select image"));
    EXPECT_EQ(board->requestCount(), 0u) << "it sends only on request";
    page.pPushButtonImageList->setText("chart.pgm");
    page.pPushButtonChangeImage->click();
    EXPECT_TRUE(status().startsWith("Server: ")) << "no such file: " << str(status());
    EXPECT_EQ(shown(), before);

    fileWrite("board/chart.pgm", "P5 64 48 255\n" + QByteArray(64 * 48, 'x'));
    page.pCheckBoxLsb->setChecked(true);
    board->requestsClear();
    page.pPushButtonChangeImage->click();
    EXPECT_EQ(lastQuery("Image::load"_id)["file.name"], "chart.pgm");
    EXPECT_EQ(lastQuery("Image::load"_id)["is.lsb"], true);
    EXPECT_EQ(shown(), "64x48 RAW8 RGGB");

    const struct
    {
        unsigned type, layout;
        const char* text;
    } rows[] = {{18, 18, "7x4294967295 RAW10 GRBG"},
                {17, 19, "7x4294967295 RAW16 GBRG"},
                {~0u, 20, "7x4294967295  BGGR"},
                {16, ~0u, "7x4294967295 RAW8 "}};
    auto metaData = rest::recordZero<rest::PicBufMetaData_t>();
    metaData.Data.raw.PicWidthPixel = 7;
    metaData.Data.raw.PicHeightPixel = ~0u;
    for (const auto& row : rows)
    {
        std::memcpy(&metaData.Type, &row.type, 4);
        std::memcpy(&metaData.Layout, &row.layout, 4);
        answerSet("Image::load"_id, "metadata", metaData);
        page.pPushButtonChangeImage->click();
        EXPECT_EQ(shown(), row.text);
    }
}

// What the menu has in common with the one of the settings is tested there.
TEST_F(InputPageTest, StoredImagesAreChosen)
{
    auto& page = image();
    QDir().mkpath("local");
    config.preferences.capture.path = QDir("local").absolutePath();
    config.preferences.calibration.path = QDir::currentPath();
    fileWrite("local/mine.pgm", "P5 2 1 255\nab");
    {
        const FileDialogAnswer answer(QDir("local").absoluteFilePath("mine.pgm"));
        actionOf(imageMenu().actions(), "Local")->trigger();
        EXPECT_EQ(answer.seen, "Select File|" + config.preferences.capture.path + "|PGM (*.pgm)");
    }
    EXPECT_EQ(page.pPushButtonImageList->text(), "mine.pgm");

    fileWrite("board/a.pgm", "content");
    remote("a.pgm", "Activate");
    EXPECT_EQ(lastQuery("FileSystem::list"_id)["file.extension"], "pgm");
    EXPECT_EQ(page.pPushButtonImageList->text(), "a.pgm");
    remote("a.pgm", "Download");
    EXPECT_EQ(status(), "Save file a.pgm to " + config.preferences.calibration.path);

    const ClosedBoxes yes(QMessageBox::Yes);
    remote("mine.pgm", "Remove");
    EXPECT_EQ(page.pPushButtonImageList->text(), "a.pgm") << "another one was removed";
    board->faultSet({Fault::Error, "FileSystem::remove"_id, 1, 0, "in use"});
    remote("a.pgm", "Remove");
    EXPECT_EQ(page.pPushButtonImageList->text(), "a.pgm");
    remote("a.pgm", "Remove");
    EXPECT_EQ(page.pPushButtonImageList->text(), "Select Image (*.pgm)");
}
