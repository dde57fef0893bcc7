#pragma once

#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-rest/source/record.h"

#include <QCheckBox>
#include <QGroupBox>

#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace shortcut
{
/// A step of a path: element `index` of an array.
inline auto element(size_t index)
{
    return [index](auto& array) -> auto& { return array[index]; };
}

/// Ties controls to the fields of a record, once for both directions. A field is named by a pointer to member, by a
/// chain of them for a nested field, with `element(i)` for an element of an array, or by an accessor
/// `[](auto& record) -> auto& { ... }`.
template <class Record>
class RecordBinding
{
public:
    /// A number. Storing truncates towards zero where the field is an integer, held to the field's width.
    template <class... Path>
    RecordBinding& add(SliderSpinWidget* pControl, Path... path)
    {
        return numberAdd(pControl, path...);
    }

    template <class... Path>
    RecordBinding& add(QDoubleSpinBox* pControl, Path... path)
    {
        return numberAdd(pControl, path...);
    }

    template <class... Path>
    RecordBinding& add(QSpinBox* pControl, Path... path)
    {
        return numberAdd(pControl, path...);
    }

    /// A row of boxes for a whole array, box i for element i.
    template <class Box, class... Path>
    RecordBinding& add(const QVector<Box*>& boxes, Path... path)
    {
        using Array = std::remove_reference_t<decltype(at(std::declval<Record&>(), path...))>;
        Q_ASSERT(size_t(boxes.size()) == std::extent_v<Array>);
        for (int i = 0; i < boxes.size(); ++i)
            add(boxes[i], path..., element(size_t(i)));
        return *this;
    }

    /// A truth value. A byte from the board that is true in another way than 1 goes back as it came.
    template <class... Path>
    RecordBinding& add(QCheckBox* pControl, Path... path)
    {
        return checkAdd(pControl, path...);
    }

    template <class... Path>
    RecordBinding& add(QGroupBox* pControl, Path... path)
    {
        return checkAdd(pControl, path...);
    }

    /// The value that the chosen item carries as data, or its index where it carries none. A value without an item
    /// leaves the box as it is.
    template <class... Path>
    RecordBinding& add(QComboBox* pControl, Path... path)
    {
        return comboAdd(pControl, -1, path...);
    }

    /// The same where a value without an item is shown as the item at `fallbackIndex`.
    template <class... Path>
    RecordBinding& addOr(int fallbackIndex, QComboBox* pControl, Path... path)
    {
        return comboAdd(pControl, fallbackIndex, path...);
    }

    /// The id of the checked button. A value without a button leaves the group as it is.
    template <class... Path>
    RecordBinding& add(QButtonGroup* pControl, Path... path)
    {
        return entryAdd(
            pControl, [=](const auto& field) { NoSignals::setCheckedId(pControl, int(field)); },
            [=](auto& field)
            {
                if (pControl->checkedId() >= 0)
                    assign(field, pControl->checkedId());
            },
            path...);
    }

    /// Shows the record, without the controls' signals.
    void show(const Record& record) const
    {
        for (const auto& entry : entries)
            entry.show(record);
    }

    /// Copies all controls into the record; fields without a control stay.
    void store(Record& record) const
    {
        for (const auto& entry : entries)
            entry.store(record);
    }

    /// Copies one control into the record, so that a value which another control could not show stays as it was read.
    void store(const QObject* pControl, Record& record) const
    {
        for (const auto& entry : entries)
            if (entry.pControl == pControl)
                entry.store(record);
    }

private:
    struct Entry
    {
        const QObject* pControl;
        std::function<void(const Record&)> show;
        std::function<void(Record&)> store;
    };

    template <class Show, class Store, class... Path>
    RecordBinding& entryAdd(const QObject* pControl, Show show, Store store, Path... path)
    {
        entries.push_back({pControl, [=](const Record& record) { show(at(record, path...)); },
                           [=](Record& record) { store(at(record, path...)); }});
        return *this;
    }

    template <class Control, class... Path>
    RecordBinding& numberAdd(Control* pControl, Path... path)
    {
        return entryAdd(
            pControl,
            [=](const auto& field)
            {
                if constexpr (std::is_same_v<Control, QSpinBox>)
                {
                    if (std::isfinite(double(field)))
                        NoSignals::setValue(pControl, converted<int>(double(field)));
                }
                else
                    NoSignals::setValue(pControl, double(field));
            },
            [=](auto& field) { assign(field, double(pControl->value())); }, path...);
    }

    template <class Control, class... Path>
    RecordBinding& checkAdd(Control* pControl, Path... path)
    {
        return entryAdd(
            pControl, [=](const auto& field) { NoSignals::setChecked(pControl, bool(field)); },
            [=](auto& field) { assign(field, pControl->isChecked()); }, path...);
    }

    template <class... Path>
    RecordBinding& comboAdd(QComboBox* pControl, int fallbackIndex, Path... path)
    {
        return entryAdd(
            pControl,
            [=](const auto& field)
            {
                int index = pControl->count() - 1;
                while (index >= 0 && itemValue(pControl, index) != qint64(field))
                    --index;
                if (index < 0)
                    index = fallbackIndex;
                if (index >= 0)
                    NoSignals::setCurrentIndex(pControl, index);
            },
            [=](auto& field)
            {
                if (pControl->currentIndex() >= 0)
                    assign(field, itemValue(pControl, pControl->currentIndex()));
            },
            path...);
    }

    static qint64 itemValue(const QComboBox* pControl, int index)
    {
        const auto data = pControl->itemData(index);
        return data.isValid() ? data.toLongLong() : index;
    }

    template <class Outer, class First, class... Rest>
    static auto& at(Outer& outer, First first, Rest... rest)
    {
        auto& inner = std::invoke(first, outer);
        if constexpr (sizeof...(rest) == 0)
            return inner;
        else
            return at(inner, rest...);
    }

    template <class Field, class Value>
    static void assign(Field& field, Value value)
    {
        if constexpr (std::is_same_v<Field, bool> || std::is_same_v<Field, rest::Flag>)
        {
            if (bool(field) != bool(value))
                field = bool(value);
        }
        else if constexpr (std::is_enum_v<Field>)
            field = Field(value);
        else
            field = converted<Field>(double(value));
    }

    template <class Field>
    static Field converted(double value)
    {
        if constexpr (std::is_floating_point_v<Field>)
            return Field(value);
        else
            return Field(std::clamp(value, double(std::numeric_limits<Field>::min()),
                                    double(std::numeric_limits<Field>::max())));
    }

    std::vector<Entry> entries;
};
} // namespace shortcut
