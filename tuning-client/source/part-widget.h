#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/record-binding.h"

/// Base of the tabs that edit a part of a record which their frame reads and sends. A tab shows from that record
/// whenever it comes to the front, and sends no command.
class PartWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit PartWidget(QWidget* pParent) : AbstractWidget(pParent, QString(), false, Role::Part) {}

signals:
    /// A control was changed and its field stored: the frame sends the record.
    void valueChanged();

protected:
    /// Rows on the tab's grid that store the changed control's field, and nothing else, into the record behind
    /// `pRecord`. Both arguments are members of the tab.
    template <class Record>
    shortcut::Form form(const shortcut::RecordBinding<Record>& binding, Record* const& pRecord)
    {
        return {this, pGridLayoutScrollArea,
                [this, &binding, &pRecord](QObject* pControl)
                {
                    if (!pRecord)
                        return;
                    binding.store(pControl, *pRecord);
                    emit valueChanged();
                }};
    }
};
