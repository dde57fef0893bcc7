#pragma once

class QString;
class QWidget;

namespace shortcut
{
/// The title that a widget gives to what stands in it: that of a group, or of the tab or inner page that it is. Empty
/// for any other.
QString titleOf(const QWidget* pWidget);

/// Whether the widget is a tab's or an inner page.
bool isLeaf(const QWidget* pWidget);

/// Brings a control on the shown page before the user's eyes: turns to its inner page and tab, scrolls, gives it the
/// focus, and marks its row for a moment. Where it is hidden the group around it is marked; a disabled one does not get
/// the focus. For a tab or an inner page itself, the focus goes to what chooses it.
void reveal(QWidget* pTarget);
} // namespace shortcut
