#include "tuning-client/source/control/grid-view.h"

#include <QPainter>
#include <QPolygonF>

#include <cmath>

namespace
{
constexpr int columns = 16;
constexpr int rows = 9;
constexpr int pieces = 64;     ///< of a line, so that it bends
constexpr double margin = 0.1; ///< of the view, for what lies outside the frame
} // namespace

GridView::GridView(const QString& accessibleName)
{
    setAccessibleName(accessibleName);
    setToolTip(tr("A straight grid (grey), and the same grid as these coefficients draw it"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void GridView::modelSet(Model model)
{
    fModel = std::move(model);
    update();
}

void GridView::frameSet(const QSize& size)
{
    if (!size.isEmpty())
        frame = size;
    update();
}

int GridView::heightForWidth(int width) const { return width * 9 / 16; }

QSize GridView::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance('0') * 60;
    return {width, heightForWidth(width)};
}

QSize GridView::minimumSizeHint() const { return sizeHint() / 2; }

/// Lines from edge to edge of the frame, each point of them where `draw` puts it.
void GridView::gridDraw(QPainter& painter, const Model& draw) const
{
    const auto lineDraw = [&](const QPointF& from, const QPointF& to)
    {
        QPolygonF line;
        for (int i = 0; i <= pieces; ++i)
        {
            const auto point = draw(from + (to - from) * i / pieces);
            // What lies far outside or is not finite is no line to draw: the painter can't take such numbers.
            if (std::abs(point.x()) < 4.0 * frame.width() && std::abs(point.y()) < 4.0 * frame.height())
                line.append(point);
            else
            {
                painter.drawPolyline(line);
                line.clear();
            }
        }
        painter.drawPolyline(line);
    };
    for (int i = 0; i <= columns; ++i)
    {
        const double x = double(frame.width()) * i / columns;
        lineDraw({x, 0}, {x, double(frame.height())});
    }
    for (int i = 0; i <= rows; ++i)
    {
        const double y = double(frame.height()) * i / rows;
        lineDraw({0, y}, {double(frame.width()), y});
    }
}

void GridView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());

    const double scale = (1 - 2 * margin) * qMin(double(width()) / frame.width(), double(height()) / frame.height());
    painter.translate(rect().center());
    painter.scale(scale, scale);
    painter.translate(-frame.width() / 2.0, -frame.height() / 2.0);

    const auto pen = [](const QColor& colour, int width)
    {
        QPen line(colour, width);
        line.setCosmetic(true);
        return line;
    };
    painter.setPen(pen(palette().color(QPalette::Midlight), 1));
    gridDraw(painter, [](const QPointF& point) { return point; });
    painter.setPen(pen(palette().color(QPalette::Mid), 2));
    painter.drawRect(QRectF(QPointF(), QSizeF(frame)));
    if (!fModel)
        return;
    painter.setPen(pen(palette().color(QPalette::Highlight), 1));
    gridDraw(painter, fModel);
}
