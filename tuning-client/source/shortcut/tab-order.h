#pragma once

class QWidget;

namespace shortcut
{
/// Makes the tab order of all controls below `pPage` their reading order, by their places in the layouts: row by row,
/// and a group as a whole before what stands beside it. Hidden controls have their place in it too.
void tabOrderSet(QWidget* pPage);
} // namespace shortcut
