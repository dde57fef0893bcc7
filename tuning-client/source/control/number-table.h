#pragma once

#include <QStringList>

#include <functional>
#include <utility>

class QStandardItemModel;
class QTableView;

/// A table of whole numbers that the board reports and nobody edits. Its cells are made once and only change their
/// text, since new ones for each read cost three times as much.
namespace number_table
{
/// A view of `rows` by `columns` empty cells, with `model` behind it. Rows are numbered from 0, and so are columns
/// without `heads`.
QTableView* make(QStandardItemModel& model, int rows, int columns, const QStringList& heads = {});

/// Lets the view show all of its cells, so that it is the page that scrolls: a greyed table could not.
void whole(QTableView& view);

/// Shows `fValue(row, column)` in each cell.
void show(QStandardItemModel& model, const std::function<long long(int row, int column)>& fValue);

/// The same with each cell coloured by its number. The least, white, and the most, orange, are the result.
std::pair<long long, long long> heatShow(QStandardItemModel& model,
                                         const std::function<long long(int row, int column)>& fValue);
} // namespace number_table
