#include "tuning-client/source/control/number-table.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

namespace number_table
{
QTableView* make(QStandardItemModel& model, int rows, int columns, const QStringList& heads)
{
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            model.setItem(row, column, new QStandardItem);
    for (int column = 0; column < columns; ++column)
        model.setHeaderData(column, Qt::Horizontal, heads.value(column, QString::number(column)));
    auto* pView = new QTableView;
    pView->setModel(&model);
    pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    pView->horizontalHeader()->setDefaultSectionSize(pView->fontMetrics().horizontalAdvance("0000000"));
    return pView;
}

void show(QStandardItemModel& model, const std::function<long long(int row, int column)>& fValue)
{
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            model.item(row, column)->setText(QString::number(fValue(row, column)));
}
} // namespace number_table
