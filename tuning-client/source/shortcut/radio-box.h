#pragma once

#include "tuning-client/source/shortcut/no-signals.h"

class QGroupBox;
class QRadioButton;

namespace shortcut
{
/// A group box of radio buttons, `columns` in a row; `items` have the buttons' ids as data. The group belongs to its
/// box, which has no parent yet.
QButtonGroup* radioBox(const QString& title, const ComboItems& items, int columns = 1);

/// The button of that id in a group that `radioBox` has made.
QRadioButton* radioOf(const QButtonGroup* pGroup, int id);

/// The box around a group that `radioBox` has made.
QGroupBox* boxOf(const QButtonGroup* pGroup);
} // namespace shortcut
