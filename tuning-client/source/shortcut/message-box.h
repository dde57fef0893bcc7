#pragma once

class QString;
class QWidget;

/// Modal boxes. Their text may come from the board, so it is shown as plain text and cut to a length that fits a
/// screen.
namespace message_box
{
void information(QWidget* pParent, const QString& title, const QString& text);

/// Titled "Warning".
void warning(QWidget* pParent, const QString& text);

/// Titled "Warning"; true for Yes.
bool question(QWidget* pParent, const QString& text);
} // namespace message_box
