// What the viewer does with rectangles, patterns and a second viewer.

#include "tuning-client/source/control/measure-dock.h"
#include "tuning-client/source/control/picture-label.h"
#include "tuning-client/source/control/picture-scroll-area.h"
#include "tuning-client/source/image-viewer-main-window.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace
{
// Take up to 50 ms to count, which at each move of the mouse would be felt.
constexpr qint64 longPixels = 10'000'000;
constexpr int restMs = 200;
} // namespace

void ImageViewerMainWindow::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        imageLabel->setRectangle({});
    else if (pEvent->key() == Qt::Key_Space)
        partnerRaise();
    else
        QMainWindow::keyPressEvent(pEvent);
}

// That of the mouse is the picture's; this one comes from the menu key.
void ImageViewerMainWindow::contextMenuEvent(QContextMenuEvent* pEvent)
{
    if (pEvent->reason() == QContextMenuEvent::Keyboard)
        menuShow(scrollArea->mapToGlobal({}));
}

void ImageViewerMainWindow::patternSet(const QString& fileName, mosaic::Pattern pattern)
{
    if (QFileInfo(fileName) == QFileInfo(imageFileName))
        channelsSet(mosaic::channels(pattern));
}

void ImageViewerMainWindow::channelsSet(const QStringList& names)
{
    mosaicNames = names;
    rectangleShow();
}

bool ImageViewerMainWindow::isMosaic() const { return picture.isGrey() && !mosaicNames.isEmpty(); }

void ImageViewerMainWindow::rectangleShow()
{
    // The one that leads asks for the figures of both.
    if (isFollowing)
        return;
    figuresAsk(imageLabel->isDrawing());
    partnerMeasure();
    partnerLead();
}

/// Counts what stands at once; what is being drawn when all moves so far are worked off, or, where that takes long,
/// when the mouse rests.
void ImageViewerMainWindow::figuresAsk(bool isDrawing)
{
    const auto rectangle = imageLabel->rectangle();
    figuresTimer.stop();
    if (rectangle.isEmpty())
        pDock->hide();
    else if (!isDrawing)
        figuresShow();
    // The dock takes room of the picture, but not from under the mouse.
    else if (!pDock->isHidden())
        figuresTimer.start(qint64(rectangle.width()) * rectangle.height() > longPixels ? restMs : 0);
}

void ImageViewerMainWindow::figuresShow()
{
    const auto rectangle = imageLabel->rectangle();
    const auto names = isMosaic()         ? mosaicNames
                       : picture.isGrey() ? QStringList{tr("Grey")}
                                          : QStringList{"R", "G", "B"};
    const bool isNew = pDock->isHidden();
    pDock->statisticsShow(rectangle, names, picture.statistics(rectangle, isMosaic()));
    if (!isNew)
        return;
    layout()->activate();
    const auto shown = imageLabel->rectangleShown();
    scrollArea->ensureVisible(shown.center().x(), shown.center().y(), shown.width() / 2, shown.height() / 2);
}

void ImageViewerMainWindow::menuShow(const QPoint& globalPosition)
{
    if (picture.isNull())
        return;
    auto* pMenu = new QMenu(this);
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    measureMenuAdd(*pMenu);
    if (picture.isGrey())
        patternMenuAdd(*pMenu);
    linkMenuAdd(*pMenu);
    pMenu->popup(globalPosition);
}

void ImageViewerMainWindow::measureMenuAdd(QMenu& menu)
{
    menu.addAction(tr("Measure What is &Seen"), this,
                   [this] { imageLabel->setRectangle(imageLabel->pixelsIn(scrollArea->seen())); });
    menu.addAction(tr("Measure the &Whole Picture"), this,
                   [this] { imageLabel->setRectangle(picture.imageGet().rect()); });
    if (imageLabel->rectangle().isEmpty())
        return;
    menu.addAction(tr("&Copy the Figures"), this, [this] { QApplication::clipboard()->setText(pDock->text()); });
    menu.addAction(tr("&Remove the Rectangle"), this, [this] { imageLabel->setRectangle({}); });
}

void ImageViewerMainWindow::patternMenuAdd(QMenu& menu)
{
    auto* pMenu = menu.addMenu(tr("&Pattern of the Sensor"));
    auto* pGroup = new QActionGroup(pMenu);
    const auto add = [&](const QString& text, const QStringList& names)
    {
        auto* pAction = pMenu->addAction(text, this, [this, names] { channelsSet(names); });
        pAction->setCheckable(true);
        pAction->setChecked(names == mosaicNames);
        pGroup->addAction(pAction);
    };
    using Pattern = mosaic::Pattern;
    for (const auto pattern : {Pattern::Rggb, Pattern::Grbg, Pattern::Gbrg, Pattern::Bggr})
        add(mosaic::name(pattern), mosaic::channels(pattern));
    add(tr("Not Known"), mosaic::channels(Pattern::Sum));
    add(tr("None"), {});
}

void ImageViewerMainWindow::linkMenuAdd(QMenu& menu)
{
    menu.addSeparator();
    for (auto* pWidget : QApplication::topLevelWidgets())
    {
        auto* pOther = qobject_cast<ImageViewerMainWindow*>(pWidget);
        if (!pOther || pOther == this || pOther->picture.isNull())
            continue;
        auto name = QFileInfo(pOther->imageFileName).fileName();
        const bool isLinked = pOther == pPartner;
        auto* pAction = menu.addAction(tr("Link to %1").arg(name.replace('&', "&&")), pOther,
                                       [this, pOther, isLinked] { isLinked ? unlink() : link(*pOther); });
        pAction->setCheckable(true);
        pAction->setChecked(isLinked);
    }
}

void ImageViewerMainWindow::link(ImageViewerMainWindow& other)
{
    unlink();
    other.unlink();
    pPartner = &other;
    other.pPartner = this;
    linkShow();
    other.linkShow();
    // Only one that has none itself takes the other one's rectangle.
    (imageLabel->rectangle().isEmpty() ? other : *this).partnerMeasure();
    partnerLead();
}

void ImageViewerMainWindow::unlink()
{
    const auto pFormer = pPartner;
    pPartner = nullptr;
    linkShow();
    if (pFormer && pFormer->pPartner == this)
        pFormer->unlink();
}

void ImageViewerMainWindow::linkShow()
{
    pLabelLink->setText(pPartner ? tr("Linked") : QString());
    pLabelLink->setToolTip(pPartner ? Qt::convertFromPlainText(pPartner->imageFileName) : QString());
}

void ImageViewerMainWindow::partnerLead()
{
    if (pPartner && !isFollowing)
        pPartner->partnerFollow();
}

/// Gives the partner the rectangle, as far as its picture reaches. It never comes back: only the user makes one.
void ImageViewerMainWindow::partnerMeasure()
{
    if (!pPartner || isFollowing)
        return;
    const QScopedValueRollback<bool> following(pPartner->isFollowing, true);
    pPartner->imageLabel->setRectangle(imageLabel->rectangle());
    pPartner->figuresAsk(imageLabel->isDrawing());
}

/// Takes place and zoom of the partner, as far as the own picture reaches.
void ImageViewerMainWindow::partnerFollow()
{
    const QScopedValueRollback<bool> following(isFollowing, true);
    if (fitToWindowAct->isChecked() != pPartner->fitToWindowAct->isChecked())
        fitToWindowAct->trigger();
    if (fitToWindowAct->isChecked())
        return;
    scaleFactor = pPartner->scaleFactor;
    // What is seen, which after another file was opened is not always the factor.
    const auto size = picture.imageGet().size();
    const auto otherSize = pPartner->picture.imageGet().size();
    const auto shown = pPartner->imageLabel->size();
    imageLabel->resize(qRound(double(size.width()) * shown.width() / otherSize.width()),
                       qRound(double(size.height()) * shown.height() / otherSize.height()));
    zoomLimit();
    scrollArea->horizontalScrollBar()->setValue(pPartner->scrollArea->horizontalScrollBar()->value());
    scrollArea->verticalScrollBar()->setValue(pPartner->scrollArea->verticalScrollBar()->value());
}

void ImageViewerMainWindow::partnerRaise()
{
    if (!pPartner)
        return;
    pPartner->setWindowState(windowState() & ~Qt::WindowMinimized);
    pPartner->move(pos());
    pPartner->resize(size());
    pPartner->show();
    pPartner->raise();
    pPartner->activateWindow();
    // The size is that of the one looked at, and so the reach of the scroll bars.
    partnerLead();
}
