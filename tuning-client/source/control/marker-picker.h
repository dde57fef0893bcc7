#pragma once

#include <qwt_widget_overlay.h>

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QVector>

class Marker;
class MarkerPicker;
class QFocusEvent;
class QKeyEvent;
class QMouseEvent;
class QRectF;
class QwtPlot;

/// Shows the marker of a MarkerPicker while it moves, so that the plot below need not be drawn again.
class Overlay : public QwtWidgetOverlay
{
public:
    Overlay(QWidget* pCanvas, MarkerPicker* pMarkerPicker);

protected:
    void drawOverlay(QPainter* pPainter) const override;
    QRegion maskHint() const override;

private:
    MarkerPicker* pMarkerPicker;
};

/// Lets the user move the markers of a plot: by the mouse, or by the arrow keys after the tab key. Nothing is told
/// until the button or the key is released.
class MarkerPicker : public QObject
{
    Q_OBJECT

public:
    /// How the overlay covers the canvas.
    enum Mode
    {
        NoMask,
        Mask,
        AlphaMask,
        AlphaMaskRedraw,
        AlphaMaskCopyMask
    };

    /// Serves `plot`, and belongs to it.
    explicit MarkerPicker(QwtPlot* plot);

    QwtPlot* plot() const;

    void setMode(Mode mode) { d_mode = mode; }
    Mode mode() const { return d_mode; }

    virtual void setEnabled(bool isEnabled);
    bool isEnabled() const { return _isEnabled; }

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

    /// Draws the marker that moves.
    void drawOverlay(QPainter* pPainter) const;

    /// The part of the canvas that the marker covers which moves, and its value.
    QRegion maskHint() const;

    /// The part of the canvas that answers for the marker.
    QRegion maskHint(const Marker* pMarker) const;

    /// Whether the user holds that marker: not the moment to give it another value.
    bool isHeld(const Marker* pMarker) const { return pMarker == pMarkerSelected; }

    /// Ends the move of that marker, if the user holds it, and tells nobody.
    void drop(const Marker* pMarker);

signals:
    /// Once for each move, at its end.
    void markerMoved(Marker* pMarker);

private:
    bool pressed(const QPoint& position);
    bool moved(const QPoint& position);
    void released(const QPoint& position);
    void raiseMarker(Marker* pMarker);
    void setMarkerVisible(Marker* pMarker, bool isOn);
    Marker* markerAt(const QPoint& position) const;

    QVector<Marker*> markers() const;
    QRectF rectOf(const Marker* pMarker) const;
    QRegion covered(const Marker* pMarker) const;
    void grip(Marker* pMarker);
    void move(const QPointF& value);
    void letGo();
    void choose(Marker* pMarker);
    void chooseNext(int step);
    void overlayShow();
    void mouseHandle(QMouseEvent* pEvent);
    void focusHandle(const QFocusEvent& event);
    bool keyPressed(const QKeyEvent& event);
    void keyReleased();

    bool _isEnabled = false;
    QPointer<QwtWidgetOverlay> pointerOverlay;
    QPointF pointCurrentPosition; ///< of the mouse, in pixels of the canvas
    Marker* pMarkerSelected = nullptr;
    Mode d_mode = Mask;

    Marker* pMarkerChosen = nullptr; ///< for the keys
    QPointF valueBefore;             ///< of the marker that a key moves
    bool isKeyHeld = false;
};
