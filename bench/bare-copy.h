#pragma once

class QWidget;

/// The tree of widgets below `real` once more, in the layouts, tabs and stacks that it has, of bare Qt and Qwt classes:
/// each the nearest one that the real widget derives from, with what it shows.
QWidget* bareCopy(const QWidget& real);
