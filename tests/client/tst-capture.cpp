// From the click in the tool bar to the picture on the screen.

#include "tests/support/board-fixture.h"
#include "tests/support/modals.h"
#include "tuning-client/source/control/picture-label.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/file/capture.h"
#include "tuning-client/source/image-viewer-main-window.h"
#include "tuning-client/source/shortcut/failure-guard.h"
#include "tuning-common/source/base64.h"
#include "tuning-rest/source/record.h"
#include "tuning-rest/source/sensor.h"

#include <QMouseEvent>
#include <QRegularExpression>
#include <QSlider>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <atomic>
#include <chrono>
#include <cstring>
#include <thread>

using board::Fault;
using rest::Camera;

namespace
{
constexpr int captureId = 10003;
constexpr int sensorStatusId = 80007;

class CaptureTest : public BoardTest
{
protected:
    CaptureTest()
    {
        capturesClear();
        config.preferences.capture = {};
        config.preferences.capture.path = QDir::currentPath() + "/captures";
        resolutionSet(64, 48);
        windowOpen();
    }

    void windowOpen()
    {
        open();
        for (auto* pAction : pMainWindow->findChild<QToolBar*>("Command")->actions())
        {
            if (pAction->text() == "&Capture Image")
                pActionCapture = pAction;
        }
    }

    /// Captures of the same second have the same name, and a converted one replaces none.
    static void capturesClear()
    {
        QDir("captures").removeRecursively();
        QDir().mkpath("captures");
    }

    static std::string statusText(rest::Sensor::Status status, uint32_t width, uint32_t height)
    {
        status.resolutionCollection.resolution = {height, width};
        return t_common::Base64::encode(status);
    }

    rest::Sensor::Status sensorStatus() const
    {
        auto status = rest::recordZero<rest::Sensor::Status>();
        const auto bytes = board->recordGet("Sensor", 0, "status");
        std::memcpy(&status, bytes.data(), sizeof status);
        return status;
    }

    void resolutionSet(uint32_t width, uint32_t height)
    {
        board->recordSet("Sensor", 0, t_common::Base64::decode(statusText(sensorStatus(), width, height)), "status");
    }

    /// The exposure by hand, twice as bright for twice the gain.
    void gainSet(double gain)
    {
        Json::Value query;
        query["function"] = "test";
        query["id"] = 4000104;
        query["generation"] = 0;
        query["enable"] = false;
        ASSERT_EQ(board->execute(query)["error"].asInt(), 0);
        auto sensor = rest::recordZero<rest::Sensor::Config>();
        const auto bytes = board->recordGet("Sensor", 0);
        std::memcpy(&sensor, bytes.data(), sizeof sensor);
        sensor._long = {float(gain), 0.005f};
        board->recordSet("Sensor", 0, t_common::Base64::decode(t_common::Base64::encode(sensor)));
    }

    /// Clicks, and waits until the action can be clicked again. The text in the status bar.
    QString take()
    {
        pMainWindow->statusBar()->clearMessage();
        EXPECT_TRUE(pActionCapture->isEnabled());
        pActionCapture->trigger();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        const auto text = status();
        EXPECT_TRUE(waitUntil([this] { return pActionCapture->isEnabled(); })) << text.toStdString();
        return text;
    }

    QList<ImageViewerMainWindow*> viewers() const { return pMainWindow->findChildren<ImageViewerMainWindow*>(); }

    static QPixmap pictureOf(const QWidget& viewer)
    {
        return viewer.findChild<PictureLabel*>()->pixmap(Qt::ReturnByValue);
    }

    static double brightness(const QImage& image)
    {
        double sum = 0;
        for (int y = 0; y < image.height(); ++y)
        {
            for (int x = 0; x < image.width(); ++x)
                sum += qGray(image.pixel(x, y));
        }
        return sum / (image.width() * image.height());
    }

    static QByteArray read(const QString& fileName)
    {
        QFile file(fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    static void write(const QString& fileName, const QByteArray& bytes)
    {
        QFile file(fileName);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
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
} kinds[] = {
    {Camera::Raw08, "RAW08_", ".pgm", "P5\n64 48\n255\n"},  {Camera::Raw10, "RAW10_", ".pgm", "P5\n64 48\n1023\n"},
    {Camera::Raw12, "RAW12_", ".pgm", "P5\n64 48\n4095\n"}, {Camera::Raw16, "RAW16_", ".pgm", "P5\n64 48\n65535\n"},
    {Camera::Rgb, "RGB_", ".ppm", "P6\n64 48\n255\n"},      {Camera::Yuv, "YUV_", ".yuv", ""}};
} // namespace

TEST_F(CaptureTest, EveryTypeIsTakenFetchedAndShown)
{
    for (const auto& kind : kinds)
    {
        SCOPED_TRACE(kind.prefix);
        config.preferences.capture.snapshotType = kind.type;
        double before = 0;
        for (double gain : {1.0, 3.0})
        {
            gainSet(gain);
            board->requestsClear();
            const auto shown = viewers();
            capturesClear();
            EXPECT_EQ(take().toStdString(), "");
            ASSERT_EQ(sent(captureId), 1u);
            Json::Value jQuery;
            for (const auto& request : board->requests())
            {
                if (request.query["id"] == captureId)
                    jQuery = request.query;
            }
            EXPECT_EQ(jQuery["snapshot.type"].asInt(), int(kind.type));
            EXPECT_EQ(jQuery["lock.type"].asUInt(), 0u);
            const auto name = QString::fromStdString(jQuery["file.name"].asString());
            EXPECT_TRUE(QRegularExpression(QString("^%1\\d{8}_\\d{6}$").arg(kind.prefix)).match(name).hasMatch())
                << name.toStdString();

            const auto stored = read("captures/" + name + kind.suffix);
            EXPECT_EQ(stored, read("board/" + name + kind.suffix) + "\n");
            EXPECT_TRUE(stored.startsWith(kind.head));
            auto added = viewers();
            for (auto* pOld : shown)
                added.removeOne(pOld);
            ASSERT_EQ(added.size(), 1);
            EXPECT_TRUE(added.first()->isVisible());
            const auto picture = pictureOf(*added.first());
            EXPECT_EQ(picture.size(), QSize(64, 48));
            const auto now = brightness(picture.toImage());
            EXPECT_GT(now, before * 1.5 + 5) << "brighter with the exposure";
            before = now;
            if (kind.type == Camera::Yuv)
            {
                EXPECT_TRUE(QFile::exists("captures/" + QString(name).replace("YUV", "RGB") + ".ppm"));
            }
            EXPECT_EQ(files("captures").size(), kind.type == Camera::Yuv ? 2 : 1) << "no temporary file stays";
        }
    }
    EXPECT_FALSE(QFile::exists("client_rgb.ppm"));
}

TEST_F(CaptureTest, RawPicturesFollowTheSensorsPattern)
{
    gainSet(1);
    // The object in the middle is orange: of two by two samples there, the red one is the brightest.
    const QPoint redPlaces[] = {{1, 1}, {0, 1}, {1, 0}, {0, 0}};
    for (int pattern = 0; pattern < 4; ++pattern)
    {
        auto sensor = rest::recordZero<rest::Sensor::Config>();
        const auto bytes = board->recordGet("Sensor", 0);
        std::memcpy(&sensor, bytes.data(), sizeof sensor);
        sensor.bayerPattern = rest::Sensor::Config::BayerPattern(pattern);
        board->recordSet("Sensor", 0, t_common::Base64::decode(t_common::Base64::encode(sensor)));
        take();
        const auto image = pictureOf(*viewers().last()).toImage();
        QPoint brightest;
        for (const auto& place : redPlaces)
        {
            if (image.pixel(QPoint(38, 20) + place) > image.pixel(QPoint(38, 20) + brightest))
                brightest = place;
        }
        EXPECT_EQ(brightest, redPlaces[pattern]);
    }
}

TEST_F(CaptureTest, SetPointOfThePageShowsInTheNextPicture)
{
    config.preferences.capture.snapshotType = Camera::Yuv;
    SliderSpinWidget* pSetPoint = nullptr;
    for (auto* pRow : page("Auto Exposure").findChildren<SliderSpinWidget*>())
    {
        if (pRow->findChild<QSlider*>()->accessibleName() == "Set Point")
            pSetPoint = pRow;
    }
    ASSERT_TRUE(pSetPoint);
    double before = 0;
    for (double setPoint : {30.0, 90.0})
    {
        pSetPoint->setValue(setPoint);
        board->advance(300);
        take();
        const auto now = brightness(pictureOf(*viewers().last()).toImage());
        EXPECT_NEAR(now, setPoint, 10);
        EXPECT_GT(now, before * 2);
        before = now;
        capturesClear();
    }
}

TEST_F(CaptureTest, LocksAndNamesFollowTheSettings)
{
    for (int i = 0; i < 8; ++i)
    {
        cfg::Capture capture;
        capture.isAf = (i & 1) != 0;
        capture.isAe = (i & 2) != 0;
        capture.isAwb = (i & 4) != 0;
        EXPECT_EQ(shortcut::captureLocksGet(capture), unsigned(i));
    }
    config.preferences.capture.isAe = true;
    config.preferences.capture.isAwb = true;
    board->requestsClear();
    take();
    for (const auto& request : board->requests())
    {
        if (request.query["id"] == captureId)
        {
            EXPECT_EQ(request.query["lock.type"].asInt(), 6);
        }
    }
    const QDateTime time({2024, 1, 31}, {23, 59, 59});
    EXPECT_EQ(shortcut::captureNameGet(Camera::Raw10, time), "RAW10_20240131_235959");
    EXPECT_EQ(shortcut::captureNameGet(Camera::SnapshotType(6), time), "");
}

TEST_F(CaptureTest, DirectoryIsCheckedBeforeTheBoardIsAsked)
{
    ClosedBoxes boxes;
    board->requestsClear();
    for (const auto& path : {QString("/no/such/directory"), QString(), QDir::currentPath() + "/chip/Full.xml"})
    {
        config.preferences.capture.path = path;
        pActionCapture->trigger();
        EXPECT_TRUE(pActionCapture->isEnabled());
    }
    config.preferences.capture.path = QDir::currentPath();
    pActionCapture->trigger();
    const QString missing = "Select Directory: The directory does not exist.";
    EXPECT_EQ(boxes.texts, QStringList({missing, missing, missing,
                                        "Select Directory: The image cannot be saved to the same path as the "
                                        "tuning_client.exe. Select another path"}));
    EXPECT_EQ(sent(captureId), 0u);
}

TEST_F(CaptureTest, EveryFailureFreesTheActionAndSaysWhy)
{
    const struct
    {
        Fault fault;
        const char* text;
    } rows[] = {
        {{Fault::Error, captureId}, "The board refuses"},
        {{Fault::ErrorBare, captureId}, "Capture failed: the board gives no reason"},
        {{Fault::MessageLong, captureId}, "mmmm"},
        {{Fault::MessageControl, captureId}, "?[31mred"},
        {{Fault::Close, captureId}, "Capture failed: Connection to 127.0.0.1"},
        {{Fault::ResetInBody, captureId}, " failed: "},
        {{Fault::BodyShort, captureId}, " failed: "},
        {{Fault::NotHttp, captureId}, "Capture failed: "},
        {{Fault::HeadHuge, captureId}, "Capture failed: "},
        {{Fault::AnswerEmpty, captureId}, "Capture failed: the answer is empty"},
        {{Fault::NotJson, captureId}, "JSON parse failed"},
        {{Fault::Nesting, captureId}, "JSON parse failed"},
        {{Fault::AnswerArray, captureId}, "JSON parse failed"},
        {{Fault::WrongTypes, captureId}, "file.name"},
        {{Fault::WrongTypes, captureId, -1, 0, "error"}, "error"},
        {{Fault::Close, Fault::Download}, " failed: "},
        {{Fault::ResetInBody, Fault::Download}, " failed: "},
        {{Fault::BodyShort, Fault::Download}, " failed: "},
        {{Fault::ChunkedCut, Fault::Download}, " failed: "},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.fault.kind << " of " << row.fault.id);
        board->faultSet(row.fault);
        const auto text = take();
        board->faultsClear();
        EXPECT_TRUE(text.contains(row.text)) << text.toStdString();
        EXPECT_LE(text.toUtf8().size(), 4096 + 3);
        EXPECT_TRUE(viewers().isEmpty());
    }
    // A download that failed leaves at most an empty file.
    for (const auto& name : files("captures"))
        EXPECT_EQ(QFileInfo("captures/" + name).size(), 0) << name.toStdString();

    resolutionSet(0, 0);
    EXPECT_EQ(take().toStdString(), "The sensor has no resolution");
    resolutionSet(64, 48);
    board->listenSet(false);
    const auto text = take();
    EXPECT_TRUE(text.startsWith("Capture failed: Connection to 127.0.0.1") && text.contains("refused"))
        << text.toStdString();
    board->listenSet(true);
    EXPECT_EQ(take().toStdString(), "");
    EXPECT_EQ(viewers().size(), 1);
}

TEST_F(CaptureTest, ConversionsThatFailOpenNoViewer)
{
    config.preferences.capture.snapshotType = Camera::Yuv;
    const auto status = sensorStatus();
    const struct
    {
        uint32_t width;
        uint32_t height;
        const char* text;
    } rows[] = {{64, 49, "64x49 takes 6272 bytes, the file has 6145"},
                {0, 48, "the sensor tells a size of 0x48"},
                {4000000000u, 4000000000u, "the sensor tells a size of 4000000000x4000000000"}};
    for (const auto& row : rows)
    {
        board->answerSet(sensorStatusId, "status", statusText(status, row.width, row.height));
        const auto text = take();
        EXPECT_TRUE(text.startsWith("Conversion of ") && text.contains(row.text)) << text.toStdString();
        board->answersClear();
    }
    board->faultSet({Fault::Error, sensorStatusId});
    EXPECT_EQ(take().toStdString(), "Server: The board refuses");
    board->faultsClear();
    for (const auto& name : files("captures"))
        EXPECT_TRUE(name.endsWith(".yuv")) << name.toStdString();

    // A directory where the picture should go.
    write("board/YUV_taken.yuv", QByteArray(64 * 48 * 2, 'x'));
    QDir().mkpath("captures/RGB_taken.ppm");
    board->answerSet(captureId, "file.name", "YUV_taken.yuv");
    const auto text = take();
    EXPECT_TRUE(text.contains("RGB_taken.ppm can't be written: ")) << text.toStdString();
    EXPECT_TRUE(viewers().isEmpty());
}

TEST_F(CaptureTest, HostileNamesStayInTheDirectory)
{
    ClosedBoxes boxes;
    write("o1.xml", "the user's own");
    write("board/o1.xml", "the board's");
    QDir().mkpath("elsewhere");
    const auto before = files(".");
    const struct
    {
        std::string name;
        const char* text; ///< what the status bar says, or a part of it
        const char* file; ///< what appears in the capture directory
    } rows[] = {{"", "File name check failed", nullptr},
                {".", "File name check failed", nullptr},
                {"..", "File name check failed", nullptr},
                {"../elsewhere/", "File name check failed", nullptr},
                {"..\\..\\c.pgm", "File name check failed", nullptr},
                {"a\nb.pgm", "File name check failed", nullptr},
                {std::string(4000, 'n'), "File name check failed", nullptr},
                {std::string("a\0b", 3), "File name check failed", nullptr},
                {"../../../elsewhere/hostile.pgm", "", "hostile.pgm"},
                {"/etc/passwd", "", "passwd"},
                {"with blank % \xc3\xa4.pgm", "", "with blank % \xc3\xa4.pgm"},
                {"50% x.pgm", "", "50% x.pgm"},
                {"q?x.pgm", "Download failed: q?x.pgm can't be named to the board", nullptr},
                {"h#x.pgm", "Download failed: h#x.pgm can't be named to the board", nullptr},
                {"a%4fx%1.pgm", "Download failed: a%4fx%1.pgm can't be named to the board", nullptr},
                {"\xff.pgm", "is not plain UTF-8", nullptr},
                {"../.x.pgm", "Download failed: .x.pgm would be a hidden file", nullptr},
                // What is removed was written by us.
                {"o1.xml", "", "o1.xml"}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name.substr(0, 60));
        capturesClear();
        board->answerSet(captureId, "file.name", row.name);
        const auto text = take();
        EXPECT_TRUE(text.contains(row.text)) << text.toStdString();
        EXPECT_EQ(files("captures"), row.file ? QStringList(row.file) : QStringList());
        EXPECT_EQ(files("."), before);
        EXPECT_TRUE(files("elsewhere").isEmpty());
        EXPECT_EQ(read("o1.xml"), "the user's own");
    }
    EXPECT_EQ(read("captures/o1.xml"), "the board's\n");
    for (const auto& text : boxes.texts)
        EXPECT_TRUE(text.startsWith("Image Viewer: Cannot load " + QDir::currentPath() + "/captures/"));
    EXPECT_EQ(boxes.texts.size(), 5);
}

TEST_F(CaptureTest, DirectoryThatTakesNoFilesIsTold)
{
    // Whoever runs this, no file can be made there.
    config.preferences.capture.path = "/proc/self";
    const auto text = take();
    EXPECT_TRUE(text.contains(" failed: ")) << text.toStdString();
    EXPECT_TRUE(viewers().isEmpty());

    config.preferences.capture.path = QDir::currentPath() + "/captures";
    board->answerSet(captureId, "file.name", "taken.pgm");
    QDir().mkpath("captures/taken.pgm");
    EXPECT_TRUE(take().startsWith("Download failed: no file taken.pgm in "));
    EXPECT_TRUE(viewers().isEmpty());

    board->requestsClear();
    config.preferences.capture.path = QDir::currentPath() + "/gone";
    shortcut::guarded(pMainWindow.get(),
                      [this] { shortcut::captureTake(pMainWindow->clientHolder(), config.preferences.capture); });
    EXPECT_EQ(status(), "Download failed: " + config.preferences.capture.path + " is no directory that can be written");
    EXPECT_EQ(sent(Fault::Download), 0u);
}

TEST_F(CaptureTest, FileThatATransportStoresInTheWorkingDirectoryIsMoved)
{
    board->answerSet(captureId, "file.name", "stray.pgm");
    const QByteArray picture("P5\n1 1\n255\nx");
    // In the way of the transport until it has given up.
    QDir().mkpath("captures/stray.pgm");
    during(
        Fault::Download, [this] { EXPECT_EQ(take().toStdString(), ""); },
        [&]
        {
            QDir().rmdir("captures/stray.pgm");
            write("stray.pgm", picture);
        });
    EXPECT_EQ(read("captures/stray.pgm"), picture);
    EXPECT_FALSE(QFile::exists("stray.pgm"));
    EXPECT_EQ(viewers().size(), 1);
}

TEST_F(CaptureTest, WithoutAClientTheReasonIsTold)
{
    pMainWindow.reset();
    config.preferences.server.type = "pigeon";
    {
        const ClosedBoxes boxes;
        windowOpen();
    }
    config.preferences.server.type = "http";
    EXPECT_EQ(take().toStdString(), "pClientHolder is never initialized");
}

TEST_F(CaptureTest, WindowThatIsClosedMeanwhileLeavesAWholeFile)
{
    for (const int64_t id : {int64_t(captureId), Fault::Download})
    {
        capturesClear();
        closedDuring(id, [this] { pActionCapture->trigger(); });
        ASSERT_EQ(files("captures").size(), 1);
        const auto name = files("captures").first();
        EXPECT_EQ(read("captures/" + name), read("board/" + name) + "\n");
        windowOpen();
    }
}

TEST_F(CaptureTest, QueuedClicksMakeOneCapture)
{
    auto* pButton =
        qobject_cast<QToolButton*>(pMainWindow->findChild<QToolBar*>("Command")->widgetForAction(pActionCapture));
    ASSERT_TRUE(pButton);
    Fault slow{Fault::Delay, captureId};
    slow.amount = 400;
    board->faultSet(slow);
    board->requestsClear();
    const auto click = [pButton]
    {
        const QPointF middle = pButton->rect().center();
        const QPointF there = pButton->mapToGlobal(middle.toPoint());
        for (auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        {
            const auto buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QApplication::postEvent(pButton,
                                    new QMouseEvent(type, middle, there, Qt::LeftButton, buttons, Qt::NoModifier));
        }
    };
    click();
    std::thread user(
        [&]
        {
            for (int i = 0; i < 3; ++i)
            {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                click();
            }
        });
    EXPECT_TRUE(waitUntil([this] { return sent(captureId) == 1 && !viewers().isEmpty(); }));
    user.join();
    EXPECT_TRUE(waitUntil([this] { return pActionCapture->isEnabled(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(sent(captureId), 1u);
    EXPECT_EQ(viewers().size(), 1);
    board->faultsClear();
    click();
    EXPECT_TRUE(waitUntil([this] { return viewers().size() == 2; })) << "the action works again";
}

// Takes the 30 seconds that a capture may take.
TEST_F(CaptureTest, SilentBoardIsWaitedForUnderTheWaitCursor)
{
    board->faultSet({Fault::Silence, captureId});
    board->requestsClear();
    std::atomic<bool> isWaiting{false};
    std::thread observer(
        [&]
        {
            while (board->count(captureId) == 0)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            // The GUI thread stands in the exchange.
            const auto* pCursor = QApplication::overrideCursor();
            isWaiting = pCursor && pCursor->shape() == Qt::WaitCursor;
        });
    const auto text = take();
    observer.join();
    EXPECT_TRUE(isWaiting);
    EXPECT_TRUE(text.startsWith("Capture failed: Connection to 127.0.0.1")) << text.toStdString();
    EXPECT_TRUE(viewers().isEmpty());
}

TEST_F(CaptureTest, WindowClosesWithViewersOpen)
{
    take();
    take();
    viewers().first()->close();
    EXPECT_TRUE(pictureOf(*viewers().first()).isNull());
    EXPECT_FALSE(pictureOf(*viewers().last()).isNull());
    pMainWindow->close();
    pMainWindow.reset();
}
