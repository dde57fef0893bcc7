#include "tuning-client/source/image-viewer-main-window.h"

#include "tuning-client/source/control/measure-dock.h"
#include "tuning-client/source/control/picture-label.h"
#include "tuning-client/source/control/picture-scroll-area.h"
#include "tuning-client/source/shortcut/message-box.h"
#include "tuning-client/source/shortcut/wait-cursor.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QStatusBar>
#include <QTextDocument>

#include <utility>

namespace
{
constexpr double zoomStepIn = 1.25;
constexpr double zoomStepOut = 0.8;
constexpr double zoomMaximum = 3.0;
constexpr double zoomMinimum = 0.333;
// A message hides what the status bar tells of the pixel under the mouse.
constexpr int messageMs = 10000;
constexpr int fileNameLength = 40;

QString hint()
{
    return ImageViewerMainWindow::tr("Drag with the left button, or the arrow keys: move the picture\n"
                                     "Ctrl+wheel: zoom at the pointer; Ctrl++ and Ctrl+-: at the middle\n"
                                     "Drag with the right button: measure a rectangle; Esc removes it\n"
                                     "Right click, or the menu key: measure without the mouse, the sensor's pattern, "
                                     "link to another viewer\n"
                                     "Space: the linked viewer, at the same place of picture and screen");
}

QString percent(int shown, int whole) { return QString::number(qRound(100.0 * shown / whole)) + " %"; }
} // namespace

ImageViewerMainWindow::ImageViewerMainWindow(QWidget* parent, Qt::WindowFlags flags) : QMainWindow(parent, flags)
{
    createPicture();
    createActions();
    createMenus();
    createStatusBar();
    setWindowTitle(tr("Image Viewer"));
    resize(1000, 800);
}

void ImageViewerMainWindow::createPicture()
{
    imageLabel = new PictureLabel;
    imageLabel->setBackgroundRole(QPalette::Base);
    imageLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    imageLabel->setScaledContents(true);
    imageLabel->setAccessibleName(tr("Picture"));

    scrollArea = new PictureScrollArea;
    scrollArea->setBackgroundRole(QPalette::Dark);
    scrollArea->setWidget(imageLabel);
    setCentralWidget(scrollArea);

    pDock = new MeasureDock(this);
    pDock->hide();
    addDockWidget(Qt::BottomDockWidgetArea, pDock);

    connect(imageLabel, &PictureLabel::pointed, this, &ImageViewerMainWindow::pixelShow);
    connect(imageLabel, &PictureLabel::left, this, [this] { pLabelPixel->clear(); });
    connect(imageLabel, &PictureLabel::resized, this, &ImageViewerMainWindow::sizeShow);
    connect(imageLabel, &PictureLabel::dragged, this, &ImageViewerMainWindow::moveBy);
    connect(imageLabel, &PictureLabel::menuRequested, this, &ImageViewerMainWindow::menuShow);
    connect(imageLabel, &PictureLabel::rectangleChanged, this, &ImageViewerMainWindow::rectangleShow);
    connect(pDock, &MeasureDock::closed, imageLabel, [this] { imageLabel->setRectangle({}); });
    connect(scrollArea, &PictureScrollArea::zoomRequested, this, &ImageViewerMainWindow::zoomAt);
    figuresTimer.setSingleShot(true);
    connect(&figuresTimer, &QTimer::timeout, this, &ImageViewerMainWindow::figuresShow);
    // Not by its change of value: that may come from another size of the window, or of a smaller picture.
    for (auto* pBar : {scrollArea->horizontalScrollBar(), scrollArea->verticalScrollBar()})
        connect(pBar, &QScrollBar::actionTriggered, this,
                [this, pBar]
                {
                    pBar->setValue(pBar->sliderPosition());
                    partnerLead();
                });
}

void ImageViewerMainWindow::createActions()
{
    const auto actionMake =
        [this](const QString& text, const char* shortcut, bool isEnabled, void (ImageViewerMainWindow::*fTriggered)())
    {
        auto* pAction = new QAction(text, this);
        pAction->setShortcut(QKeySequence(shortcut));
        pAction->setEnabled(isEnabled);
        connect(pAction, &QAction::triggered, this, fTriggered);
        return pAction;
    };
    openAct = actionMake(tr("&Open..."), "Ctrl+O", true, &ImageViewerMainWindow::slotOpen);
    saveAsAct = actionMake(tr("&Save As..."), "Ctrl+S", true, &ImageViewerMainWindow::saveAs);
    exitAct = actionMake(tr("&Exit"), "Ctrl+E", true, &ImageViewerMainWindow::exit);
    zoomInAct = actionMake(tr("Zoom &In (25%)"), "Ctrl++", false, &ImageViewerMainWindow::zoomIn);
    zoomOutAct = actionMake(tr("Zoom &Out (25%)"), "Ctrl+-", false, &ImageViewerMainWindow::zoomOut);
    // The same keys as those of saving, which gets them: two that listen everywhere would get nothing.
    normalSizeAct = actionMake(tr("&Normal Size"), "Ctrl+S", false, &ImageViewerMainWindow::normalSize);
    normalSizeAct->setShortcutContext(Qt::WidgetShortcut);
    fitToWindowAct = actionMake(tr("&Fit to Window"), "Ctrl+F", false, &ImageViewerMainWindow::fitToWindow);
    fitToWindowAct->setCheckable(true);
}

void ImageViewerMainWindow::createMenus()
{
    fileMenu = menuBar()->addMenu(tr("&File"));
    fileMenu->addActions({openAct, saveAsAct, exitAct});
    viewMenu = menuBar()->addMenu(tr("&View"));
    viewMenu->addActions({zoomInAct, zoomOutAct, normalSizeAct});
    viewMenu->addSeparator();
    viewMenu->addAction(fitToWindowAct);
}

void ImageViewerMainWindow::createStatusBar()
{
    const auto labelMake = [](const QString& name)
    {
        auto* pLabel = new QLabel;
        pLabel->setTextFormat(Qt::PlainText);
        pLabel->setObjectName(name);
        pLabel->setAccessibleName(name);
        pLabel->setContentsMargins(0, 0, 2 * pLabel->fontMetrics().averageCharWidth(), 0);
        return pLabel;
    };
    pLabelPixel = labelMake("Pixel");
    pLabelFile = labelMake("File");
    pLabelZoom = labelMake("Zoom");
    pLabelSize = labelMake("Size");
    pLabelLink = labelMake("Link");
    auto* pLabelHint = labelMake("Mouse and Keys");
    pLabelHint->setText("?");
    pLabelHint->setToolTip(hint());
    imageLabel->setAccessibleDescription(hint());
    statusBar()->addWidget(pLabelPixel, 1);
    statusBar()->addPermanentWidget(pLabelHint);
    statusBar()->addPermanentWidget(pLabelLink);
    statusBar()->addPermanentWidget(pLabelFile);
    statusBar()->addPermanentWidget(pLabelZoom);
    statusBar()->addPermanentWidget(pLabelSize);
}

void ImageViewerMainWindow::open(QDir dir)
{
    const auto names = dir.entryList(QDir::Files, QDir::Time);
    if (names.isEmpty() || !fileShow(dir.absolutePath() + "/" + names.first()))
        return;
    scaleFactor = 1.0;
    updateActions();
}

void ImageViewerMainWindow::slotOpen()
{
    const auto fileName = QFileDialog::getOpenFileName(this, tr("Open File"), QDir::currentPath());
    if (!fileName.isEmpty() && fileShow(fileName))
        updateActions();
}

/// False, after a box, when the file holds no picture that can be shown.
bool ImageViewerMainWindow::fileShow(const QString& fileName)
{
    const auto shownFileName = std::exchange(imageFileName, fileName);
    {
        const shortcut::WaitCursor waiting;
        const Picture newPicture(fileName);
        if (!newPicture.isNull())
        {
            mosaicNames = mosaic::isRawCapture(fileName) ? mosaic::channels(mosaic::Pattern::Sum) : QStringList();
            pictureShow(newPicture);
            fileNameShow(fileName);
            return true;
        }
    }
    // Without a picture, the file that can't be shown can still be copied.
    if (!picture.isNull())
        imageFileName = shownFileName;
    message_box::information(this, tr("Image Viewer"), tr("Cannot load %1.").arg(fileName));
    return false;
}

void ImageViewerMainWindow::pictureShow(const Picture& newPicture)
{
    imageLabel->setRectangle({});
    picture = newPicture;
    imageLabel->setPixmap(QPixmap::fromImage(picture.imageGet()));
    pLabelPixel->clear();
    fitToWindowAct->setEnabled(true);
    if (!fitToWindowAct->isChecked())
        imageLabel->adjustSize();
    sizeShow();
    if (pPartner)
        partnerFollow();
}

void ImageViewerMainWindow::fileNameShow(const QString& fileName)
{
    const auto metrics = pLabelFile->fontMetrics();
    const int width = fileNameLength * metrics.averageCharWidth();
    pLabelFile->setText(metrics.elidedText(QFileInfo(fileName).fileName(), Qt::ElideMiddle, width));
    pLabelFile->setToolTip(fileName.isEmpty() ? QString() : Qt::convertFromPlainText(fileName));
    if (pPartner)
        pPartner->linkShow();
}

void ImageViewerMainWindow::saveAs()
{
    struct Kind
    {
        const char* ending;
        QString filter;
    };
    const Kind kinds[] = {
        {"ppm", tr("PPM Files(*.ppm)")}, {"pgm", tr("PGM Files(*.pgm)")}, {"jpg", tr("JPEG Files(*.jpg)")}};
    for (const auto& kind : kinds)
    {
        if (!imageFileName.endsWith(kind.ending))
            continue;
        const auto chosen =
            QFileDialog::getSaveFileName(this, tr("Save Snapshot File"), QDir::currentPath(), kind.filter);
        if (chosen.isEmpty())
            continue;
        QFile source(imageFileName);
        if (!source.copy(chosen + "." + kind.ending))
            statusBar()->showMessage(tr("Saving failed: %1").arg(source.errorString()), messageMs);
    }
}

void ImageViewerMainWindow::exit() { close(); }

void ImageViewerMainWindow::zoomIn() { scaleImage(zoomStepIn); }

void ImageViewerMainWindow::zoomOut() { scaleImage(zoomStepOut); }

void ImageViewerMainWindow::normalSize()
{
    imageLabel->adjustSize();
    scaleFactor = 1.0;
    partnerLead();
}

void ImageViewerMainWindow::fitToWindow()
{
    imageLabel->setFitted(fitToWindowAct->isChecked());
    scrollArea->setWidgetResizable(fitToWindowAct->isChecked());
    if (!fitToWindowAct->isChecked())
        normalSize();
    updateActions();
    partnerLead();
}

void ImageViewerMainWindow::updateActions()
{
    for (auto* pAction : {zoomInAct, zoomOutAct, normalSizeAct})
        pAction->setEnabled(!fitToWindowAct->isChecked());
}

void ImageViewerMainWindow::scaleImage(double factor)
{
    scaleFactor *= factor;
    imageLabel->resize(scaleFactor * picture.imageGet().size());
    adjustScrollBar(scrollArea->horizontalScrollBar(), factor);
    adjustScrollBar(scrollArea->verticalScrollBar(), factor);
    zoomLimit();
    partnerLead();
}

void ImageViewerMainWindow::zoomAt(bool isIn, const QPoint& position)
{
    if (!(isIn ? zoomInAct : zoomOutAct)->isEnabled())
        return;
    scaleFactor *= isIn ? zoomStepIn : zoomStepOut;
    scrollArea->resizeAt(position, scaleFactor * picture.imageGet().size());
    zoomLimit();
    partnerLead();
}

void ImageViewerMainWindow::moveBy(const QPoint& by)
{
    scrollArea->moveBy(by);
    partnerLead();
}

void ImageViewerMainWindow::zoomLimit()
{
    zoomInAct->setEnabled(scaleFactor < zoomMaximum);
    zoomOutAct->setEnabled(scaleFactor > zoomMinimum);
}

// The point in the middle of the view stays there.
void ImageViewerMainWindow::adjustScrollBar(QScrollBar* scrollBar, double factor)
{
    scrollBar->setValue(int(factor * scrollBar->value() + (factor - 1) * scrollBar->pageStep() / 2));
}

void ImageViewerMainWindow::pixelShow(const QPoint& pixel)
{
    const QColor colour = picture.imageGet().pixelColor(pixel);
    const auto channel = isMosaic() ? " (" + mosaicNames[pixel.y() % 2 * 2 + pixel.x() % 2] + ")" : QString();
    pLabelPixel->setText(QString("x %1  y %2   Raw %3%4   RGB %5 %6 %7")
                             .arg(pixel.x())
                             .arg(pixel.y())
                             .arg(picture.samplesText(pixel))
                             .arg(channel)
                             .arg(colour.red())
                             .arg(colour.green())
                             .arg(colour.blue()));
}

void ImageViewerMainWindow::sizeShow()
{
    const auto size = picture.imageGet().size();
    if (size.isEmpty())
    {
        pLabelZoom->clear();
        pLabelSize->clear();
        return;
    }
    // The longer side is rounded less.
    const auto shown = imageLabel->pictureRect();
    pLabelZoom->setText(size.width() > size.height() ? percent(shown.width(), size.width())
                                                     : percent(shown.height(), size.height()));
    pLabelSize->setText(QString("%1 x %2").arg(size.width()).arg(size.height()));
}

// The window itself lives on with its parent, and there may be many of them.
void ImageViewerMainWindow::closeEvent(QCloseEvent* pEvent)
{
    QMainWindow::closeEvent(pEvent);
    unlink();
    imageLabel->setRectangle({});
    picture = Picture();
    imageLabel->clear();
    fileNameShow({});
    sizeShow();
    // Not under the hands of the native window, which tells of the closing.
    QMetaObject::invokeMethod(this, &ImageViewerMainWindow::windowRelease, Qt::QueuedConnection);
}

// The next show makes a new one.
void ImageViewerMainWindow::windowRelease()
{
    if (!isVisible())
        destroy();
}
