#pragma once

#include "tests/support/qt-main.h"

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

/// "Activate" and the like of a file on the board, in a menu that lists these anew each time.
inline void remoteChoose(QMenu* pMenu, const QString& file, const QString& entry)
{
    emit pMenu->aboutToShow();
    actionOf(actionOf(pMenu->actions(), file)->menu()->actions(), entry)->trigger();
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
