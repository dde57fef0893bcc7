#pragma once

#include "tuning-client/source/image/mosaic.h"
#include "tuning-client/source/image/picture.h"

#include <QDir>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class QLabel;
class QScrollBar;
class MeasureDock;
class PictureLabel;
class PictureScrollArea;

/// Shows one picture file, with zoom; the status bar tells the file and the pixel under the mouse, a dock the figures
/// of a rectangle. Two viewers that are linked show the same place at the same zoom. Closed, it keeps no picture.
class ImageViewerMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ImageViewerMainWindow(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    /// Shows the newest file of `dir`.
    void open(QDir dir);

    /// Tells the pattern of the sensor that took the picture of that file; without effect once another file is shown.
    void patternSet(const QString& fileName, mosaic::Pattern pattern);

public slots:
    void slotOpen();

    /// Copies the file of a PPM, PGM or JPEG picture.
    void saveAs();

    void exit();
    void zoomIn();
    void zoomOut();
    void normalSize();
    void fitToWindow();

protected:
    void closeEvent(QCloseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void createActions();
    void createMenus();
    void createStatusBar();
    void createPicture();
    void updateActions();
    bool fileShow(const QString& fileName);
    void pictureShow(const Picture& newPicture);
    void fileNameShow(const QString& fileName);
    void pixelShow(const QPoint& pixel);
    void sizeShow();
    bool isMosaic() const;
    void rectangleShow();
    void figuresAsk(bool isDrawing);
    void figuresShow();
    void channelsSet(const QStringList& names);
    void menuShow(const QPoint& globalPosition);
    void measureMenuAdd(QMenu& menu);
    void patternMenuAdd(QMenu& menu);
    void linkMenuAdd(QMenu& menu);
    /// Lets both follow each other, and no others any more. The other one comes to this one's place.
    void link(ImageViewerMainWindow& other);
    void unlink();
    void linkShow();
    void partnerLead();
    void partnerFollow();
    void partnerMeasure();
    void partnerRaise();
    void zoomAt(bool isIn, const QPoint& position);
    void moveBy(const QPoint& by);
    void zoomLimit();
    void windowRelease(); ///< the native window, with all that it has painted
    void scaleImage(double factor);
    void adjustScrollBar(QScrollBar* scrollBar, double factor);

    PictureLabel* imageLabel = nullptr;
    PictureScrollArea* scrollArea = nullptr;
    double scaleFactor = 1.0;
    QAction* openAct = nullptr;
    QAction* saveAsAct = nullptr;
    QAction* exitAct = nullptr;
    QAction* zoomInAct = nullptr;
    QAction* zoomOutAct = nullptr;
    QAction* normalSizeAct = nullptr;
    QAction* fitToWindowAct = nullptr;
    QMenu* fileMenu = nullptr;
    QMenu* viewMenu = nullptr;
    QString imageFileName;
    Picture picture;
    QLabel* pLabelPixel = nullptr;
    QLabel* pLabelFile = nullptr;
    QLabel* pLabelZoom = nullptr;
    QLabel* pLabelSize = nullptr;
    QLabel* pLabelLink = nullptr;
    MeasureDock* pDock = nullptr;
    QTimer figuresTimer;     ///< until the figures of a rectangle that is being drawn are due
    QStringList mosaicNames; ///< of the four places in a cell; empty for a picture that is no mosaic
    QPointer<ImageViewerMainWindow> pPartner;
    bool isFollowing = false; ///< what changes is the partner's doing
};
