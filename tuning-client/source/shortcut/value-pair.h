#pragma once

class SliderSpinWidget;

namespace shortcut
{
/// Keeps `pLower` from exceeding `pUpper`: `pMoved`, one of the two, is set back to the other's value, without its
/// signal. True when it had to give way.
bool giveWay(SliderSpinWidget* pMoved, const SliderSpinWidget* pLower, const SliderSpinWidget* pUpper);
} // namespace shortcut
