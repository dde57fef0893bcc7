#pragma once

#include "tuning-image/source/samples.h"

#include <QDockWidget>
#include <QStringList>

class QLabel;
class QTableWidget;
class QwtPlot;

/// Shows the figures and the histogram of each channel of a rectangle.
class MeasureDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit MeasureDock(QWidget* pParent = nullptr);

    /// Shows a channel for each name, those without a sample without figures.
    void statisticsShow(const QRect& rectangle, const QStringList& names,
                        const std::vector<ChannelStatistics>& channels);

    /// The figures as a table for a spreadsheet.
    QString text() const;

signals:
    /// The user has closed it.
    void closed();

protected:
    void closeEvent(QCloseEvent* pEvent) override;

private:
    void histogramsShow(const QStringList& names, const std::vector<ChannelStatistics>& channels);

    QLabel* pLabelRectangle;
    QTableWidget* pTable;
    QwtPlot* pPlot;
};
