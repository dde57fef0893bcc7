#include "tuning-client/source/shortcut/radio-box.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

QButtonGroup* shortcut::radioBox(const QString& title, const ComboItems& items, int columns)
{
    auto* pBox = new QGroupBox(title);
    auto* pLayout = new QGridLayout(pBox);
    auto* pGroup = new QButtonGroup(pBox);
    for (int i = 0; i < items.size(); ++i)
    {
        auto* pButton = new QRadioButton(items[i].first);
        pLayout->addWidget(pButton, i / columns, i % columns);
        pGroup->addButton(pButton, items[i].second.toInt());
    }
    pLayout->setColumnStretch(columns - 1, 1);
    return pGroup;
}

QRadioButton* shortcut::radioOf(const QButtonGroup* pGroup, int id)
{
    return qobject_cast<QRadioButton*>(pGroup->button(id));
}

QGroupBox* shortcut::boxOf(const QButtonGroup* pGroup) { return qobject_cast<QGroupBox*>(pGroup->parent()); }
