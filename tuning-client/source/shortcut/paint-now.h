#pragma once

class QWidget;

namespace shortcut
{
/// Paints the window of `pWidget` before it returns, although a stack that is turning its pages holds paints back: what
/// the user did is then seen while an exchange blocks. Nothing happens for a window that is not on the screen.
void paintNow(QWidget* pWidget);
} // namespace shortcut
