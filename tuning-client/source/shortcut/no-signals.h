#pragma once

#include "tuning-client/source/control/held-change.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/control/spin-box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPair>
#include <QVariant>
#include <QVector>

#include <cmath>
#include <type_traits>

namespace shortcut
{
/// Texts of a combo box with the data of each; without data an item stands for its index.
using ComboItems = QVector<QPair<QString, QVariant>>;

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
        readValueTell(pControl, double(value));
        if (!isBeingEdited(pControl))
            silently(pControl, [=] { pControl->setValue(value); });
    }

    template <class Control>
    static void setChecked(Control* pControl, bool isChecked)
    {
        silently(pControl, [=] { pControl->setChecked(isChecked); });
    }

    /// Checks the button of that id, without a signal of any button of the group. No such button leaves the group.
    static void setCheckedId(QButtonGroup* pGroup, int id)
    {
        const auto buttons = pGroup->buttons();
        for (auto* pButton : buttons)
            pButton->blockSignals(true);
        if (auto* pButton = pGroup->button(id))
            silently(pGroup, [=] { pButton->setChecked(true); });
        for (auto* pButton : buttons)
            pButton->blockSignals(false);
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

    /// Gives a combo box other items. Where the texts are the same, they and the choice stay as they are; so does a box
    /// that the user has just opened.
    static void refill(QComboBox* pComboBox, const ComboItems& items)
    {
        if (isBeingEdited(pComboBox))
            return;
        bool isSame = pComboBox->count() == items.size();
        for (int i = 0; isSame && i < items.size(); ++i)
            isSame = pComboBox->itemText(i) == items[i].first;
        silently(pComboBox,
                 [&]
                 {
                     if (!isSame)
                         pComboBox->clear();
                     for (int i = 0; i < items.size(); ++i)
                         if (isSame)
                             pComboBox->setItemData(i, items[i].second);
                         else
                             pComboBox->addItem(items[i].first, items[i].second);
                 });
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

    static void readValueTell(SliderSpinWidget* pControl, double value) { pControl->readValueSet(value); }

    static void readValueTell(QDoubleSpinBox* pControl, double value) { readValueTipSet(pControl, value); }

    static void readValueTell(QSpinBox* pControl, double value) { readValueTipSet(pControl, value); }

    static void readValueTell(QWidget*, double) {}

    /// A box without a tip explains itself in another way.
    template <class Box>
    static void readValueTipSet(Box* pBox, double value)
    {
        if (!pBox->toolTip().isEmpty())
            pBox->setToolTip(valueTip(*pBox, value));
    }

    static bool isBeingEdited(const SliderSpinWidget* pControl) { return pControl->isBeingEdited(); }

    template <class Box>
    static bool isBoxBeingEdited(const Box* pBox)
    {
        const auto* pHeldChange = pBox->template findChild<HeldChange*>();
        return isHalfTyped(pBox) || (pHeldChange && pHeldChange->isHeld());
    }

    static bool isBeingEdited(const QDoubleSpinBox* pControl) { return isBoxBeingEdited(pControl); }

    static bool isBeingEdited(const QSpinBox* pControl) { return isBoxBeingEdited(pControl); }

    /// Asking for its view would build the popup of each box.
    static bool isBeingEdited(const QComboBox* pControl)
    {
        const auto* pPopup = QApplication::activePopupWidget();
        return pPopup && pPopup->parentWidget() == pControl;
    }

    static bool isBeingEdited(const QWidget*) { return false; }
};
} // namespace shortcut
