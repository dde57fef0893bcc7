#pragma once

#include <QVector>

class QWidget;

namespace shortcut
{
/// The controls below `pPage` that the tab key reaches, hidden and disabled ones too, in reading order.
QVector<QWidget*> controlsInOrder(QWidget* pPage);

/// Makes the tab order of all controls below `pPage` their reading order, by their places in the layouts: row by row,
/// and a group as a whole before what stands beside it. Hidden controls have their place in it too.
void tabOrderSet(QWidget* pPage);
} // namespace shortcut
