#pragma once

#include <functional>

class QStandardItemModel;
class QStringList;
class QTableView;

/// A table of whole numbers that the board reports and nobody edits. Its cells are made once and only change their
/// text, since new ones for each read cost three times as much.
namespace number_table
{
/// A view of `rows` by `columns` empty cells, with `model` behind it. Without `heads` the columns are numbered from 0.
QTableView* make(QStandardItemModel& model, int rows, int columns, const QStringList& heads);

/// Shows `fValue(row, column)` in each cell.
void show(QStandardItemModel& model, const std::function<long long(int row, int column)>& fValue);
} // namespace number_table
