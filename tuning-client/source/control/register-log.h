#pragma once

#include <QTextEdit>

/// The registers that have been written, a line each, the last in sight.
class RegisterLog : public QTextEdit
{
    Q_OBJECT

public:
    RegisterLog();

    void lineAppend(const QString& line);
};
