// From the click in the tool bar to the picture on the screen.

#include "tests/support/board-fixture.h"
#include "tests/support/outcome.h"
#include "tuning-client/source/control/picture-label.h"
#include "tuning-client/source/file/capture.h"
#include "tuning-client/source/image-viewer-main-window.h"
#include "tuning-rest/source/sensor.h"

using board::Fault;
using rest::Camera;

namespace
{
class CaptureTest : public BoardTest
{
protected:
    CaptureTest()
    {
        capturesClear();
        config.preferences.capture = {};
        config.preferences.capture.path = QDir::currentPath() + "/captures";
        auto status = record<rest::Sensor::Status>("Sensor", "status");
        status.resolutionCollection.resolution = {48, 64};
        recordSet("Sensor", status, 0, "status");
        aeEnable(false);
        windowOpen();
    }

    void windowOpen()
    {
        open();
        pActionCapture = actionOf(pMainWindow->findChildren<QAction*>(), "&Capture Image");
    }

    static void capturesClear()
    {
        QDir("captures").removeRecursively();
        QDir().mkpath("captures");
    }

    /// Clicks, and waits until the action can be clicked again. The text in the status bar.
    std::string take()
    {
        pMainWindow->statusBar()->clearMessage();
        EXPECT_TRUE(pActionCapture->isEnabled());
        pActionCapture->trigger();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(waitUntil([this] { return pActionCapture->isEnabled(); })) << str(status());
        return str(status());
    }

    QList<ImageViewerMainWindow*> viewers() const { return pMainWindow->findChildren<ImageViewerMainWindow*>(); }

    /// What the newest viewer tells of a pixel.
    QString pixelText(const QPoint& pixel) const
    {
        auto* pViewer = viewers().last();
        const auto place = pViewer->findChild<PictureLabel*>()->mapTo(pViewer, pixel);
        // A mouse that already is there does not move.
        for (const auto& step : {QPoint(9, 9), QPoint()})
            QTest::mouseMove(pViewer->windowHandle(), place + step);
        return pViewer->findChild<QLabel*>("Pixel")->text();
    }

    static int brightness(const QImage& image)
    {
        return qGray(image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0));
    }

    static QStringList files(const QString& directory)
    {
        return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    QAction* pActionCapture = nullptr;
};

const struct
{
    Camera::SnapshotType type;
    const char* prefix;
    const char* suffix;
    const char* head; ///< of the file
    QPoint redPlace;  ///< of a raw picture whose pattern has the type's number
} kinds[] = {{Camera::Raw08, "RAW08_", ".pgm", "P5\n64 48\n255\n", {1, 1}},
             {Camera::Raw10, "RAW10_", ".pgm", "P5\n64 48\n1023\n", {0, 1}},
             {Camera::Raw12, "RAW12_", ".pgm", "P5\n64 48\n4095\n", {1, 0}},
             {Camera::Raw16, "RAW16_", ".pgm", "P5\n64 48\n65535\n", {0, 0}},
             {Camera::Rgb, "RGB_", ".ppm", "P6\n64 48\n255\n", {}},
             {Camera::Yuv, "YUV_", ".yuv", "", {}}};
} // namespace

TEST_F(CaptureTest, EveryTypeIsTakenFetchedAndShown)
{
    config.preferences.capture.isAe = config.preferences.capture.isAwb = true;
    for (const auto& kind : kinds)
    {
        SCOPED_TRACE(kind.prefix);
        config.preferences.capture.snapshotType = kind.type;
        const bool isYuv = kind.type == Camera::Yuv;
        const bool isRaw = kind.type <= Camera::Raw16;
        int before = 0;
        for (const float gain : {1.f, 3.f})
        {
            auto sensor = record<rest::Sensor::Config>("Sensor");
            sensor._long = {gain, 0.005f};
            sensor.bayerPattern = rest::Sensor::Config::BayerPattern(isRaw ? kind.type : 0);
            recordSet("Sensor", sensor);
            board->requestsClear();
            auto added = viewers();
            capturesClear();
            EXPECT_EQ(take(), "");
            ASSERT_EQ(sent("Camera::capture"_id), 1u);
            const auto jQuery = lastQuery("Camera::capture"_id);
            EXPECT_EQ(jQuery["snapshot.type"], int(kind.type));
            EXPECT_EQ(jQuery["lock.type"], 6);
            const auto name = QString::fromStdString(jQuery["file.name"].asString());
            EXPECT_TRUE(QRegularExpression(QString("^%1\\d{8}_\\d{6}$").arg(kind.prefix)).match(name).hasMatch())
                << str(name);

            const auto stored = fileRead("captures/" + name + kind.suffix);
            EXPECT_EQ(stored, fileRead("board/" + name + kind.suffix) + "\n");
            EXPECT_TRUE(stored.startsWith(kind.head));
            EXPECT_EQ(QFile::exists("captures/" + QString(name).replace("YUV", "RGB") + ".ppm"), !isRaw);
            EXPECT_EQ(files("captures").size(), isYuv ? 2 : 1) << "no temporary file stays";

            ASSERT_EQ(viewers().size(), added.size() + 1);
            EXPECT_TRUE(viewers().last()->isVisible());
            const auto image = viewers().last()->findChild<PictureLabel*>()->pixmap(Qt::ReturnByValue).toImage();
            EXPECT_EQ(image.size(), QSize(64, 48));
            EXPECT_GT(brightness(image), before * 1.5 + 5) << "brighter with the exposure";
            before = brightness(image);
            // The object in the middle is orange.
            const auto red = image.pixel(QPoint(38, 20) + kind.redPlace);
            for (const auto& place : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
                EXPECT_TRUE(!isRaw || gain > 1 || image.pixel(QPoint(38, 20) + place) <= red);
            EXPECT_EQ(pixelText({38, 20}).contains(" (R) "), isRaw && kind.redPlace.isNull());
            EXPECT_EQ(pixelText(QPoint(38, 20) + kind.redPlace).contains(" (R) "), isRaw);
        }
    }
    EXPECT_FALSE(QFile::exists("client_rgb.ppm"));
}

TEST_F(CaptureTest, LocksAndNamesFollowTheSettings)
{
    for (unsigned i = 0; i < 8; ++i)
    {
        cfg::Capture capture;
        capture.isAf = (i & 1) != 0;
        capture.isAe = (i & 2) != 0;
        capture.isAwb = (i & 4) != 0;
        EXPECT_EQ(shortcut::captureLocksGet(capture), i);
    }
    const QDateTime time({2024, 1, 31}, {23, 59, 59});
    EXPECT_EQ(shortcut::captureNameGet(Camera::Raw10, time), "RAW10_20240131_235959");
    EXPECT_EQ(shortcut::captureNameGet(Camera::Yuv, time.addSecs(4 * 3600)), "YUV_20240201_035959");
    EXPECT_EQ(shortcut::captureNameGet(Camera::SnapshotType(6), time), "");
}

TEST_F(CaptureTest, DirectoryIsCheckedBeforeTheBoardIsAsked)
{
    ClosedBoxes boxes;
    for (const auto& path : {QString("/no/such/directory"), QString(), QString("chip/Full.xml"), QDir::currentPath()})
    {
        config.preferences.capture.path = path;
        pActionCapture->trigger();
        EXPECT_TRUE(pActionCapture->isEnabled());
    }
    const QString missing = "Select Directory: The directory does not exist.";
    EXPECT_EQ(boxes.texts, QStringList({missing, missing, missing,
                                        "Select Directory: The image cannot be saved to the same path as the "
                                        "tuning_client.exe. Select another path"}));
    EXPECT_EQ(boxes.details[0], "/no/such/directory\nIt is set in Edit > Preferences > Capture Settings.");
    EXPECT_EQ(sent("Camera::capture"_id), 0u);
}

TEST_F(CaptureTest, EveryFailureFreesTheActionAndSaysWhy)
{
    const std::pair<Fault, const char*> rows[] = {
        {{Fault::Error, "Camera::capture"_id}, "The board refuses"},
        {{Fault::ErrorBare, "Camera::capture"_id}, "Capture failed: the board gives no reason"},
        {{Fault::Close, "Camera::capture"_id}, "Capture failed: Connection to 127.0.0.1"},
        {{Fault::AnswerEmpty, "Camera::capture"_id}, "Capture failed: the answer is empty"},
        {{Fault::NotJson, "Camera::capture"_id}, "JSON parse failed"},
        {{Fault::WrongTypes, "Camera::capture"_id}, "file.name"},
        {{Fault::WrongTypes, "Camera::capture"_id, -1, 0, "error"}, "error"},
        {{Fault::ResetInBody, Fault::Download}, " failed: "},
        {{Fault::ChunkedCut, Fault::Download}, " failed: "},
    };
    for (const auto& [fault, expected] : rows)
    {
        SCOPED_TRACE(testing::Message() << fault.kind << " of " << fault.id);
        board->faultSet(fault);
        const auto text = take();
        board->faultsClear();
        EXPECT_NE(text.find(expected), std::string::npos) << text;
        EXPECT_TRUE(viewers().isEmpty());
    }
    // A download that failed leaves at most an empty file.
    for (const auto& name : files("captures"))
        EXPECT_EQ(QFileInfo("captures/" + name).size(), 0) << str(name);
    EXPECT_EQ(take(), "") << "all is well again";
    EXPECT_EQ(viewers().size(), 1);

    pMainWindow.reset();
    config.preferences.server.type = "pigeon";
    boxesDuring([this] { windowOpen(); });
    EXPECT_EQ(take(), "pClientHolder is never initialized");
}

TEST_F(CaptureTest, ConversionsThatFailOpenNoViewer)
{
    config.preferences.capture.snapshotType = Camera::Yuv;
    auto status = record<rest::Sensor::Status>("Sensor", "status");
    status.resolutionCollection.resolution = {49, 64};
    answerSet("Sensor::statusGet"_id, "status", status);
    const auto text = take();
    EXPECT_NE(text.find("failed: 64x49 takes 6272 bytes, the file has 6145"), std::string::npos) << text;
    board->faultSet({Fault::Error, "Sensor::statusGet"_id});
    EXPECT_EQ(take(), "Server: The board refuses");
    EXPECT_TRUE(viewers().isEmpty());
}

TEST_F(CaptureTest, RawPictureOfUnknownPatternIsShownWithoutColours)
{
    board->faultSet({Fault::Error, "Sensor::configGet"_id});
    EXPECT_EQ(take(), "Server: The board refuses");
    ASSERT_EQ(viewers().size(), 1);
    EXPECT_TRUE(pixelText({1, 0}).contains(" (x1 y0) "));
    EXPECT_TRUE(pActionCapture->isEnabled());
}

TEST_F(CaptureTest, NothingIsShownThatWasNotStored)
{
    const auto directory = config.preferences.capture.path;
    // Whoever runs this, no file can be made there.
    config.preferences.capture.path = "/proc/self";
    EXPECT_NE(take().find(" failed: "), std::string::npos);

    config.preferences.capture.path = directory;
    QDir().mkpath("captures/taken.pgm");
    for (const auto& [name, text] :
         {std::make_pair("taken.pgm", "Download failed: no file taken.pgm in " + str(directory)),
          {"../.x.pgm", "Download failed: .x.pgm would be a hidden file"}})
    {
        board->answerSet("Camera::capture"_id, "file.name", name);
        EXPECT_EQ(take(), text);
    }
    EXPECT_TRUE(viewers().isEmpty());
}

TEST_F(CaptureTest, FileThatATransportStoresInTheWorkingDirectoryIsMoved)
{
    board->answerSet("Camera::capture"_id, "file.name", "stray.pgm");
    const QByteArray picture("P5\n1 1\n255\nx");
    // In the way of the transport until it has given up.
    QDir().mkpath("captures/stray.pgm");
    during(
        Fault::Download, [this] { EXPECT_EQ(take(), ""); },
        [&]
        {
            QDir().rmdir("captures/stray.pgm");
            fileWrite("stray.pgm", picture);
        });
    EXPECT_EQ(fileRead("captures/stray.pgm"), picture);
    EXPECT_FALSE(QFile::exists("stray.pgm"));
    EXPECT_EQ(viewers().size(), 1);

    // What is removed was written by us, and what is shown as well, when the download stores nothing.
    const QByteArray own("P5\n1 1\n255\no");
    fileWrite("stray.pgm", own);
    fileWrite("board/stray.pgm", picture);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(fileRead("captures/stray.pgm"), picture + "\n");
    QFile::remove("captures/stray.pgm");
    QDir().mkpath("captures/stray.pgm");
    during(
        Fault::Download, [this] { EXPECT_TRUE(contains(take(), "Download failed: no file stray.pgm in ")); },
        [] { QDir().rmdir("captures/stray.pgm"); });
    EXPECT_EQ(fileRead("stray.pgm"), own);
    EXPECT_EQ(viewers().size(), 2);
    QFile::remove("stray.pgm");
}

TEST_F(CaptureTest, NextOneOfTheSameSecondHasTheNextName)
{
    for (const auto type : {Camera::Rgb, Camera::Yuv, Camera::Yuv, Camera::Raw08, Camera::Raw08})
    {
        config.preferences.capture.snapshotType = type;
        EXPECT_EQ(take(), "");
    }
    EXPECT_EQ(files("captures").size(), 7) << "two of YUV are four files";
    EXPECT_EQ(viewers().size(), 5);
}

TEST_F(CaptureTest, QueuedClicksMakeOneCapture)
{
    auto* pButton =
        qobject_cast<QToolButton*>(pMainWindow->findChild<QToolBar*>("Command")->widgetForAction(pActionCapture));
    ASSERT_TRUE(pButton);
    // Each waits its turn in the event loop, as those of the mouse do.
    const auto click = [pButton] { QMetaObject::invokeMethod(pButton, &QToolButton::click, Qt::QueuedConnection); };
    EXPECT_TRUE(hasWaitCursor("Camera::capture"_id, [&] { take(); }));
    during(
        "Camera::capture"_id,
        [&]
        {
            click();
            EXPECT_TRUE(waitUntil([this] { return viewers().size() == 2; }));
        },
        [&]
        {
            for (int i = 0; i < 3; ++i)
                click();
        });
    EXPECT_TRUE(waitUntil([this] { return pActionCapture->isEnabled(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(sent("Camera::capture"_id), 1u);
    click();
    EXPECT_TRUE(waitUntil([this] { return viewers().size() == 3; })) << "the action works again";
}
