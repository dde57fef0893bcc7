#include "tuning-client/source/module/af-widget.h"

#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/af.h"

#include <QCheckBox>

using rest::Af;
using shortcut::NoSignals;

AfWidget::AfWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Auto Focus", false), pCheckBoxEnable(new QCheckBox(tr("Enable Auto Focus")))
{
    ledWordsSet(tr("AF ON"), tr("AF OFF"));
    shortcut::Form rows(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    rows.wide(pCheckBoxEnable);
    pCheckBoxOneshot = rows.textCheckBox(tr("Oneshot"));
    pComboBoxSearchAlgorithm =
        rows.comboBox(tr("Search Algorithm"),
                      {{tr("Full-Search"), rest::CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_FULL_RANGE},
                       {tr("Adaptive Range-Search"), rest::CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_ADAPTIVE_RANGE},
                       {tr("Hill-Climbing"), rest::CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_HILL_CLIMBING}});
    rows.stretch();
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Af().enableSet(isEnable); },
        [this](bool isFree) { settingsEnable(isFree); }, shortcut::Grey::Always);
}

void AfWidget::configSet()
{
    Af::Config config;
    config.searchAlgorithm = rest::CamEngineAfSearchAlgorithm_t(pComboBoxSearchAlgorithm->currentData().toUInt());
    config.isOneshort = pCheckBoxOneshot->isChecked();
    Af().configSet(config);
}

void AfWidget::settingsEnable(bool isEnabled)
{
    shortcut::enabledSet({pComboBoxSearchAlgorithm, pCheckBoxOneshot}, isEnabled);
}

void AfWidget::updateStatus()
{
    bool isAvailable = false;
    Af().availableGet(isAvailable);
    setEnabled(isAvailable);
    bool isEnable = false;
    Af::Config config;
    Af().enableGet(isEnable).configGet(config);
    settingsEnable(!isEnable);
    NoSignals::setCurrentIndex(pComboBoxSearchAlgorithm, int(config.searchAlgorithm - 1));
    NoSignals::setChecked(pCheckBoxOneshot, config.isOneshort);
    ledShow(isEnable);
}
