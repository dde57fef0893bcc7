#pragma once

class QString;
class QWidget;

/// Modal boxes titled "Warning". Their text may come from the board, so it is shown as plain text and cut to a length
/// that fits a screen.
namespace message_box
{
void warning(QWidget* pParent, const QString& text);

/// True for Yes.
bool question(QWidget* pParent, const QString& text);
} // namespace message_box
