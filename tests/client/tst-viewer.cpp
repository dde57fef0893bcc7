// The window that shows a picture.

#include "tests/support/actions.h"
#include "tests/support/files.h"
#include "tests/support/modals.h"
#include "tests/support/qt-main.h"
#include "tests/support/wheel.h"
#include "tuning-client/source/control/picture-label.h"
#include "tuning-client/source/image-viewer-main-window.h"

namespace
{
class ViewerTest : public testing::Test
{
protected:
    ViewerTest() { viewer.show(); }

    /// A grey picture of 10 bits; the sample at x, y is x + y.
    QString pictureWrite(const QString& name, int width, int height)
    {
        QByteArray bytes = QString("P5\n%1 %2\n1023\n").arg(width).arg(height).toLatin1();
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                bytes.append(char((x + y) >> 8)).append(char(x + y));
        return write(name, bytes);
    }

    QString write(const QString& name, const QByteArray& bytes)
    {
        fileWrite(directory.filePath(name), bytes);
        return directory.filePath(name);
    }

    QAction& action(const QString& text) { return *actionOf(viewer.findChildren<QAction*>(), text); }

    /// Chooses that file in the dialog that the action opens; null cancels. What the dialog was told comes back.
    QString choose(const QString& text, const QString& path)
    {
        const FileDialogAnswer answer(path);
        action(text).trigger();
        return answer.seen;
    }

    PictureLabel& label() { return *viewer.findChild<PictureLabel*>(); }

    /// Moves the mouse from one pixel to another, not straight, with the button held down.
    void drag(Qt::MouseButton button, const QPoint& from, const QPoint& to)
    {
        const auto begin = place(from);
        const auto end = place(to);
        QTest::mousePress(viewer.windowHandle(), button, {}, begin);
        QTest::mouseMove(viewer.windowHandle(), end + QPoint(20, 30));
        QTest::mouseMove(viewer.windowHandle(), end);
        QTest::mouseRelease(viewer.windowHandle(), button, {}, end);
    }

    /// A pixel's place in the window, at any zoom.
    QPoint place(const QPoint& pixel)
    {
        const auto shown = label().pictureRect();
        const int width = label().pixmap(Qt::ReturnByValue).width();
        return label().mapTo(&viewer, shown.topLeft() + (pixel * 2 + QPoint(1, 1)) * shown.width() / (2 * width));
    }

    /// Chooses from the menu that a click of the right button opens.
    void menuChoose(const QString& entry)
    {
        QTest::mouseClick(viewer.windowHandle(), Qt::RightButton, {}, {200, 150});
        auto* pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(pMenu, nullptr);
        actionOf(pMenu->findChildren<QAction*>(), entry)->trigger();
        pMenu->close();
    }

    void wheel(const QPoint& at, int angle) { wheelTurn(&viewer, at, angle, Qt::ControlModifier); }

    bool isMeasuring() { return viewer.findChild<QDockWidget*>()->isVisible(); }

    /// The rows of figures, each under its channel's name.
    QString figures(const ImageViewerMainWindow& window)
    {
        QStringList rows;
        const auto& table = *window.findChild<QTableWidget*>();
        for (int row = 0; row < table.rowCount(); ++row)
        {
            rows.append(table.verticalHeaderItem(row)->text());
            for (int column = 0; column < table.columnCount(); ++column)
                rows.last() += " " + table.item(row, column)->text();
        }
        return rows.join("\n");
    }

    QPoint scrolled(const ImageViewerMainWindow& window)
    {
        const auto& area = *window.findChild<QScrollArea*>();
        return {area.horizontalScrollBar()->value(), area.verticalScrollBar()->value()};
    }

    QString text(const QString& name) { return viewer.findChild<QLabel*>(name)->text(); }

    QTemporaryDir directory;
    ImageViewerMainWindow viewer;
};
} // namespace

TEST_F(ViewerTest, ActionsHaveTheirPlacesAndKeys)
{
    QStringList found;
    for (auto* pMenu : viewer.menuBar()->actions())
        for (auto* pAction : pMenu->menu()->actions())
            found.append(pAction->text() + "|" + pAction->shortcut().toString() + (pAction->isEnabled() ? "" : "|off"));
    EXPECT_EQ(str(found.join('\n')), "&Open...|Ctrl+O\n&Save As...|Ctrl+S\n&Exit|Ctrl+E\n"
                                     "Zoom &In (25%)|Ctrl++|off\nZoom &Out (25%)|Ctrl+-|off\n"
                                     "&Normal Size|Ctrl+S|off\n|\n&Fit to Window|Ctrl+F|off");
    EXPECT_EQ(viewer.size(), QSize(1000, 800));
    action("&Exit").trigger();
    EXPECT_FALSE(viewer.isVisible());
}

TEST_F(ViewerTest, NewestFileIsShown)
{
    viewer.open(directory.path());
    EXPECT_TRUE(label().pixmap(Qt::ReturnByValue).isNull()) << "an empty directory shows nothing";
    QFile old(pictureWrite("b.pgm", 10, 10));
    ASSERT_TRUE(old.open(QIODevice::ReadWrite));
    ASSERT_TRUE(old.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    old.close();
    pictureWrite("c.pgm", 320, 200);
    viewer.open(directory.path());
    EXPECT_EQ(label().size(), QSize(320, 200));
    EXPECT_EQ(text("Size"), "320 x 200");
    EXPECT_EQ(text("File"), "c.pgm");
    EXPECT_EQ(viewer.windowTitle(), "Image Viewer");
    EXPECT_EQ(text("Zoom"), "100 %");
}

TEST_F(ViewerTest, ZoomKeepsItsBounds)
{
    pictureWrite("a.pgm", 1600, 1000);
    viewer.open(directory.path());
    auto& zoomIn = action("Zoom &In (25%)");
    auto& zoomOut = action("Zoom &Out (25%)");
    auto* pBar = viewer.findChild<QScrollArea*>()->horizontalScrollBar();
    pBar->setValue(300);
    const int page = pBar->pageStep();
    zoomIn.trigger();
    EXPECT_EQ(pBar->value(), int(1.25 * 300 + 0.25 * page / 2));
    for (int i = 1; i < 5; ++i)
    {
        EXPECT_TRUE(zoomIn.isEnabled());
        zoomIn.trigger();
    }
    EXPECT_FALSE(zoomIn.isEnabled());
    EXPECT_EQ(text("Zoom"), "305 %");
    EXPECT_EQ(label().size(), (1.25 * 1.25 * 1.25 * 1.25 * 1.25) * QSize(1600, 1000));
    zoomOut.trigger();
    EXPECT_TRUE(zoomIn.isEnabled());
    action("&Normal Size").trigger();
    EXPECT_EQ(label().size(), QSize(1600, 1000));
    for (int i = 0; i < 5; ++i)
    {
        EXPECT_TRUE(zoomOut.isEnabled());
        zoomOut.trigger();
    }
    EXPECT_FALSE(zoomOut.isEnabled());

    action("&Fit to Window").trigger();
    for (auto* pAction : {&zoomIn, &zoomOut, &action("&Normal Size")})
        EXPECT_FALSE(pAction->isEnabled());
    EXPECT_EQ(label().size(), viewer.findChild<QScrollArea*>()->viewport()->size());
    action("&Fit to Window").trigger();
    EXPECT_EQ(label().size(), QSize(1600, 1000));
    EXPECT_TRUE(zoomOut.isEnabled());
}

TEST_F(ViewerTest, StatusBarTellsThePixelUnderTheMouse)
{
    pictureWrite("a.pgm", 600, 500);
    viewer.open(directory.path());
    QTest::mouseMove(&label(), {100, 200});
    EXPECT_EQ(text("Pixel"), "x 100  y 200   Raw 300   RGB 74 74 74");
    action("Zoom &In (25%)").trigger();
    QTest::mouseMove(&label(), {126, 0});
    EXPECT_EQ(text("Pixel"), "x 100  y 0   Raw 100   RGB 24 24 24");
    action("&Fit to Window").trigger();
    const auto size = viewer.findChild<QScrollArea*>()->viewport()->size();
    const int width = 600 * size.height() / 500;
    const int left = (size.width() - width) / 2;
    QTest::mouseMove(&label(), {left + width - 1, size.height() - 1});
    EXPECT_EQ(text("Pixel"), "x 599  y 499   Raw 1098   RGB 255 255 255");
    EXPECT_EQ(text("Zoom"), QString("%1 %").arg(qRound(100.0 * size.height() / 500)));
    QTest::mouseMove(&label(), {left - 2, size.height() - 1});
    EXPECT_EQ(text("Pixel"), "") << "beside a picture that keeps its proportions";
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&label(), &leave);
    EXPECT_EQ(text("Pixel"), "");
}

TEST_F(ViewerTest, RectangleOfTheRightButtonIsMeasured)
{
    const auto path = pictureWrite("RAW10_20240131_235959.pgm", 1600, 1000);
    viewer.open(directory.path());
    action("Zoom &In (25%)").trigger();
    QTest::mouseMove(&label(), label().mapFromParent({2, 2}));
    QTest::mouseMove(viewer.windowHandle(), place({401, 302}));
    EXPECT_EQ(text("Pixel"), "x 401  y 302   Raw 703 (x1 y0)   RGB 175 175 175");
    EXPECT_FALSE(isMeasuring());
    // Upwards and to the left is as good; the figures come at the end, and then with each move.
    drag(Qt::RightButton, {403, 302}, {400, 300});
    EXPECT_EQ(label().rectangle(), QRect(400, 300, 4, 3));
    ASSERT_TRUE(isMeasuring());
    EXPECT_EQ(str(figures(viewer)), "x0 y0 702.00 1.41 700 704 4\nx1 y0 703.00 1.41 701 705 4\n"
                                    "x0 y1 702.00 1.00 701 703 2\nx1 y1 703.00 1.00 702 704 2");
    const auto shown = label().grab(label().rectangleShown().adjusted(-1, -1, 0, 0)).toImage();
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::yellow));
    EXPECT_EQ(qRed(shown.pixel(1, 1)), 700 * 255 / 1023) << "its pixels are not painted over";

    viewer.patternSet("/other.pgm", mosaic::Pattern::Bggr);
    viewer.patternSet(path, mosaic::Pattern::Grbg);
    EXPECT_TRUE(figures(viewer).startsWith("Gr 702.00 1.41 700 704 4\nR 703.00")) << str(figures(viewer));
    menuChoose("&Copy the Figures");
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith("\nGb\t703.00\t1.00\t702\t704\t2\n"));
    menuChoose("None");
    EXPECT_EQ(str(figures(viewer)), "Grey 702.50 1.38 700 705 12");
    menuChoose("&Remove the Rectangle");
    EXPECT_FALSE(isMeasuring());
    EXPECT_TRUE(label().rectangle().isEmpty());

    menuChoose("Measure the &Whole Picture");
    EXPECT_TRUE(figures(viewer).endsWith(" 0 2598 1600000")) << "also samples above the file's own maximum";
    QTest::keyClick(viewer.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isMeasuring());
    action("&Normal Size").trigger();
    viewer.findChild<QScrollArea*>()->horizontalScrollBar()->setValue(70);
    menuChoose("Measure What is &Seen");
    EXPECT_EQ(label().rectangle().left(), 70);
    viewer.findChild<QDockWidget*>()->close();
    EXPECT_TRUE(label().rectangle().isEmpty());
    menuChoose("Measure the &Whole Picture");
    pictureWrite("b.pgm", 20, 20);
    choose("&Open...", directory.filePath("b.pgm"));
    EXPECT_FALSE(isMeasuring()) << "what is measured has gone";
}

TEST_F(ViewerTest, WheelZoomsAtThePointerAndTheLeftButtonMoves)
{
    pictureWrite("a.pgm", 1600, 1000);
    viewer.open(directory.path());
    const QPoint at = place({500, 300});
    wheel(at, 60);
    EXPECT_EQ(text("Zoom"), "100 %") << "half a notch";
    for (int i = 0; i < 11; ++i)
        wheel(at, 60);
    EXPECT_EQ(text("Zoom"), "305 %") << "no further than the action";
    EXPECT_LE((place({500, 300}) - at).manhattanLength(), 4);
    EXPECT_FALSE(action("Zoom &In (25%)").isEnabled());

    const auto before = scrolled(viewer);
    drag(Qt::LeftButton, {500, 300}, {470, 310});
    EXPECT_EQ(scrolled(viewer), before + QPoint(91, -31));
    EXPECT_FALSE(isMeasuring());
    QTest::mousePress(viewer.windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(label().cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseRelease(viewer.windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(label().cursor().shape(), Qt::ArrowCursor);

    for (int i = 0; i < 20; ++i)
        wheel(at, -120);
    EXPECT_EQ(text("Zoom"), "33 %");
    action("&Fit to Window").trigger();
    const auto fitted = text("Zoom");
    wheel(at, 120);
    EXPECT_EQ(text("Zoom"), fitted);
}

TEST_F(ViewerTest, LinkedViewersShowTheSamePlace)
{
    const auto name = pictureWrite("a.pgm", 1600, 1000);
    viewer.open(directory.path());
    ImageViewerMainWindow other;
    other.show();
    other.open(directory.path());
    other.move(50, 60);
    other.resize(700, 600);
    other.findChild<PictureLabel*>()->setRectangle({5, 6, 7, 8});
    menuChoose("Link to a.pgm");
    EXPECT_EQ(label().rectangle(), QRect(5, 6, 7, 8)) << "the only rectangle is that of both";
    menuChoose("Link to a.pgm");
    action("Zoom &In (25%)").trigger();
    drag(Qt::RightButton, {220, 110}, {260, 150});
    menuChoose("Link to a.pgm");
    const auto expectSame = [&]
    {
        EXPECT_EQ(other.findChild<QLabel*>("Zoom")->text(), text("Zoom"));
        EXPECT_EQ(scrolled(other), scrolled(viewer));
        EXPECT_EQ(other.findChild<PictureLabel*>()->rectangle(), label().rectangle());
    };
    expectSame();
    EXPECT_EQ(figures(other), figures(viewer));
    drag(Qt::LeftButton, {300, 200}, {200, 150});
    EXPECT_NE(scrolled(viewer), QPoint());
    expectSame();
    actionOf(other.findChildren<QAction*>(), "Zoom &In (25%)")->trigger();
    QTest::keyClick(other.windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(text("Zoom"), "156 %");
    expectSame();
    QTest::keyClick(viewer.windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(waitUntil([&] { return other.isActiveWindow(); }));
    EXPECT_EQ(other.geometry(), viewer.geometry());
    QTest::keyClick(other.windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(waitUntil([&] { return viewer.isActiveWindow(); }));
    action("&Fit to Window").trigger();
    EXPECT_TRUE(actionOf(other.findChildren<QAction*>(), "&Fit to Window")->isChecked());
    action("&Fit to Window").trigger();
    expectSame();

    pictureWrite("b.pgm", 800, 500);
    {
        const FileDialogAnswer answer(directory.filePath("b.pgm"));
        actionOf(other.findChildren<QAction*>(), "&Open...")->trigger();
    }
    // The smaller picture comes to the same zoom, and as near as it reaches; only the user moves the larger one.
    for (int i = 0; i < 3; ++i)
        action("Zoom &In (25%)").trigger();
    EXPECT_EQ(other.findChild<QLabel*>("Zoom")->text(), text("Zoom"));
    for (auto* pBar : viewer.findChild<QScrollArea*>()->findChildren<QScrollBar*>())
        pBar->triggerAction(QScrollBar::SliderToMaximum);
    const auto furthest = scrolled(viewer);
    const auto reached = scrolled(other);
    EXPECT_LT(reached.x(), furthest.x());
    other.resize(other.width() + 50, other.height());
    ASSERT_TRUE(waitUntil([&] { return scrolled(other).x() < reached.x(); }));
    EXPECT_EQ(scrolled(viewer), furthest);
    wheelTurn(&other, {200, 150}, 120);
    EXPECT_LT(scrolled(other).y(), reached.y());
    EXPECT_EQ(scrolled(viewer), scrolled(other));
    label().setRectangle({1000, 700, 100, 100});
    EXPECT_EQ(other.findChild<PictureLabel*>()->rectangle(), QRect()) << "outside its picture";
    actionOf(other.findChildren<QAction*>(), "Zoom &In (25%)")->trigger();
    EXPECT_EQ(label().rectangle(), QRect(1000, 700, 100, 100));

    other.close();
    EXPECT_EQ(text("Link"), "");
    action("Zoom &In (25%)").trigger();
    QTest::keyClick(viewer.windowHandle(), Qt::Key_Space);
    EXPECT_FALSE(other.isVisible());
}

TEST_F(ViewerTest, FiguresOfALargeRectangleWaitForTheMouse)
{
    write("a.pgm", "P5 4000 3000 255\n" + QByteArray(4000 * 3000, 'x'));
    viewer.open(directory.path());
    action("&Fit to Window").trigger();
    label().setRectangle({0, 0, 10, 10});
    const auto before = figures(viewer);
    const auto begin = place({0, 0});
    const auto drawTo = [&](const QPoint& pixel) { QTest::mouseMove(viewer.windowHandle(), place(pixel)); };
    QTest::mousePress(viewer.windowHandle(), Qt::RightButton, {}, begin);
    drawTo({2000, 1500});
    EXPECT_TRUE(waitUntil([&] { return figures(viewer) != before; }));
    const auto small = figures(viewer);
    drawTo({3990, 2990});
    EXPECT_EQ(str(figures(viewer)), str(small));
    EXPECT_TRUE(waitUntil([&] { return figures(viewer) != small; })) << "the mouse rests";
    drawTo({2000, 1500});
    EXPECT_TRUE(waitUntil([&] { return figures(viewer) == small; }));
    drawTo({3990, 2990});
    QTest::mouseRelease(viewer.windowHandle(), Qt::RightButton, {}, place({3990, 2990}));
    EXPECT_NE(str(figures(viewer)), str(small));
}

TEST_F(ViewerTest, EnlargedPixelsStaySquares)
{
    write("a.ppm", QByteArray("P6 2 1 255\n") + QByteArray::fromHex("ff000000ff00"));
    viewer.open(directory.path());
    action("&Fit to Window").trigger();
    const auto shown = label().grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.rect().center() - QPoint(2, 0)), QColor(255, 0, 0));
    EXPECT_EQ(shown.pixelColor(shown.rect().center() + QPoint(3, 0)), QColor(0, 255, 0));
    EXPECT_EQ(shown.pixelColor(shown.width() / 2 - 2, 5), QColor(Qt::white)) << "above it";
}

TEST_F(ViewerTest, WhatCannotBeLoadedIsToldInABox)
{
    ClosedBoxes boxes;
    const auto name = write("<b>bold.pgm", "no picture");
    viewer.open(directory.path());
    EXPECT_EQ(boxes.texts, QStringList("Image Viewer: Cannot load " + name + "."));
    EXPECT_FALSE(action("&Fit to Window").isEnabled());
    QTest::mouseMove(&label(), {1, 1});
    EXPECT_EQ(text("Pixel"), "");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    QDir(directory.path()).mkdir("other");
    const auto shown = pictureWrite("other/a.pgm", 20, 20);
    choose("&Open...", shown);
    viewer.open(directory.path());
    EXPECT_EQ(boxes.texts.size(), 2);
    choose("&Save As...", directory.filePath("copy"));
    EXPECT_EQ(fileRead(directory.filePath("copy.pgm")), fileRead(shown)) << "the picture that is still shown";
}

TEST_F(ViewerTest, FileIsOpenedThroughTheDialog)
{
    const auto name = pictureWrite("a.pgm", 40, 30);
    choose("&Open...", name);
    EXPECT_EQ(label().size(), QSize(40, 30));
    // The zoom goes on from where it was.
    action("Zoom &In (25%)").trigger();
    choose("&Open...", name);
    EXPECT_EQ(label().size(), QSize(40, 30));
    choose("&Open...", QString());
    action("Zoom &In (25%)").trigger();
    EXPECT_EQ(label().size(), 1.25 * 1.25 * QSize(40, 30));
    viewer.open(directory.path());
    action("Zoom &In (25%)").trigger();
    EXPECT_EQ(label().size(), 1.25 * QSize(40, 30));
}

TEST_F(ViewerTest, ClosedItKeepsNeitherPictureNorWindowAndCanBeShownAgain)
{
    write("a.ppm", QByteArray("P6 1 1 255\n") + QByteArray::fromHex("ff0000"));
    for (int i = 0; i < 2; ++i)
    {
        viewer.show();
        viewer.open(directory.path());
        action("&Fit to Window").setChecked(true);
        viewer.findChild<QScrollArea*>()->setWidgetResizable(true);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        EXPECT_EQ(viewer.grab().toImage().pixelColor(500, 400), QColor(Qt::red));
        // As the user does it.
        QCloseEvent close;
        QApplication::sendEvent(viewer.windowHandle(), &close);
        EXPECT_FALSE(viewer.isVisible());
        EXPECT_TRUE(label().pixmap(Qt::ReturnByValue).isNull());
        EXPECT_EQ(text("Size"), "");
        EXPECT_TRUE(waitUntil([&] { return !viewer.windowHandle(); }));
    }
    // Shown at once, it keeps the window.
    viewer.show();
    viewer.close();
    viewer.show();
    QCoreApplication::processEvents();
    EXPECT_NE(viewer.windowHandle(), nullptr);
}

TEST_F(ViewerTest, FileIsCopiedThroughTheDialog)
{
    QImage image(5, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (const QString kind : {"pgm", "ppm", "jpg"})
    {
        const auto name = directory.filePath("a." + kind);
        ASSERT_TRUE(image.save(name));
        choose("&Open...", name);
        // A suffix that is there already gets a second one.
        for (const auto& copy : {QString("copy"), "twice." + kind})
        {
            const auto kindUpper = kind == "jpg" ? QString("JPEG") : kind.toUpper();
            EXPECT_EQ(choose("&Save As...", directory.filePath(copy)),
                      "Save Snapshot File|" + QDir::currentPath() + "|" + kindUpper + " Files(*." + kind + ")");
            EXPECT_EQ(fileRead(directory.filePath(copy + "." + kind)), fileRead(name));
        }
        choose("&Save As...", directory.filePath("copy"));
        EXPECT_TRUE(viewer.statusBar()->currentMessage().startsWith("Saving failed: "));
        choose("&Save As...", QString());
    }
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files).size(), 9);

    // Those keys stand for two actions.
    viewer.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return viewer.isActiveWindow(); }));
    EXPECT_TRUE(action("&Normal Size").isEnabled());
    const FileDialogAnswer answer(directory.filePath("keys"));
    QTest::keyClick(&viewer, Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(QFile::exists(directory.filePath("keys.jpg"))) << str(answer.seen);

    const auto other = directory.filePath("z.png");
    ASSERT_TRUE(image.save(other));
    choose("&Open...", other);
    EXPECT_EQ(choose("&Save As...", "copy"), "") << "no dialog for a picture of another kind";
}
