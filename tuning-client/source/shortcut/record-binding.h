#pragma once

#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-rest/source/record.h"

#include <QCheckBox>

#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace shortcut
{
/// Ties controls to the fields of a record, once for both directions. A field is named by a pointer to member, by a
/// chain of them for a nested field, or by an accessor `[](auto& record) -> auto& { return record.array[2]; }`.
template <class Record>
class RecordBinding
{
public:
    /// A number. Storing truncates towards zero where the field is an integer, held to the field's width.
    template <class... Path>
    RecordBinding& add(SliderSpinWidget* pControl, Path... path)
    {
        entries.push_back({[=](const Record& record) { NoSignals::setValue(pControl, double(at(record, path...))); },
                           [=](Record& record)
                           {
                               auto& field = at(record, path...);
                               field = converted<std::decay_t<decltype(field)>>(pControl->value());
                           }});
        return *this;
    }

    /// A truth value. A byte from the board that is true in another way than 1 goes back as it came.
    template <class... Path>
    RecordBinding& add(QCheckBox* pControl, Path... path)
    {
        entries.push_back({[=](const Record& record) { NoSignals::setChecked(pControl, at(record, path...)); },
                           [=](Record& record)
                           {
                               auto& field = at(record, path...);
                               if (bool(field) != pControl->isChecked())
                                   field = pControl->isChecked();
                           }});
        return *this;
    }

    /// Shows the record, without the controls' signals.
    void show(const Record& record) const
    {
        for (const auto& entry : entries)
            entry.show(record);
    }

    /// Copies the controls into the record; fields without a control stay.
    void store(Record& record) const
    {
        for (const auto& entry : entries)
            entry.store(record);
    }

private:
    struct Entry
    {
        std::function<void(const Record&)> show;
        std::function<void(Record&)> store;
    };

    template <class Outer, class First, class... Rest>
    static auto& at(Outer& outer, First first, Rest... rest)
    {
        auto& inner = std::invoke(first, outer);
        if constexpr (sizeof...(rest) == 0)
            return inner;
        else
            return at(inner, rest...);
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
