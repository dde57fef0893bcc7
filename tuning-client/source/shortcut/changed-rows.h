#pragma once

#include <QVector>

class AbstractWidget;
class QWidget;
class SliderSpinWidget;

namespace shortcut
{
/// The page that the user sees around a control: the outermost one with a name. Null for none.
AbstractWidget* pageAround(const QWidget* pControl);

/// The rows that `pPage` reads, on its parts as well.
QVector<SliderSpinWidget*> rowsReadBy(const AbstractWidget* pPage);

/// Rows of `pPage`, and of the shown pages in it, that differ from their first read and can be set back: enabled, and
/// not hidden but for the tab that they stand on.
QVector<SliderSpinWidget*> changedRows(const AbstractWidget* pPage);

/// Sets all changed rows back, each as if the user did; the first failure ends it.
void changedRowsRestore(const AbstractWidget* pPage);
} // namespace shortcut
