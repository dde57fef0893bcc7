#pragma once

#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/shortcut/no-signals.h"

#include <functional>
#include <initializer_list>

class AbstractWidget;
class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;

namespace shortcut
{
/// Makes the rows of a page on any grid, one below the other: each call adds a row behind the last one, with its label,
/// buddy and accessible names, and runs `fChanged` inside the page's guard at each change that the user commits. Labels
/// stand in column 0, controls from column 1 on.
class Form
{
public:
    /// Receives the control that was changed; of a radio group, its QButtonGroup. An empty one connects nothing.
    using Changed = std::function<void(QObject* pControl)>;

    /// Of every grid with rows. The last one takes the width that is left, so that controls stand beside their labels.
    static constexpr int columns = 10;

    static constexpr int ownDecimals = -1;

    /// Where a row of boxes is stored: the addresses of a page's members.
    using Boxes = std::initializer_list<QDoubleSpinBox**>;

    Form(AbstractWidget* pPage, QGridLayout* pGrid, Changed fChanged);

    /// `ownDecimals` leaves decimals and step as the control has them.
    SliderSpinWidget* slider(const QString& text, double min, double max, int decimals = 0);

    /// A label with a box that has no text of its own.
    QCheckBox* checkBox(const QString& text);

    /// A box with its own text.
    QCheckBox* textCheckBox(const QString& text);

    QComboBox* comboBox(const QString& text, const ComboItems& items);

    /// Several combo boxes side by side, with the same items.
    void comboBoxes(const QString& text, std::initializer_list<QComboBox**> boxes, const ComboItems& items);

    /// Boxes side by side, `perRow` in a row, that are for the elements of one array. They are stored in `boxes` too.
    QVector<QDoubleSpinBox*> spinBoxes(const QString& text, Boxes boxes, double min, double max, int decimals = 0,
                                       double step = 1, int perRow = 5);

    /// The same for whole numbers.
    QVector<QSpinBox*> spinBoxes(const QString& text, std::initializer_list<QSpinBox**> boxes, int min, int max,
                                 int perRow = 5);

    /// A box for a whole number in `column` of the row that was made last, behind what stands there. It has no label
    /// but its own accessible name.
    QSpinBox* spinBoxBeside(const QString& accessibleName, int column, int min, int max);

    /// The same with the decimals that the control has by itself.
    QDoubleSpinBox* doubleSpinBoxBeside(const QString& accessibleName, int column, int min, int max);

    /// Titles of columns, the first one for the labels.
    void heads(const QStringList& texts);

    /// A group of radio buttons one below the other; `items` have the buttons' ids as data.
    QButtonGroup* radioGroup(const QString& title, const ComboItems& items);

    /// A group box with a form of its own. A checkable one is a control as well.
    Form group(const QString& title, bool isCheckable = false);

    /// Of a form that `group` has made; else null.
    QGroupBox* groupBox() const { return pGroupBox; }

    /// For what stands beside the rows.
    QGridLayout* grid() const { return pGrid; }

    /// Takes a control of the page's own into the next row; its changes stay the page's. `behind`, such as a unit,
    /// follows it.
    void labelled(const QString& text, QWidget* pControl, const QString& behind = QString());

    /// Takes a widget of the page's own over the whole width of the next row.
    void wide(QWidget* pWidget);

    /// Gives all height that is left to what comes below the last row.
    void stretch();

private:
    int next() const;
    void label(const QString& text, int line, QWidget* pBuddy);
    void name(QWidget* pControl, const QString& text, int index, int count);

    template <class Sender, class Signal>
    void connectChanged(Sender* pSender, Signal signal, QObject* pControl);

    template <class Box>
    void boxPlace(Box* pBox, int line, int column);

    template <class Box>
    Box* boxBeside(const QString& accessibleName, int column, int min, int max);

    template <class Box, class Configure>
    QVector<Box*> boxesAdd(const QString& text, std::initializer_list<Box**> boxes, int perRow, Configure configure);

    AbstractWidget* pPage;
    QGridLayout* pGrid;
    QGroupBox* pGroupBox = nullptr;
    Changed fChanged;
};

/// The label of a control that a form has made, which is its buddy.
QLabel* labelOf(const QWidget* pControl);
} // namespace shortcut
