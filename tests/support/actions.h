#pragma once

#include <QAction>
#include <QStringList>

#include <stdexcept>

inline QStringList texts(const QList<QAction*>& actions)
{
    QStringList list;
    for (const auto* pAction : actions)
        list.append(pAction->text());
    return list;
}

inline QAction* actionOf(const QList<QAction*>& actions, const QString& text)
{
    const int index = texts(actions).indexOf(text);
    if (index < 0)
        throw std::logic_error("no action " + text.toStdString());
    return actions[index];
}
