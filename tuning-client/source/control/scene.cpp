#include "tuning-client/source/control/scene.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

namespace
{
constexpr int columnCount = 5;

void setColours(QLabel& label, const QColor& background, const QColor& foreground)
{
    auto palette = label.palette();
    palette.setColor(label.backgroundRole(), background);
    palette.setColor(label.foregroundRole(), foreground);
    label.setPalette(palette);
}

/// Its text has a light outline, which makes dark colours legible on dark grounds.
class OutlinedLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawFrame(&painter);
        const auto metrics = fontMetrics();
        const QPointF start((width() - metrics.horizontalAdvance(text())) / 2.0,
                            (height() + metrics.ascent() - metrics.descent()) / 2.0);
        QPainterPath path;
        path.addText(start, font(), text());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.strokePath(path, QPen(Qt::white, outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.fillPath(path, palette().color(foregroundRole()));
    }

private:
    static constexpr int outline = 3;
};
} // namespace

Scene::Scene(QWidget* parent) : QWidget(parent)
{
    setAccessibleName(tr("Scene Luminance"));
    auto pLayout = new QGridLayout(this);
    for (int i = 0; i < 25; ++i)
    {
        const auto row = i / columnCount;
        const auto column = i % columnCount;
        auto pCell = new OutlinedLabel(this);
        pLabel[i] = pCell;
        pLayout->addWidget(pCell, row, column);
        pLayout->setRowStretch(row, 1);
        pLayout->setColumnStretch(column, 1);

        setColours(*pCell, Qt::white, Qt::darkGreen);
        pCell->setAutoFillBackground(true);
        pCell->setFrameStyle(QFrame::StyledPanel);
        pCell->setAlignment(Qt::AlignCenter);
        pCell->setMinimumSize(fontMetrics().size(0, " 255 "));
        pCell->setAccessibleDescription(tr("Row %1, column %2").arg(row + 1).arg(column + 1));
    }
}

void Scene::setCell(int index, uint8_t value, Qt::GlobalColor foreground)
{
    pLabel[index]->setText(QString::number(value));
    setColours(*pLabel[index], QColor(value, value, value), foreground);
}

void Scene::setValues(const uint8_t (&values)[25])
{
    for (int i = 0; i < 25; ++i)
        setCell(i, values[i], Qt::darkGreen);
}

void Scene::setValues(const uint8_t (&values)[25], const uint8_t (&object)[25])
{
    for (int i = 0; i < 25; ++i)
        setCell(i, values[i], object[i] ? Qt::darkGreen : Qt::darkRed);
}
