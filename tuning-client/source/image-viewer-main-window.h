#pragma once

#include "tuning-client/source/image/picture.h"

#include <QDir>
#include <QMainWindow>

class QLabel;
class QScrollArea;
class QScrollBar;
class PictureLabel;

/// Shows one picture file, with zoom; the status bar tells the file and the pixel under the mouse. Closed, it keeps no
/// picture.
class ImageViewerMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ImageViewerMainWindow(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    /// Shows the newest file of `dir`.
    void open(QDir dir);

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

private:
    void createActions();
    void createMenus();
    void createStatusBar();
    void updateActions();
    bool fileShow(const QString& fileName);
    void pictureShow(const Picture& newPicture);
    void fileNameShow(const QString& fileName);
    void pixelShow(const QPoint& pixel);
    void sizeShow();
    void windowRelease(); ///< the native window, with all that it has painted
    void scaleImage(double factor);
    void adjustScrollBar(QScrollBar* scrollBar, double factor);

    PictureLabel* imageLabel = nullptr;
    QScrollArea* scrollArea = nullptr;
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
};
