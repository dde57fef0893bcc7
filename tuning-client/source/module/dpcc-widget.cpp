#include "tuning-client/source/module/dpcc-widget.h"

#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/dpcc.h"

#include <QCheckBox>
#include <QComboBox>

using rest::Dpcc;

namespace
{
constexpr int setCount = 6;
}

DpccWidget::DpccWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Defect Pixel Cluster Correction"),
      pCheckBoxEnable(new QCheckBox(tr("Enable Defect Pixel Cluster Correction")))
{
    ledWordsSet(tr("DPCC ON"), tr("DPCC OFF"));
    shortcut::Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    page.wide(pCheckBoxEnable);
    shortcut::ComboItems items;
    for (int set = 1; set <= setCount; ++set)
        items.append({"set" + QString::number(set), {}});
    pComboBoxSet = page.comboBox(tr("set"), items);
    pLabelSet = shortcut::labelOf(pComboBoxSet);
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Dpcc().enableSet(isEnable); },
        [this](bool isFree) { pComboBoxSet->setEnabled(isFree); }, shortcut::Grey::Always);
    page.stretch();
}

void DpccWidget::configSet()
{
    auto config = rest::recordZero<Dpcc::Config>();
    // The empty box counts as the last set.
    const int index = pComboBoxSet->currentIndex();
    config.index_set = uint32_t(index < 0 ? setCount : index + 1);
    Dpcc().configSet(config);
}

void DpccWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Dpcc::Config>();
    Dpcc().enableGet(isEnable).configGet(config);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    pComboBoxSet->setEnabled(!isEnable);
    // A set that has no item leaves the box empty.
    shortcut::NoSignals::setCurrentIndex(pComboBoxSet, config.index_set <= setCount ? int(config.index_set) - 1 : -1);
    ledShow(isEnable);
}
