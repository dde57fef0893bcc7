#pragma once

#include "tuning-client/source/control/slider-spin-widget.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>

#include <cmath>
#include <type_traits>

namespace shortcut
{
/// Show what the board reported, without the control's own signals, so that nothing is written back. What the user is
/// just typing, dragging or choosing is left alone, and a number that is not finite leaves the last one.
struct NoSignals
{
    template <class Control, class Value>
    static void setValue(Control* pControl, Value value)
    {
        if constexpr (std::is_floating_point_v<Value>)
        {
            if (!std::isfinite(value))
                return;
        }
        if constexpr (std::is_same_v<Control, SliderSpinWidget>)
            pControl->readValueSet(double(value));
        if (!isBeingEdited(pControl))
            silently(pControl, [=] { pControl->setValue(value); });
    }

    template <class Control>
    static void setChecked(Control* pControl, bool isChecked)
    {
        silently(pControl, [=] { pControl->setChecked(isChecked); });
    }

    template <class Control>
    static void setRange(Control* pControl, double min, double max)
    {
        if constexpr (std::is_same_v<Control, SliderSpinWidget>)
            silently(pControl, [=] { pControl->setRange(min, max); });
        else
            silently(pControl, [=] { pControl->setRange(int(min), int(max)); });
    }

    template <class Control>
    static void setCurrentText(Control* pControl, const QString& text)
    {
        if (!isBeingEdited(pControl))
            silently(pControl, [=] { pControl->setCurrentText(text); });
    }

    template <class Control>
    static void setCurrentIndex(Control* pControl, int index)
    {
        if (!isBeingEdited(pControl))
            silently(pControl, [=] { pControl->setCurrentIndex(index); });
    }

private:
    template <class Control, class Action>
    static void silently(Control* pControl, Action action)
    {
        // The state of before does not count: afterwards the control always speaks.
        struct Unblock
        {
            Control* pControl;
            ~Unblock() { pControl->blockSignals(false); }
        } unblock{pControl};
        pControl->blockSignals(true);
        action();
    }

    static bool isBeingEdited(const SliderSpinWidget* pControl) { return pControl->isBeingEdited(); }

    static bool isBeingEdited(const QAbstractSpinBox* pControl)
    {
        return pControl->hasFocus() && pControl->findChild<QLineEdit*>()->isModified();
    }

    static bool isBeingEdited(const QComboBox* pControl) { return pControl->view()->isVisible(); }

    static bool isBeingEdited(const QWidget*) { return false; }
};
} // namespace shortcut
