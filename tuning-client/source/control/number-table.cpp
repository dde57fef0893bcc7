#include "tuning-client/source/control/number-table.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

#include <algorithm>
#include <vector>

namespace number_table
{
QTableView* make(QStandardItemModel& model, int rows, int columns, const QStringList& heads)
{
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            model.setItem(row, column, new QStandardItem);
    for (int row = 0; row < rows; ++row)
        model.setHeaderData(row, Qt::Vertical, QString::number(row));
    for (int column = 0; column < columns; ++column)
        model.setHeaderData(column, Qt::Horizontal, heads.value(column, QString::number(column)));
    auto* pView = new QTableView;
    pView->setModel(&model);
    pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    pView->horizontalHeader()->setDefaultSectionSize(pView->fontMetrics().horizontalAdvance("0000000"));
    return pView;
}

void whole(QTableView& view)
{
    const auto metrics = view.fontMetrics();
    view.verticalHeader()->setDefaultSectionSize(metrics.lineSpacing() + metrics.height() / 4);
    view.setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    view.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void show(QStandardItemModel& model, const std::function<long long(int row, int column)>& fValue)
{
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            model.item(row, column)->setText(QString::number(fValue(row, column)));
}

std::pair<long long, long long> heatShow(QStandardItemModel& model,
                                         const std::function<long long(int row, int column)>& fValue)
{
    show(model, fValue);
    std::vector<long long> values;
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            values.push_back(fValue(row, column));
    if (values.empty())
        return {};
    const auto [pLeast, pMost] = std::minmax_element(values.begin(), values.end());
    const double range = double(std::max(*pMost - *pLeast, 1LL));
    size_t next = 0;
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
        {
            const double heat = double(values[next++] - *pLeast) / range;
            auto* pItem = model.item(row, column);
            pItem->setBackground(QColor(255, int(255 - 125 * heat), int(255 - 205 * heat)));
            // Black on all of these, also while the table is greyed.
            pItem->setForeground(Qt::black);
        }
    return {*pLeast, *pMost};
}
} // namespace number_table
