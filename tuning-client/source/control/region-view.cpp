#include "tuning-client/source/control/region-view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace
{
constexpr double stepsWithControl = 10;
constexpr int widthInCharacters = 32;

QPointF direction(const QKeyEvent& event)
{
    switch (event.key())
    {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

/// Which end of a side of a shown rectangle is gripped at `position`: -1 the first, 1 the last, 0 none. A side of
/// nothing is drawn out at its end.
int endAt(double position, double first, double last, double reach)
{
    const double inside = qMin(reach, (last - first) / 4);
    if (last <= first || position > last - inside)
        return 1;
    return position < first + inside ? -1 : 0;
}
} // namespace

RegionView::RegionView(QWidget* pParent) : QWidget(pParent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setToolTip(tr("Drag the rectangles, or their edges and corners.\n"
                  "Tab chooses a rectangle, the arrow keys move it,\n"
                  "with Shift they resize it; Ctrl for ten steps."));
}

void RegionView::setFrame(const QSize& size)
{
    frame = size;
    update();
}

void RegionView::setRegions(const QVector<QRectF>& newRegions)
{
    regions = newRegions;
    if (iChosen >= regions.size())
        iChosen = -1;
    if (held.index >= regions.size())
        held = {};
    update();
}

QSize RegionView::minimumSizeHint() const
{
    const int width = widthInCharacters * fontMetrics().averageCharWidth();
    return {width, width * 9 / 16};
}

QSize RegionView::sizeHint() const { return minimumSizeHint(); }

/// How far around an edge the mouse grips it, and the size of a grip.
double RegionView::reach() const { return fontMetrics().height() / 3.0; }

/// Pixels of the widget for one of the frame.
double RegionView::scale() const
{
    const double margin = 2 * reach();
    return qMax(0.0, qMin((width() - margin) / qMax(1, frame.width()), (height() - margin) / qMax(1, frame.height())));
}

QRectF RegionView::frameRect() const { return {QPointF(reach(), reach()), QSizeF(frame) * scale()}; }

/// Where the region lies on the widget.
QRectF RegionView::shown(const QRectF& region) const
{
    const auto at = scale();
    return {frameRect().topLeft() + region.topLeft() * at, region.size() * at};
}

/// The same, with sides that are off the widget no further away than it takes: values of any size may be typed.
QRectF RegionView::painted(int index) const
{
    const auto rect = shown(regions[index]);
    const double margin = 10 * reach();
    const auto near = [margin](double value, int side) { return qBound(-margin, value, side + margin); };
    return {QPointF(near(rect.left(), width()), near(rect.top(), height())),
            QPointF(near(rect.right(), width()), near(rect.bottom(), height()))};
}

/// The smallest rectangle counts, so that none hides another from the mouse.
RegionView::Grip RegionView::gripAt(const QPointF& position) const
{
    Grip grip;
    double least = 0;
    for (int i = 0; i < regions.size(); ++i)
    {
        const auto rect = shown(regions[i]);
        const double area = rect.width() * rect.height();
        if (!rect.adjusted(-reach(), -reach(), reach(), reach()).contains(position) ||
            (grip.index >= 0 && area >= least))
            continue;
        const int x = endAt(position.x(), rect.left(), rect.right(), reach());
        const int y = endAt(position.y(), rect.top(), rect.bottom(), reach());
        least = area;
        grip = {i, {}};
        grip.edges.setFlag(Qt::LeftEdge, x < 0).setFlag(Qt::RightEdge, x > 0);
        grip.edges.setFlag(Qt::TopEdge, y < 0).setFlag(Qt::BottomEdge, y > 0);
    }
    return grip;
}

/// The region with the edges moved, or all of it where none is named, as far as the frame reaches.
QRectF RegionView::changed(QRectF region, Qt::Edges edges, const QPointF& by) const
{
    const auto along = [](double& start, double& length, double side, bool isFirst, bool isLast, double step)
    {
        const double end = start + length;
        if (isFirst)
            start = qBound(0.0, start + step, end);
        if (isFirst || isLast)
            length = isFirst ? end - start : qBound(0.0, length + step, qMax(0.0, side - start));
        else
            start = qBound(0.0, start + step, qMax(0.0, side - length));
    };
    double x = region.x(), y = region.y(), width = region.width(), height = region.height();
    const bool isWhole = !edges;
    if (isWhole || edges & (Qt::LeftEdge | Qt::RightEdge))
        along(x, width, frame.width(), edges & Qt::LeftEdge, edges & Qt::RightEdge, by.x());
    if (isWhole || edges & (Qt::TopEdge | Qt::BottomEdge))
        along(y, height, frame.height(), edges & Qt::TopEdge, edges & Qt::BottomEdge, by.y());
    return {x, y, width, height};
}

void RegionView::change(int index, const QRectF& region)
{
    if (region != regions[index])
        emit regionChanged(index, region);
}

void RegionView::choose(int index)
{
    iChosen = index;
    update();
}

void RegionView::cursorShow(Qt::Edges edges, bool isOver)
{
    const bool isAcross = edges & (Qt::LeftEdge | Qt::RightEdge);
    const bool isDown = edges & (Qt::TopEdge | Qt::BottomEdge);
    if (!isOver)
        unsetCursor();
    else if (isAcross && isDown)
        setCursor(bool(edges & Qt::LeftEdge) == bool(edges & Qt::TopEdge) ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor);
    else
        setCursor(isAcross ? Qt::SizeHorCursor : isDown ? Qt::SizeVerCursor : Qt::SizeAllCursor);
}

void RegionView::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton)
        return;
    held = gripAt(pEvent->localPos());
    choose(held.index);
    if (held.index < 0)
        return;
    pressed = pEvent->localPos();
    regionPressed = regions[held.index];
}

void RegionView::mouseMoveEvent(QMouseEvent* pEvent)
{
    // The release may have gone elsewhere.
    if (!(pEvent->buttons() & Qt::LeftButton))
        held = {};
    if (held.index < 0)
    {
        const auto grip = gripAt(pEvent->localPos());
        return cursorShow(grip.edges, grip.index >= 0);
    }
    if (scale() <= 0)
        return;
    const auto by = (pEvent->localPos() - pressed) / scale();
    change(held.index, changed(regionPressed, held.edges, {std::round(by.x()), std::round(by.y())}));
}

void RegionView::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton)
        held = {};
}

void RegionView::keyPressEvent(QKeyEvent* pEvent)
{
    const auto to = direction(*pEvent);
    // Taken by the view, or the page around it would scroll.
    if (to.isNull())
        return QWidget::keyPressEvent(pEvent);
    if (iChosen < 0 || held.index >= 0)
        return;
    const auto edges = pEvent->modifiers() & Qt::ShiftModifier
                           ? (to.y() == 0 ? Qt::Edges(Qt::RightEdge) : Qt::Edges(Qt::BottomEdge))
                           : Qt::Edges();
    const double steps = pEvent->modifiers() & Qt::ControlModifier ? stepsWithControl : 1;
    change(iChosen, changed(regions[iChosen], edges, to * steps));
}

void RegionView::focusInEvent(QFocusEvent* pEvent)
{
    QWidget::focusInEvent(pEvent);
    if (pEvent->reason() == Qt::TabFocusReason)
        choose(regions.isEmpty() ? -1 : 0);
    else if (pEvent->reason() == Qt::BacktabFocusReason)
        choose(regions.size() - 1);
}

void RegionView::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::EnabledChange)
        held = {};
}

/// From one rectangle to the next, and behind the last one on.
bool RegionView::focusNextPrevChild(bool isNext)
{
    const int next = iChosen + (isNext ? 1 : -1);
    if (next < 0 || next >= regions.size())
        return QWidget::focusNextPrevChild(isNext);
    choose(next);
    return true;
}

void RegionView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Shadow));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(frameRect());
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < regions.size(); ++i)
        if (i != iChosen)
            regionPaint(painter, i);
    if (iChosen >= 0)
        regionPaint(painter, iChosen);
}

void RegionView::regionPaint(QPainter& painter, int index) const
{
    const bool isChosen = index == iChosen && isEnabled();
    const auto rect = painted(index);
    const auto ink = palette().color(isEnabled() ? QPalette::Highlight : QPalette::Text);
    auto tint = ink;
    tint.setAlphaF(isChosen ? 0.3 : 0.15);
    const double line = reach() / 3;
    // A light rim keeps crossing outlines apart.
    painter.setBrush(tint);
    painter.setPen(QPen(palette().color(QPalette::Base), 3 * line));
    painter.drawRect(rect);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, line));
    painter.drawRect(rect);

    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    if (rect.width() < line || rect.height() < line)
        painter.drawEllipse(rect.center(), reach(), reach());
    else if (isChosen)
        for (const auto& corner : {rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()})
            painter.drawRect(QRectF(corner - QPointF(reach(), reach()) / 2, QSizeF(reach(), reach())));
    numberPaint(painter, index);
}

/// In the upper left corner; beside a rectangle that has no room for it.
void RegionView::numberPaint(QPainter& painter, int index) const
{
    const auto text = QString::number(index + 1);
    const auto rect = painted(index);
    QRectF box({}, QSizeF(fontMetrics().horizontalAdvance(text) + reach() * 2, fontMetrics().height()));
    const bool hasRoom = rect.width() > 2 * box.width() && rect.height() > 2 * box.height();
    box.moveTopLeft(hasRoom ? rect.topLeft() : rect.topRight() + QPointF(reach() * 1.5, -box.height() / 2));
    box.moveLeft(qBound(0.0, box.left(), qMax(0.0, width() - box.width())));
    box.moveTop(qBound(0.0, box.top(), qMax(0.0, height() - box.height())));
    painter.drawRect(box);
    painter.save();
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}
