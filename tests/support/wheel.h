#pragma once

#include "tests/support/qt-main.h"

#include <qtestspontaneevent.h>

/// A turn of the wheel over that place of the widget, as the window system reports it.
inline void wheelTurn(QWidget* pWidget, const QPoint& at, int delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    auto* pWindow = pWidget->window();
    QWheelEvent wheel(pWidget->mapTo(pWindow, at), pWidget->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    // Only such events go on to the parent.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(pWindow->windowHandle(), &wheel);
}
