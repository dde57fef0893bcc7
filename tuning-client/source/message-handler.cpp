#include "tuning-client/source/message-handler.h"

#include <QGuiApplication>

#include <iostream>
#include <string>

namespace
{
const char* colour(QtMsgType type)
{
    switch (type)
    {
    case QtDebugMsg:
        return "\033[34m";
    case QtInfoMsg:
        return "\033[32m";
    case QtWarningMsg:
        return "\033[33m";
    default:
        return "\033[31m";
    }
}

QString printable(const QString& message)
{
    QString text;
    text.reserve(message.size());
    for (auto character : message)
    {
        const auto code = character.unicode();
        const bool isControl = (code < 0x20 && code != '\n' && code != '\t') || (code >= 0x7f && code < 0xa0);
        text += isControl ? QString("\\x%1").arg(code, 2, 16, QChar('0')) : QString(character);
    }
    return text;
}
} // namespace

void messageOutput(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // One write, so that messages of two threads do not mix.
    const auto text = printable(message).toStdString();
    std::cout << colour(type) + text + "\033[0m";
    if (type != QtFatalMsg)
        return;
    // The process is aborted, and what the stream still holds would go with it.
    std::cout.flush();
    std::string line = "tuning-client: " + text + "\n";
    if (QGuiApplication::platformName().isEmpty())
        line += "Is there a display? DISPLAY is \"" + qgetenv("DISPLAY").toStdString() + "\".\n";
    std::cerr << line;
}
