#pragma once

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QStringList>
#include <QTimer>

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

/// The entries of the menu that pops up while `fOpen` runs, none without one; the entry of that text is chosen.
template <class Action>
QStringList popup(const Action& fOpen, const QString& chosen = {})
{
    QStringList entries;
    QTimer::singleShot(0,
                       [&]
                       {
                           auto* pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                           if (!pMenu)
                               return;
                           entries = texts(pMenu->actions());
                           if (entries.contains(chosen))
                               actionOf(pMenu->actions(), chosen)->trigger();
                           pMenu->close();
                       });
    fOpen();
    QCoreApplication::processEvents();
    return entries;
}
