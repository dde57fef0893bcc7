#include "tuning-client/source/control/measure-dock.h"

#include "tuning-client/source/control/plot.h"

#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

#include <algorithm>
#include <numeric>

namespace
{
constexpr int barsMost = 256;

/// Its colour and, since colour alone would not tell them apart, its line.
QPen penOf(const QString& channel, int index)
{
    static const QMap<QString, QPen> pens{{"R", QPen(Qt::red)},
                                          {"G", QPen(Qt::darkGreen)},
                                          {"Gr", QPen(Qt::darkGreen, 0, Qt::DashLine)},
                                          {"Gb", QPen(Qt::darkCyan, 0, Qt::DotLine)},
                                          {"B", QPen(Qt::blue, 0, Qt::DashDotLine)}};
    return pens.value(channel, QPen(Qt::black, 0, Qt::PenStyle(Qt::SolidLine + index)));
}

QStringList figures(const ChannelStatistics& channel)
{
    if (channel.count == 0)
        return {"", "", "", "", "0"};
    return {QString::number(channel.mean, 'f', 2), QString::number(channel.deviation, 'f', 2),
            QString::number(channel.minimum), QString::number(channel.maximum), QString::number(channel.count)};
}
} // namespace

MeasureDock::MeasureDock(QWidget* pParent)
    : QDockWidget(tr("Rectangle"), pParent), pLabelRectangle(new QLabel), pTable(new QTableWidget), pPlot(new QwtPlot)
{
    setAllowedAreas(Qt::AllDockWidgetAreas);
    // It comes and goes with the rectangle, not by a menu.
    toggleViewAction()->setVisible(false);
    pLabelRectangle->setTextFormat(Qt::PlainText);
    pLabelRectangle->setObjectName("Rectangle");

    const QStringList heads{tr("Mean"), tr("Std. Dev."), tr("Min"), tr("Max"), tr("Samples")};
    pTable->setColumnCount(heads.size());
    pTable->setHorizontalHeaderLabels(heads);
    pTable->setAccessibleName(tr("Figures of the Rectangle"));
    pTable->setToolTip(tr("Figures of the file's own samples. The divisor of the standard deviation is their number."));
    pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    pTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    pTable->verticalHeader()->setDefaultSectionSize(3 * fontMetrics().height() / 2);
    pTable->horizontalHeader()->setMinimumSectionSize(8 * fontMetrics().averageCharWidth());

    pPlot->setAccessibleName(tr("Histogram of the Rectangle"));
    plot::shrinkable(*pPlot);
    plot::labelsFit(*pPlot, QwtPlot::xBottom);
    plot::labelsFit(*pPlot, QwtPlot::yLeft);
    plot::setAxisTitle(*pPlot, QwtPlot::xBottom, tr("Raw Value"));
    plot::setAxisTitle(*pPlot, QwtPlot::yLeft, tr("Samples"));
    plot::gridAdd(*pPlot, Qt::gray, Qt::lightGray);
    plot::inspectable(*pPlot);
    pPlot->setCanvasBackground(Qt::white);
    pPlot->insertLegend(new QwtLegend, QwtPlot::RightLegend);

    auto* pContent = new QWidget;
    auto* pFigures = new QVBoxLayout;
    pFigures->addWidget(pLabelRectangle);
    pFigures->addWidget(pTable, 1);
    auto* pLayout = new QHBoxLayout(pContent);
    pLayout->addLayout(pFigures);
    pLayout->addWidget(pPlot, 1);
    setWidget(pContent);
    // It begins no higher than it must be: the picture is above it.
    pTable->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Ignored);
    pPlot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

void MeasureDock::statisticsShow(const QRect& rectangle, const QStringList& names,
                                 const std::vector<ChannelStatistics>& channels)
{
    pLabelRectangle->setText(QString("x %1  y %2   %3 x %4")
                                 .arg(rectangle.x())
                                 .arg(rectangle.y())
                                 .arg(rectangle.width())
                                 .arg(rectangle.height()));
    pTable->setRowCount(int(channels.size()));
    pTable->setVerticalHeaderLabels(names);
    for (int row = 0; row < pTable->rowCount(); ++row)
    {
        const auto texts = figures(channels[std::size_t(row)]);
        for (int column = 0; column < texts.size(); ++column)
        {
            if (!pTable->item(row, column))
            {
                pTable->setItem(row, column, new QTableWidgetItem);
                pTable->item(row, column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            pTable->item(row, column)->setText(texts[column]);
        }
    }
    pTable->resizeColumnsToContents();
    pTable->setMinimumWidth(pTable->horizontalHeader()->length() + pTable->verticalHeader()->sizeHint().width() +
                            2 * pTable->frameWidth());
    histogramsShow(names, channels);
    setVisible(true);
}

/// The bars reach from the least to the greatest of all samples, so that the noise of an even patch has a shape.
void MeasureDock::histogramsShow(const QStringList& names, const std::vector<ChannelStatistics>& channels)
{
    int minimum = 65535;
    int maximum = 0;
    for (const auto& channel : channels)
        if (channel.count > 0)
        {
            minimum = std::min(minimum, channel.minimum);
            maximum = std::max(maximum, channel.maximum);
        }
    const int width = (maximum - minimum) / barsMost + 1;
    pPlot->setToolTip(width == 1 ? tr("A step for each value") : tr("A step for each %1 values").arg(width));
    pPlot->detachItems(QwtPlotItem::Rtti_PlotCurve);
    for (int i = 0; i < names.size(); ++i)
    {
        const auto& channel = channels[std::size_t(i)];
        if (channel.count == 0)
            continue;
        QVector<QPointF> points;
        for (int value = minimum; value <= maximum; value += width)
        {
            const auto begin = channel.counts.begin() + value;
            const auto end = channel.counts.begin() + std::min(value + width, int(channel.counts.size()));
            points.append({double(value), double(std::accumulate(begin, end, 0u))});
        }
        // The last step has to be as wide as the others.
        points.append({double(points.last().x() + width), points.last().y()});
        auto* pCurve = plot::curveAdd(*pPlot, names[i], Qt::black);
        pCurve->setStyle(QwtPlotCurve::Steps);
        pCurve->setCurveAttribute(QwtPlotCurve::Inverted); // the value holds up to the next point
        pCurve->setPen(penOf(names[i], i));
        pCurve->setLegendAttribute(QwtPlotCurve::LegendShowLine);
        pCurve->setLegendIconSize({3 * fontMetrics().averageCharWidth(), fontMetrics().height()});
        plot::samplesSet(*pCurve, points);
    }
    pPlot->setAxisScale(QwtPlot::xBottom, minimum, maximum + width);
    pPlot->replot();
}

QString MeasureDock::text() const
{
    QString text = pLabelRectangle->text();
    for (int column = 0; column < pTable->columnCount(); ++column)
        text += "\t" + pTable->horizontalHeaderItem(column)->text();
    for (int row = 0; row < pTable->rowCount(); ++row)
    {
        text += "\n" + pTable->verticalHeaderItem(row)->text();
        for (int column = 0; column < pTable->columnCount(); ++column)
            text += "\t" + pTable->item(row, column)->text();
    }
    return text + "\n";
}

void MeasureDock::closeEvent(QCloseEvent* pEvent)
{
    QDockWidget::closeEvent(pEvent);
    emit closed();
}
