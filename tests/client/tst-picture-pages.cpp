// What the pages do that deal in rectangles and pictures.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/image-label.h"
#include "tuning-client/source/control/region-view.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/module/roi-widget.h"
#include "tuning-client/source/module/simp-widget.h"
#include "tuning-rest/source/sensor.h"

using board::Fault;
using rest::Roi;

namespace
{
enum Id
{
    SimpConfigSet = 4002902,
    RoiConfigGet = 4003201,
    RoiConfigSet,
    SensorStatusGet = 80007
};

class RoiPageTest : public BoardTest
{
protected:
    RoiPageTest()
    {
        aeEnable(true);
        for (auto& window : config.roi)
            window = {};
        config.windowNum = 2;
        config.roi[0] = {100, 50, 400, 200, 1.5f};
        config.roi[1] = {1000, 500, 920, 580, 2};
        config.roi[9] = {1, 2, 3, 4, 5};
        answerSet(RoiConfigGet, "config", config);
        frameSet({1080, 1920});
        pPage = &shown<RoiWidget>("Region Of Interested");
    }

    /// The board has a sensor of that size from now on.
    void frameSet(rest::Sensor::Config::Resolution size)
    {
        auto sensor = record<rest::Sensor::Status>("Sensor", "status");
        sensor.resolutionCollection.resolution = size;
        answerSet(SensorStatusGet, "status", sensor);
    }

    /// "Apply", and what the status bar says; empty once the board has taken the record.
    QString apply()
    {
        pMainWindow->statusBar()->clearMessage();
        board->requestsClear();
        pPage->findChild<QPushButton*>()->click();
        EXPECT_EQ(sent(RoiConfigSet), status().isEmpty() ? 1u : 0u);
        return status();
    }

    /// What the boxes of a row show.
    QRect row(int i) const
    {
        return {pPage->SpinBoxRoixStarts[i]->value(), pPage->SpinBoxRoiyStarts[i]->value(),
                pPage->SpinBoxRoiWidths[i]->value(), pPage->SpinBoxRoiHeights[i]->value()};
    }

    /// Where a pixel of the frame is on the window.
    QPoint at(int x, int y) const
    {
        const auto frame = pPage->pRegionView->frameRect();
        const auto place = frame.topLeft() + QPointF(x * frame.width() / 1920, y * frame.height() / 1080);
        return pPage->pRegionView->mapTo(pMainWindow.get(), place.toPoint());
    }

    void drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(pMainWindow->windowHandle(), Qt::LeftButton, {}, from);
        QTest::mouseMove(pMainWindow->windowHandle(), (from + to) / 2);
        QTest::mouseMove(pMainWindow->windowHandle(), to);
        QTest::mouseRelease(pMainWindow->windowHandle(), Qt::LeftButton, {}, to);
        QTest::mouseMove(pMainWindow->windowHandle(), from);
    }

    /// Whether both are the same but for the pixels of the screen.
    static bool isNear(const QRect& left, const QRect& right)
    {
        const auto corners = {left.topLeft() - right.topLeft(), left.bottomRight() - right.bottomRight()};
        return std::all_of(corners.begin(), corners.end(), [](QPoint by) { return by.manhattanLength() < 16; });
    }

    Roi::Config config{};
    RoiWidget* pPage;
};

/// What lies outside, of which row, and what is said of it.
struct Excess
{
    QVector<QSpinBox*> RoiWidget::*pBoxes;
    int row;
    int least; ///< that is too much
    const char* text;
    QVector<QSpinBox*> RoiWidget::*pOther = nullptr;
    int other = 0;
};
} // namespace

TEST_F(RoiPageTest, ReadShowsTheRowsInUseWithRangesOfTheFrame)
{
    refresh();
    EXPECT_EQ(pPage->pComboBoxResolution->count(), 1);
    EXPECT_EQ(pPage->pComboBoxResolution->currentText(), "1920x1080");
    frameSet({600, 1200});
    config.windowNum = UINT32_MAX;
    answerSet(RoiConfigGet, "config", config);
    refresh();
    EXPECT_TRUE(pPage->SpinBoxRoiWeights[15]->isVisible());
    config.windowNum = 1;
    answerSet(RoiConfigGet, "config", config);
    refresh();
    EXPECT_EQ(pPage->pComboBoxResolution->currentText(), "1200x600");
    EXPECT_EQ(pPage->pComboBoxResolution->currentData().toSize(), QSize(1200, 600));
    EXPECT_EQ(row(0), QRect(100, 50, 400, 200));
    for (const auto* pBox : {pPage->SpinBoxRoixStarts[0], pPage->SpinBoxRoiWidths[0]})
        EXPECT_EQ(pBox->maximum(), 1200);
    for (const auto* pBox : {pPage->SpinBoxRoiyStarts[0], pPage->SpinBoxRoiHeights[0]})
        EXPECT_EQ(pBox->maximum(), 600);
    const auto visible = [&](int i)
    {
        return QVector<bool>{pPage->Labelnums[i]->isVisible(),         pPage->SpinBoxRoixStarts[i]->isVisible(),
                             pPage->SpinBoxRoiyStarts[i]->isVisible(), pPage->SpinBoxRoiWidths[i]->isVisible(),
                             pPage->SpinBoxRoiHeights[i]->isVisible(), pPage->SpinBoxRoiWeights[i]->isVisible()};
    };
    board->requestsClear();
    pPage->pSliderSpinWidgetWindownum->setValue(3);
    EXPECT_EQ(visible(2), QVector<bool>(6, true));
    EXPECT_EQ(visible(3), QVector<bool>(6, false));
    EXPECT_EQ(board->requestCount(), 0u);
    EXPECT_EQ(pPage->SpinBoxRoiWidths[2]->maximum(), 1200) << "a row that was not read";
    const auto frame = pPage->pRegionView->frameRect();
    EXPECT_NEAR(frame.width() / frame.height(), 2, 0.01);
    for (const uint32_t side : {0u, UINT32_MAX})
    {
        frameSet({side, side});
        refresh();
        EXPECT_EQ(pPage->SpinBoxRoiHeights[0]->maximum(), side ? INT_MAX : 0);
        EXPECT_EQ(pPage->pRegionView->frameRect().isEmpty(), side == 0);
        EXPECT_FALSE(pPage->pRegionView->grab().isNull());
    }
}

TEST_F(RoiPageTest, IsFreeWhileTheSecondAutoExposureIsOn)
{
    for (const bool isOn : {false, true})
    {
        boardSwitch(4000104, !isOn, 0);
        boardSwitch(4000104, isOn, 1);
        refresh();
        EXPECT_EQ(pPage->isEnabled(), isOn);
        EXPECT_EQ(pPage->toolTip().isEmpty(), isOn) << "says why it is greyed";
        drag(at(300, 150), at(400, 250));
        EXPECT_EQ(row(0).x() != 100, isOn);
        EXPECT_EQ(lastQuery(4000103)["generation"], 1);
    }
    board->faultSet({Fault::Error, SensorStatusGet, 1, 0, "no sensor"});
    boardSwitch(4000104, false, 1);
    refresh();
    EXPECT_FALSE(pPage->isEnabled()) << "though the frame is not known";
}

TEST_F(RoiPageTest, PictureStandsBesideTheTableOrBelowIt)
{
    const auto* pTable = pPage->pGroupBoxRegionOfInterested;
    for (const int points : {10, 18, 10})
    {
        auto font = pPage->font();
        font.setPointSize(points);
        pPage->setFont(font);
        const auto isPlaced = [&]
        {
            const auto table = pTable->geometry();
            const auto view = pPage->pRegionView->geometry();
            return points > 10 ? view.top() > table.bottom()
                               : view.left() > table.right() && view.top() < table.bottom();
        };
        EXPECT_TRUE(waitUntil(isPlaced)) << points;
    }
}

TEST_F(RoiPageTest, NothingOutsideTheFrameIsSent)
{
    const auto x = &RoiWidget::SpinBoxRoixStarts, y = &RoiWidget::SpinBoxRoiyStarts;
    const auto width = &RoiWidget::SpinBoxRoiWidths, height = &RoiWidget::SpinBoxRoiHeights;
    const Excess rows[] = {
        {width, 0, 1821, "Width"}, {height, 0, 1031, "Height"},        {x, 1, 1001, "Width"},
        {y, 1, 501, "Height"},     {width, 15, 1801, "Width", x, 120}, {height, 15, 1, "Height", y, 1080},
    };
    for (const auto& excess : rows)
    {
        refresh();
        auto* pBox = (pPage->*excess.pBoxes)[excess.row];
        if (excess.pOther)
            (pPage->*excess.pOther)[excess.row]->setValue(excess.other);
        const int before = pBox->value();
        pBox->setValue(excess.least);
        EXPECT_EQ(str(apply()), excess.text + std::string(" is Out of Bounds")) << "row " << excess.row;
        EXPECT_EQ(pMainWindow->statusBar()->styleSheet(), "color:red");
        pBox->setValue(excess.least - 1);
        EXPECT_EQ(str(apply()), "");
        EXPECT_EQ(sent(SensorStatusGet), 1u);
        pBox->setValue(before);
    }
    pPage->SpinBoxRoixStarts[15]->setValue(801);
    frameSet({1080, 1920});
    EXPECT_EQ(apply(), "");
    // The sensor of now counts, not the one that was read.
    for (auto* pBox : {pPage->SpinBoxRoixStarts[1], pPage->SpinBoxRoiyStarts[1], pPage->SpinBoxRoiWidths[1],
                       pPage->SpinBoxRoiHeights[1]})
        pBox->setValue(0);
    frameSet({249, 800});
    EXPECT_EQ(apply(), "Height is Out of Bounds") << "the first row's, before the last one's";
    frameSet({250, 800});
    EXPECT_EQ(apply(), "X is Out of Bounds");
    pPage->SpinBoxRoixStarts[15]->setValue(800);
    pPage->SpinBoxRoiyStarts[15]->setValue(251);
    EXPECT_EQ(apply(), "Y is Out of Bounds");
    EXPECT_TRUE(waitUntil([this] { return status().isEmpty(); }));
    board->faultSet({Fault::Error, SensorStatusGet, -1, 0, "no sensor"});
    EXPECT_EQ(apply(), "Server: no sensor");
}

TEST_F(RoiPageTest, ApplySendsAllRows)
{
    pPage->pSliderSpinWidgetWindownum->setValue(5);
    pPage->SpinBoxRoixStarts[15]->setValue(7);
    pPage->SpinBoxRoiyStarts[15]->setValue(8);
    pPage->SpinBoxRoiWidths[15]->setValue(9);
    pPage->SpinBoxRoiHeights[15]->setValue(10);
    pPage->SpinBoxRoiWeights[15]->setValue(99.25);
    EXPECT_EQ(apply(), "");
    config.windowNum = 5;
    config.roi[9] = {}; // a row that was not in use when it was read
    config.roi[15] = {7, 8, 9, 10, 99.25f};
    EXPECT_EQ(lastQuery(RoiConfigSet)["config"].asString(), t_common::Base64::encode(config));
}

TEST_F(RoiPageTest, RectanglesAreDragged)
{
    drag(at(300, 150), at(500, 250));
    EXPECT_TRUE(isNear(row(0), {300, 150, 400, 200}));
    const double scale = pPage->pRegionView->frameRect().width() / 1920;
    for (const int by : {1, 2, 3, -1, -2, -3})
    {
        const int x = row(0).x() + qRound(by / scale);
        drag(at(500, 250), at(500, 250) + QPoint(by, 0));
        EXPECT_EQ(row(0).x(), x) << by << " pixels of the screen";
    }
    drag(at(300, 250), at(-900, 250));
    EXPECT_TRUE(isNear(row(0), {0, 150, 700, 200})) << "by the left edge, as far as the frame";
    drag(at(500, 250), at(-900, -900));
    EXPECT_EQ(row(0).topLeft(), QPoint(0, 0)) << "inside the frame";
    EXPECT_EQ(pPage->pRegionView->chosen(), 0);
    drag(at(700, 200), at(600, 300));
    EXPECT_TRUE(isNear(row(0), {0, 0, 600, 300})) << "by the corner";
    drag(at(1000, 800), at(700, 700));
    EXPECT_TRUE(isNear(row(1), {700, 500, 1220, 580})) << "by the left edge, the other one stays";
    drag(at(1300, 500), at(1300, 2000));
    EXPECT_EQ(row(1).height(), 0) << "no further than the edge opposite";
    // What is seen comes from the boxes.
    pPage->SpinBoxRoixStarts[0]->setFocus();
    pPage->SpinBoxRoixStarts[0]->selectAll();
    const auto before = pPage->pRegionView->grab().toImage();
    QTest::keyClicks(pPage->SpinBoxRoixStarts[0], "900");
    EXPECT_NE(pPage->pRegionView->grab().toImage(), before) << "typed, and not entered yet";
    drag(at(1000, 100), at(1100, 100));
    EXPECT_TRUE(isNear(row(0), {1000, 0, 600, 300}));
    pPage->pSliderSpinWidgetWindownum->setValue(3);
    drag(at(0, 0), at(200, 100));
    EXPECT_TRUE(isNear(row(2), {0, 0, 200, 100})) << "drawn out of a dot";
    const QRect small(1200, 100, 20, 20);
    pPage->SpinBoxRoixStarts[2]->setValue(small.x());
    pPage->SpinBoxRoiyStarts[2]->setValue(small.y());
    pPage->SpinBoxRoiWidths[2]->setValue(small.width());
    pPage->SpinBoxRoiHeights[2]->setValue(small.height());
    drag(at(1210, 110), at(1310, 210));
    EXPECT_TRUE(isNear(row(2), small.translated(100, 100))) << "out of the larger one around it";
    EXPECT_EQ(row(2).size(), small.size());
    EXPECT_EQ(board->requestCount(), 0u) << "nothing before \"Apply\"";
    EXPECT_EQ(apply(), "");
}

TEST_F(RoiPageTest, KeysChooseMoveAndResize)
{
    auto* pView = pPage->pRegionView;
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    { QTest::keyClick(QApplication::focusWidget(), code, modifiers); };
    pPage->SpinBoxRoiWeights[1]->setFocus();
    key(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), pView);
    key(Qt::Key_Right);
    key(Qt::Key_Up, Qt::ControlModifier);
    key(Qt::Key_Tab);
    EXPECT_EQ(pView->chosen(), 1);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(row(0), QRect(101, 40, 400, 200));
    EXPECT_EQ(row(1), QRect(1000, 500, 919, 580)) << "at the frame's lower edge";
    key(Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), pView) << "on from the last one";
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(pView->chosen(), 1);
    QTest::mousePress(pMainWindow->windowHandle(), Qt::LeftButton, {}, at(1400, 800));
    pPage->pSliderSpinWidgetWindownum->setValue(1);
    QTest::mouseMove(pMainWindow->windowHandle(), at(1300, 700));
    QTest::mouseRelease(pMainWindow->windowHandle(), Qt::LeftButton, {}, at(1300, 700));
    key(Qt::Key_Right);
    EXPECT_EQ(row(1).x(), 1000) << "not seen any more";
}

namespace
{
class SimpPageTest : public BoardTest
{
protected:
    SimpPageTest() { pPage = &shown<SImpWidget>("Super Impose"); }

    std::string lastRecord() const { return t_common::Base64::decode(lastQuery(SimpConfigSet)["config"].asString()); }

    /// The bytes that go to the board for a key colour.
    std::string keyed(int red, int green, int blue)
    {
        pPage->pSliderSpinWidgetRed->setValue(red);
        pPage->pSliderSpinWidgetGreen->setValue(green);
        pPage->pSliderSpinWidgetBlue->setValue(blue);
        return lastRecord();
    }

    /// All of a record of that mode.
    static std::string bytes(char mode, const std::vector<int>& values)
    {
        std::string record(24, '\0');
        record[0] = mode;
        for (size_t i = 0; i < values.size(); ++i)
            record[4 + i] = char(values[i]);
        return record;
    }

    /// Chooses that file behind "Load Image..."; null cancels. What the box says comes back.
    QString load(const QString& path)
    {
        const FileDialogAnswer answer(path);
        pPage->pPushButtonLoadImage->click();
        EXPECT_EQ(str(answer.seen), str("Open Image|" + QDir::homePath() + "/Pictures|All Files (*)"));
        return answer.said;
    }

    QPointF place() const { return pPage->pImageLabel->items().first()->pos(); }

    SImpWidget* pPage;
};
} // namespace

TEST_F(SimpPageTest, KeyColoursGoAsTheVideoHasThem)
{
    const auto keySeen = [&] { return pPage->pLabelColor->pixmap(Qt::ReturnByValue).toImage().pixelColor(0, 0); };
    EXPECT_EQ(keySeen(), QColor(Qt::black));
    EXPECT_EQ(keyed(255, 255, 255), bytes(2, {234, 128, 128}));
    EXPECT_EQ(keyed(0, 0, 255), bytes(2, {40, 239, 110}));
    EXPECT_EQ(keyed(255, 0, 0), bytes(2, {81, 90, 239}));
    EXPECT_EQ(keyed(0, 255, 0), bytes(2, {144, 54, 34}));
    EXPECT_EQ(keyed(255, 255, 0), bytes(2, {209, 16, 146}));
    EXPECT_EQ(keyed(10, 3, 1), bytes(2, {20, 126, 131}));
    EXPECT_EQ(keySeen(), QColor(10, 3, 1));
    pPage->pGroupBoxKeyColor->setChecked(true); // a label that is greyed greys its colour
    const auto shown = pPage->pLabelColor->grab().toImage();
    EXPECT_EQ(shown.width(), 150);
    EXPECT_EQ(shown.pixelColor(2, 2), QColor(10, 3, 1)) << "all over";
    EXPECT_EQ(lastQuery(SimpConfigSet)["file.name"], "");
}

TEST_F(SimpPageTest, OneModeIsOnAndChoosingSendsNothing)
{
    const auto modes = [&] {
        return QVector<bool>{pPage->pGroupBoxOverlay->isChecked(), pPage->pGroupBoxKeyColor->isChecked()};
    };
    EXPECT_EQ(modes(), QVector<bool>({true, false}));
    for (auto* pGroupBox : {pPage->pGroupBoxOverlay, pPage->pGroupBoxKeyColor})
        for (const bool isOn : {false, true})
        {
            pGroupBox->setChecked(isOn);
            EXPECT_EQ(modes(), QVector<bool>({isOn == (pGroupBox == pPage->pGroupBoxOverlay),
                                              isOn != (pGroupBox == pPage->pGroupBoxOverlay)}));
        }
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(SimpPageTest, PictureIsLoadedShownAndNamed)
{
    QDir::home().mkpath("Pictures");
    const auto path = QDir().absoluteFilePath("logo 1.png");
    QImage image(30, 20, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 0, 0)); // the board lays it over the video without its alpha
    ASSERT_TRUE(image.save(path));
    load(path);
    EXPECT_EQ(sent(Fault::Upload), 1u);
    EXPECT_EQ(fileRead(QString::fromStdString(board->directory()) + "/logo 1.png"), fileRead(path));
    fileWrite("no-picture.png", "text");
    EXPECT_EQ(load(QDir().absoluteFilePath("no-picture.png")),
              "Super Impose: Cannot load image " + QDir().absoluteFilePath("no-picture.png") + ".");
    load(QString());
    EXPECT_EQ(sent(Fault::Upload), 1u);
    EXPECT_EQ(board->requestCount(), 1u) << "loading sends no record";
    EXPECT_EQ(pPage->pLabelFileName->text(), path);
    const auto at = [&](int x, int y) { return pPage->pImageLabel->mapFromScene(x, y); };
    EXPECT_EQ(pPage->pImageLabel->viewport()->grab().toImage().pixelColor(at(15, 10)), QColor(Qt::red));
    const auto size = pPage->pImageLabel->geometry().size();
    EXPECT_NEAR(size.width() * 9, size.height() * 16, 16);

    pPage->pSliderSpinWidgetOffsetX->setValue(1500);
    EXPECT_EQ(lastRecord(), bytes(1, {0xdc, 5, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(lastQuery(SimpConfigSet)["file.name"], "logo 1.png");
    board->faultSet({Fault::Error, SimpConfigSet, -1, 0, "not now"});
    pPage->pSliderSpinWidgetOffsetY->setValue(260);
    EXPECT_EQ(status(), "Server: not now");
    EXPECT_EQ(lastRecord(), bytes(1, {0xdc, 5, 0, 0, 4, 1, 0, 0}));
    EXPECT_EQ(place(), QPointF(1500, 260)) << "seen though it was refused";
}
