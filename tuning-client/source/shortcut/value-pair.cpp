#include "tuning-client/source/shortcut/value-pair.h"

#include "tuning-client/source/control/slider-spin-widget.h"

#include <QSignalBlocker>

bool shortcut::giveWay(SliderSpinWidget* pMoved, const SliderSpinWidget* pLower, const SliderSpinWidget* pUpper)
{
    if (pLower->value() <= pUpper->value())
        return false;
    const QSignalBlocker blocker(pMoved);
    pMoved->setValue(pMoved == pLower ? pUpper->value() : pLower->value());
    return true;
}
