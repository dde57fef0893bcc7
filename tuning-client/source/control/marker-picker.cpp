#include "tuning-client/source/control/marker-picker.h"

#include "tuning-client/source/control/marker.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int hintMargin = 5;
constexpr int stepsWithShift = 10;

/// Where an arrow key points, null for any other key.
QPoint direction(const QKeyEvent& event)
{
    switch (event.key())
    {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Down:
        return {0, -1};
    case Qt::Key_Up:
        return {0, 1};
    default:
        return {};
    }
}
} // namespace

Overlay::Overlay(QWidget* pCanvas, MarkerPicker* pMarkerPicker_)
    : QwtWidgetOverlay(pCanvas), pMarkerPicker(pMarkerPicker_)
{
    switch (pMarkerPicker->mode())
    {
    case MarkerPicker::NoMask:
        setMaskMode(QwtWidgetOverlay::NoMask);
        setRenderMode(AutoRenderMode);
        break;
    case MarkerPicker::Mask:
        setMaskMode(MaskHint);
        setRenderMode(AutoRenderMode);
        break;
    case MarkerPicker::AlphaMask:
        setMaskMode(QwtWidgetOverlay::AlphaMask);
        setRenderMode(AutoRenderMode);
        break;
    case MarkerPicker::AlphaMaskRedraw:
        setMaskMode(QwtWidgetOverlay::AlphaMask);
        setRenderMode(DrawOverlay);
        break;
    case MarkerPicker::AlphaMaskCopyMask:
        setMaskMode(QwtWidgetOverlay::AlphaMask);
        setRenderMode(CopyAlphaMask);
        break;
    }
}

void Overlay::drawOverlay(QPainter* pPainter) const { pMarkerPicker->drawOverlay(pPainter); }

QRegion Overlay::maskHint() const { return pMarkerPicker->maskHint(); }

MarkerPicker::MarkerPicker(QwtPlot* plot) : QObject(plot)
{
    plot->setToolTip(tr("Drag the markers, or press Tab and move one by the arrow keys:\n"
                        "Shift for ten steps, Ctrl to choose another marker."));
    setMode(Mask);
    MarkerPicker::setEnabled(true);
}

QwtPlot* MarkerPicker::plot() const { return qobject_cast<QwtPlot*>(parent()); }

void MarkerPicker::setEnabled(bool isEnabled)
{
    auto* pPlot = plot();
    if (isEnabled == _isEnabled || !pPlot)
        return;
    _isEnabled = isEnabled;
    auto* pCanvas = pPlot->canvas();
    pCanvas->setFocusPolicy(isEnabled ? Qt::StrongFocus : Qt::NoFocus);
    pCanvas->setAccessibleName(pPlot->accessibleName());
    if (auto* pPlotCanvas = qobject_cast<QwtPlotCanvas*>(pCanvas))
        pPlotCanvas->setFocusIndicator(QwtPlotCanvas::CanvasFocusIndicator);
    if (isEnabled)
    {
        pCanvas->installEventFilter(this);
        return;
    }
    pCanvas->removeEventFilter(this);
    drop(pMarkerSelected);
}

void MarkerPicker::drop(const Marker* pMarker)
{
    if (!pMarker || pMarker != pMarkerSelected)
        return;
    isKeyHeld = false;
    letGo();
    delete pointerOverlay;
}

/// The visible markers, from left to right.
QVector<Marker*> MarkerPicker::markers() const
{
    QVector<Marker*> found;
    for (auto* pItem : plot()->itemList(QwtPlotItem::Rtti_PlotMarker))
        if (auto* pMarker = dynamic_cast<Marker*>(pItem); pMarker && pMarker->isVisible())
            found.append(pMarker);
    std::stable_sort(found.begin(), found.end(),
                     [](const Marker* pLeft, const Marker* pRight) { return pLeft->xValue() < pRight->xValue(); });
    return found;
}

bool MarkerPicker::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (!plot() || pWatched != plot()->canvas())
        return QObject::eventFilter(pWatched, pEvent);
    switch (pEvent->type())
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        mouseHandle(static_cast<QMouseEvent*>(pEvent));
        break;
    case QEvent::KeyPress:
        // Taken by the plot, or the page around it would scroll.
        return keyPressed(*static_cast<QKeyEvent*>(pEvent));
    case QEvent::KeyRelease:
        if (isKeyHeld && !static_cast<QKeyEvent*>(pEvent)->isAutoRepeat() &&
            !direction(*static_cast<QKeyEvent*>(pEvent)).isNull())
            keyReleased();
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        focusHandle(*static_cast<QFocusEvent*>(pEvent));
        break;
    case QEvent::Hide:
        // The release will not come here any more.
        keyReleased();
        if (pointerOverlay)
            released(pointCurrentPosition.toPoint());
        delete pointerOverlay;
        break;
    case QEvent::EnabledChange:
        // Greyed in the middle of a move: what runs now is not moved any more.
        if (!plot()->canvas()->isEnabled())
            drop(pMarkerSelected);
        break;
    default:
        break;
    }
    return false;
}

/// The tab key chooses a marker at once; the mouse chooses its own, and a menu changes nothing.
void MarkerPicker::focusHandle(const QFocusEvent& event)
{
    if (event.lostFocus())
        keyReleased();
    if (event.reason() == Qt::PopupFocusReason)
        return;
    if (event.lostFocus())
        choose(nullptr);
    else if (event.reason() != Qt::MouseFocusReason)
        chooseNext(0);
}

void MarkerPicker::mouseHandle(QMouseEvent* pEvent)
{
    const bool isLeft = pEvent->button() == Qt::LeftButton;
    if (pEvent->type() == QEvent::MouseButtonPress)
    {
        // Filters see what a disabled widget does not.
        if (isLeft && !pointerOverlay && plot()->canvas()->isEnabled() && pressed(pEvent->pos()))
            overlayShow();
    }
    else if (!pointerOverlay || isKeyHeld)
        return;
    else if (pEvent->type() == QEvent::MouseMove)
    {
        if (moved(pEvent->pos()))
            pointerOverlay->updateOverlay();
    }
    else if (isLeft)
    {
        released(pEvent->pos());
        delete pointerOverlay;
    }
}

void MarkerPicker::overlayShow()
{
    pointerOverlay = new Overlay(plot()->canvas(), this);
    pointerOverlay->updateOverlay();
    pointerOverlay->show();
}

bool MarkerPicker::pressed(const QPoint& position)
{
    auto* pMarker = markerAt(position);
    if (!pMarker)
        return false;
    pointCurrentPosition = position;
    grip(pMarker);
    return true;
}

bool MarkerPicker::moved(const QPoint& position)
{
    if (!plot() || !pMarkerSelected)
        return false;
    const auto xMap = plot()->canvasMap(pMarkerSelected->xAxis());
    const auto yMap = plot()->canvasMap(pMarkerSelected->yAxis());
    move({xMap.invTransform(position.x()), yMap.invTransform(position.y())});
    pointCurrentPosition = position;
    return true;
}

void MarkerPicker::released(const QPoint&)
{
    auto* pMarker = pMarkerSelected;
    if (!pMarker)
        return;
    letGo();
    emit markerMoved(pMarker);
}

void MarkerPicker::grip(Marker* pMarker)
{
    choose(pMarker);
    pMarkerSelected = pMarker;
    setMarkerVisible(pMarker, false);
}

void MarkerPicker::move(const QPointF& value)
{
    const auto& limits = pMarkerSelected->constrain;
    pMarkerSelected->setValue(qBound(limits.left(), value.x(), limits.right()),
                              qBound(limits.top(), value.y(), limits.bottom()));
}

void MarkerPicker::letGo()
{
    auto* pMarker = std::exchange(pMarkerSelected, nullptr);
    if (!pMarker)
        return;
    raiseMarker(pMarker);
    if (!plot()->canvas()->hasFocus())
        choose(nullptr);
    setMarkerVisible(pMarker, true);
}

void MarkerPicker::raiseMarker(Marker* pMarker)
{
    const auto items = plot()->itemList();
    for (auto item = items.rbegin(); item != items.rend() && *item != pMarker; ++item)
        if ((*item)->isVisible() && (*item)->rtti() == QwtPlotItem::Rtti_PlotMarker)
        {
            pMarker->setZ((*item)->z() + 1.0);
            return;
        }
}

void MarkerPicker::setMarkerVisible(Marker* pMarker, bool isOn)
{
    auto* pPlot = plot();
    if (!pPlot || !pMarker || pMarker->isVisible() == isOn)
        return;
    const bool isAutoReplot = pPlot->autoReplot();
    pPlot->setAutoReplot(false);
    pMarker->setVisible(isOn);
    pPlot->setAutoReplot(isAutoReplot);
    if (auto* pCanvas = qobject_cast<QwtPlotCanvas*>(pPlot->canvas()))
        pCanvas->invalidateBackingStore();
    pPlot->canvas()->update(covered(pMarker));
}

Marker* MarkerPicker::markerAt(const QPoint& position) const
{
    const auto items = plot()->itemList();
    for (auto item = items.rbegin(); item != items.rend(); ++item)
    {
        auto* pMarker = dynamic_cast<Marker*>(*item);
        if (!pMarker || !pMarker->isVisible())
            continue;
        const QPointF value(plot()->canvasMap(pMarker->xAxis()).invTransform(position.x()),
                            plot()->canvasMap(pMarker->yAxis()).invTransform(position.y()));
        if (rectOf(pMarker).contains(value))
            return pMarker;
    }
    return nullptr;
}

/// Around the value, in units of the plot: the symbol's pixels are taken for such.
QRectF MarkerPicker::rectOf(const Marker* pMarker) const
{
    QRectF rect({}, QSizeF(pMarker->symbol()->boundingRect().size()));
    rect.moveCenter(pMarker->value());
    return rect;
}

QRegion MarkerPicker::maskHint() const { return pMarkerSelected ? covered(pMarkerSelected) : QRegion(); }

QRegion MarkerPicker::maskHint(const Marker* pMarker) const
{
    if (!plot() || !pMarker)
        return {};
    return QwtScaleMap::transform(plot()->canvasMap(pMarker->xAxis()), plot()->canvasMap(pMarker->yAxis()),
                                  rectOf(pMarker))
        .toRect()
        .adjusted(-hintMargin, -hintMargin, hintMargin, hintMargin);
}

/// What of the canvas changes with the marker. Symbol and value may stand out of what answers for it.
QRegion MarkerPicker::covered(const Marker* pMarker) const
{
    const auto xMap = plot()->canvasMap(pMarker->xAxis());
    const auto yMap = plot()->canvasMap(pMarker->yAxis());
    const auto valueRect = pMarker->valueRect(xMap, yMap, plot()->canvas()->contentsRect());
    return maskHint(pMarker) + pMarker->symbolRect(xMap, yMap).toAlignedRect() + valueRect.toAlignedRect();
}

void MarkerPicker::drawOverlay(QPainter* pPainter) const
{
    if (!plot() || !pMarkerSelected)
        return;
    pPainter->setRenderHint(QPainter::Antialiasing, pMarkerSelected->testRenderHint(QwtPlotItem::RenderAntialiased));
    pMarkerSelected->draw(pPainter, plot()->canvasMap(pMarkerSelected->xAxis()),
                          plot()->canvasMap(pMarkerSelected->yAxis()), plot()->canvas()->contentsRect());
}

/// The keys move that marker from now on, and its value is shown.
void MarkerPicker::choose(Marker* pMarker)
{
    if (pMarker == pMarkerChosen)
        return;
    if (pMarkerChosen)
        pMarkerChosen->isChosen = false;
    pMarkerChosen = pMarker;
    if (pMarkerChosen)
        pMarkerChosen->isChosen = true;
    plot()->replot();
}

/// The marker `step` places to the right; where none is chosen, the first.
void MarkerPicker::chooseNext(int step)
{
    const auto all = markers();
    if (all.isEmpty())
        return choose(nullptr);
    const int index = all.indexOf(pMarkerChosen);
    choose(index < 0 ? all.first() : all[qBound(0, index + step, all.size() - 1)]);
}

bool MarkerPicker::keyPressed(const QKeyEvent& event)
{
    const auto to = direction(event);
    if (to.isNull() || !plot()->canvas()->isEnabled())
        return false;
    // The mouse has the marker.
    if (pointerOverlay && !isKeyHeld)
        return true;
    const bool isChosen = pointerOverlay || markers().contains(pMarkerChosen);
    if (!isChosen || event.modifiers() & Qt::ControlModifier)
    {
        keyReleased();
        chooseNext(to.x() + to.y());
        return true;
    }
    if (!isKeyHeld)
    {
        isKeyHeld = true;
        valueBefore = pMarkerChosen->value();
        grip(pMarkerChosen);
        overlayShow();
    }
    move(pMarkerSelected->value() + QPointF(to) * (event.modifiers() & Qt::ShiftModifier ? stepsWithShift : 1));
    pointerOverlay->updateOverlay();
    return true;
}

/// The end of a move by keys, if there is one.
void MarkerPicker::keyReleased()
{
    if (!std::exchange(isKeyHeld, false))
        return;
    auto* pMarker = pMarkerSelected;
    letGo();
    delete pointerOverlay;
    if (pMarker->value() != valueBefore)
        emit markerMoved(pMarker);
}
