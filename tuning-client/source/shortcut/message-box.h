#pragma once

#include <QString>

class QWidget;

/// Modal boxes. Their text may come from the board, so it is shown as plain text and cut to a length that fits a
/// screen.
namespace message_box
{
/// `details` stand below the text.
void information(QWidget* pParent, const QString& title, const QString& text, const QString& details = {});

/// Titled "Warning", or, without a window to belong to, as the program.
void warning(QWidget* pParent, const QString& text);

/// The window that the user has before him, `pElse` when it is none of the program's.
QWidget* frontGet(QWidget* pElse);

/// True for Yes; the key of haste says No.
bool question(QWidget* pParent, const QString& title, const QString& text, const QString& details = {});
} // namespace message_box
