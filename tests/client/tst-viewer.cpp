// The window that shows a picture, and the view of a scene.

#include "tests/support/actions.h"
#include "tests/support/files.h"
#include "tests/support/modals.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/control/image-label.h"
#include "tuning-client/source/control/picture-label.h"
#include "tuning-client/source/image-viewer-main-window.h"

#include <QGraphicsPixmapItem>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

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

TEST(ImageLabel, OffsetStaysInsideTheScene)
{
    ImageLabel label(nullptr);
    label.resize(480, 270);
    label.show();
    QImage image(100, 50, QImage::Format_RGB32);
    image.fill(Qt::red);
    label.setImage(image);
    const auto* pItem = label.scene()->items().constFirst();
    const struct
    {
        QPoint set;
        QPointF got;
    } rows[] = {{{-5, 5000}, {0, 1079}}, {{1920, -1}, {1919, 0}}, {{700, 400}, {700, 400}}};
    for (const auto& row : rows)
    {
        label.setOffset(row.set.x(), row.set.y());
        EXPECT_EQ(pItem->pos(), row.got);
    }
    const auto shown = label.viewport()->grab().toImage();
    const auto at = label.mapFromScene(750, 425);
    EXPECT_EQ(shown.pixelColor(at), QColor(Qt::red));
    EXPECT_NE(shown.pixelColor(label.mapFromScene(850, 425)), QColor(Qt::red));

    label.resize(480, 480);
    EXPECT_NEAR(label.transform().m22() / label.transform().m11(), 1920.0 / 1080, 0.02) << "whatever the aspect ratio";
}
