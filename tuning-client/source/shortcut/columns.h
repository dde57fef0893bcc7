#pragma once

class QWidget;

namespace shortcut
{
/// Gives all rows below `pPage` labels and value boxes of one width, so that sliders, combo boxes and check boxes stand
/// in one column.
void columnsAlign(QWidget* pPage);
} // namespace shortcut
