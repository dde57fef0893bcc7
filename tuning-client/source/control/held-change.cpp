#include "tuning-client/source/control/held-change.h"

#include <QAbstractSlider>
#include <QKeyEvent>
#include <QWidget>

namespace
{
bool isSteppingKey(const QEvent* pEvent, bool isSlider)
{
    switch (static_cast<const QKeyEvent*>(pEvent)->key())
    {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return isSlider;
    default:
        return false;
    }
}
} // namespace

HeldChange::HeldChange(QObject* pParent) : QObject(pParent) {}

void HeldChange::watch(QWidget* pControl) { pControl->installEventFilter(this); }

void HeldChange::changed()
{
    if (isDown)
        isChangePending = true;
    else
        emit committed();
}

bool HeldChange::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    switch (pEvent->type())
    {
    case QEvent::KeyPress:
        if (isSteppingKey(pEvent, qobject_cast<QAbstractSlider*>(pWatched)))
            isDown = true;
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        isDown = true;
        break;
    case QEvent::KeyRelease:
        if (isDown && !static_cast<QKeyEvent*>(pEvent)->isAutoRepeat())
            release();
        break;
    case QEvent::MouseButtonRelease:
        // A slider changes its value in the release itself, so the control goes first.
        pWatched->event(pEvent);
        release();
        return true;
    case QEvent::FocusOut:
    case QEvent::Hide:
        release();
        break;
    default:
        break;
    }
    return QObject::eventFilter(pWatched, pEvent);
}

void HeldChange::release()
{
    isDown = false;
    if (!isChangePending)
        return;
    isChangePending = false;
    emit committed();
}
