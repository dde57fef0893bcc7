#include "tuning-client/source/module/dpcc-widget.h"

#include "tuning-client/source/control/row-names.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/dpcc.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

using rest::Dpcc;

namespace
{
const QStringList sets{"set1", "set2", "set3", "set4", "set5", "set6"};
}

DpccWidget::DpccWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Defect Pixel Cluster Correction"),
      pCheckBoxEnable(new QCheckBox(tr("Enable Defect Pixel Cluster Correction")))
{
    ledWordsSet(tr("DPCC ON"), tr("DPCC OFF"));
    shortcut::Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    page.wide(pCheckBoxEnable);
    shortcut::ComboItems items;
    for (const auto& set : sets)
        items.append({set, {}});
    pComboBoxSet = page.comboBox("set", items);
    pLabelSet = findChild<QLabel*>(row::label);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Dpcc().enableSet(isEnable); },
        [this](bool isFree) { pComboBoxSet->setEnabled(isFree); }, shortcut::Grey::Always);
    page.stretch();
}

/// A board's set without an item leaves the box empty, which stands for the last one.
void DpccWidget::configSet()
{
    const int index = sets.indexOf(pComboBoxSet->currentText());
    auto config = rest::recordZero<Dpcc::Config>();
    config.index_set = index < 0 ? 6 : uint32_t(index + 1);
    Dpcc().configSet(config);
}

void DpccWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Dpcc::Config>();
    Dpcc().enableGet(isEnable).configGet(config);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    pComboBoxSet->setEnabled(!isEnable);
    shortcut::NoSignals::setCurrentIndex(pComboBoxSet, config.index_set <= 6 ? int(config.index_set) - 1 : -1);
    ledShow(isEnable);
}
