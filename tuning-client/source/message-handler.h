#pragma once

#include <QString>
#include <QtGlobal>

/// Qt's log messages on standard output, in the colour of their type, with no newline added. Control characters in the
/// text are written as "\x1b", since a text that came from the board must not drive the terminal. One that ends the
/// process stands on standard error as well.
void messageOutput(QtMsgType type, const QMessageLogContext& context, const QString& message);
