#include "tuning-client/source/module/lsc-widget.h"

#include "tuning-client/source/control/number-table.h"
#include "tuning-client/source/shortcut/form.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

using rest::Lsc;

namespace
{
constexpr int side = 17; ///< of a gain table
}

LscWidget::LscWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Lens Shading Correction", false),
      pCheckBoxEnable(new QCheckBox(tr("Enable Lens Shading Correction"))),
      pGroupBoxGridConfig(new QGroupBox(tr("Grid Configuration"))),
      pGroupBoxGainMatTab(new QGroupBox(tr("Gain Matrix Tables"))),
      pStandardItemModelSector(new QStandardItemModel(this)),
      pStandardItemModelGainRed(new QStandardItemModel(this)),
      pStandardItemModelGainGreenRed(new QStandardItemModel(this)),
      pStandardItemModelGainGreenBlue(new QStandardItemModel(this)),
      pStandardItemModelGainBlue(new QStandardItemModel(this))
{
    gridBuild();
    gainsBuild();
    shortcut::Form page(this, pGridLayoutScrollArea, {});
    page.wide(pCheckBoxEnable);
    page.wide(pGroupBoxGridConfig);
    page.wide(pGroupBoxGainMatTab);
    page.stretch();
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Lsc().enableSet(isEnable); },
        [this](bool isFree) { controlsEnableSet(isFree); }, shortcut::Grey::Always);
}

void LscWidget::gridBuild()
{
    auto* pView =
        number_table::make(*pStandardItemModelSector, 8, 4, {tr("Size-X"), tr("Size-Y"), tr("Grad-X"), tr("Grad-Y")});
    pView->setAccessibleName(pGroupBoxGridConfig->title());
    number_table::whole(*pView);
    (new QVBoxLayout(pGroupBoxGridConfig))->addWidget(pView);
}

void LscWidget::gainsBuild()
{
    auto* pTabWidget = new QTabWidget;
    (new QVBoxLayout(pGroupBoxGainMatTab))->addWidget(pTabWidget);
    const auto add = [&](const QString& title, QStandardItemModel* pModel, uint16_t(Gain::*pTable)[side * side])
    {
        auto* pTab = new QWidget;
        auto* pLayout = new QVBoxLayout(pTab);
        auto* pView = number_table::make(*pModel, side, side);
        pView->setAccessibleName(title);
        // Five digits at most, in many columns.
        pView->horizontalHeader()->setDefaultSectionSize(pView->fontMetrics().horizontalAdvance("000000"));
        number_table::whole(*pView);
        auto* pLabelRange = new QLabel;
        pLayout->addWidget(pView);
        pLayout->addWidget(pLabelRange);
        pTabWidget->addTab(pTab, title);
        tabs.append({pModel, pTable, pLabelRange});
    };
    add(tr("Red"), pStandardItemModelGainRed, &Gain::LscRDataTbl);
    add(tr("Green-Red"), pStandardItemModelGainGreenRed, &Gain::LscGRDataTbl);
    add(tr("Green-Blue"), pStandardItemModelGainGreenBlue, &Gain::LscGBDataTbl);
    add(tr("Blue"), pStandardItemModelGainBlue, &Gain::LscBDataTbl);
}

void LscWidget::controlsEnableSet(bool isEnable)
{
    pGroupBoxGridConfig->setEnabled(isEnable);
    pGroupBoxGainMatTab->setEnabled(isEnable);
}

void LscWidget::updateStatus()
{
    bool isEnable = false;
    auto status = rest::recordZero<Lsc::Status>();
    Lsc().enabelGet(isEnable).statusGet(status);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    controlsEnableSet(!isEnable);
    const auto& grid = status.config.grid;
    const uint16_t* columns[] = {grid.LscXSizeTbl, grid.LscYSizeTbl, grid.LscXGradTbl, grid.LscYGradTbl};
    number_table::show(*pStandardItemModelSector, [&](int row, int column) { return columns[column][row]; });
    for (const auto& tab : qAsConst(tabs))
    {
        const auto& table = status.config.gain.*tab.pTable;
        const auto [least, most] =
            number_table::heatShow(*tab.pModel, [&](int row, int column) { return table[row * side + column]; });
        tab.pLabelRange->setText(tr("Minimum %1 (white), maximum %2 (orange)").arg(least).arg(most));
    }
}
