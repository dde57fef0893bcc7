#pragma once

#include <QVector>

class AbstractWidget;
class QMenu;
class SliderSpinWidget;

namespace shortcut
{
/// The rows that `pPage` reads, on its parts as well.
QVector<SliderSpinWidget*> rowsReadBy(const AbstractWidget* pPage);

/// Lets the menu of a row that `pPage` reads set back all changed rows of the page that the user sees, each as if the
/// user did; the first failure ends it. Without a changed row there is no entry.
void changedRowsOffer(QMenu& menu, AbstractWidget* pPage);
} // namespace shortcut
