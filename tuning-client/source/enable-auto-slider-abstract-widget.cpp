#include "tuning-client/source/enable-auto-slider-abstract-widget.h"

#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-client/source/table-editor-dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>

EnableAutoSliderAbstractWidget::EnableAutoSliderAbstractWidget(QWidget* pParent, const QString& name, int count)
    : EnableSliderAbstractWidget(pParent, name, count),
      pComboBoxWorkMode(new QComboBox),
      pPushButtonEditTable(new QPushButton(tr("Edit Auto Algorithm Table"))),
      pTimer(new QTimer(this))
{
    pComboBoxWorkMode->addItems({tr("Manual"), tr("Auto")});
    controlAdd(pGridLayoutReserved, tr("Working Mode"), pComboBoxWorkMode);
    pGridLayoutReserved->addWidget(pPushButtonEditTable, pGridLayoutReserved->rowCount(), 1);
    connectGuarded(pComboBoxWorkMode, QOverload<int>::of(&QComboBox::currentIndexChanged),
                   [this]
                   {
                       workModeChanged(isAuto());
                       configSet();
                   });
    connectGuarded(pPushButtonEditTable, &QPushButton::clicked, [this] { editTable(); });

    pTimer->setInterval(1000);
    connectTick(pTimer, [this] { emit refresh(); });

    // Auto until the first read says otherwise. The handler is at its base version here: no command is sent.
    pComboBoxWorkMode->setCurrentText(tr("Auto"));
}

void EnableAutoSliderAbstractWidget::editTable() {}

void EnableAutoSliderAbstractWidget::workModeChanged(bool isAuto)
{
    pPushButtonEditTable->setVisible(isAuto);
    for (auto* pSlider : qAsConst(sliderSpinWidgets))
        pSlider->setEnabled(!isAuto);
}

void EnableAutoSliderAbstractWidget::enableSet(bool isEnable) { timerSet(isEnable, isAuto()); }

void EnableAutoSliderAbstractWidget::updateStatus() { timerSet(pCheckBoxEnable->isChecked(), isAuto()); }

void EnableAutoSliderAbstractWidget::showEvent(QShowEvent* pEvent)
{
    AbstractWidget::showEvent(pEvent);
    if (pCheckBoxEnable->isChecked() && isAuto())
        pTimer->start();
}

void EnableAutoSliderAbstractWidget::hideEvent(QHideEvent* pEvent)
{
    pTimer->stop();
    AbstractWidget::hideEvent(pEvent);
}

bool EnableAutoSliderAbstractWidget::isAuto() const { return pComboBoxWorkMode->currentText() == tr("Auto"); }

void EnableAutoSliderAbstractWidget::timerSet(bool isEnable, bool isAuto)
{
    if (!isEnable || !isAuto)
        pTimer->stop();
    else if (!pTimer->isActive())
        pTimer->start();
}

void EnableAutoSliderAbstractWidget::workModeShow(bool isAuto)
{
    shortcut::NoSignals::setCurrentText(pComboBoxWorkMode, isAuto ? tr("Auto") : tr("Manual"));
    workModeChanged(isAuto);
}

void EnableAutoSliderAbstractWidget::tableEdit(const std::function<void(Json::Value&)>& fTableGet,
                                               const std::function<void(const Json::Value&)>& fTableSet)
{
    Json::Value jTable;
    fTableGet(jTable);
    TableEditorDialog dialog(std::move(jTable), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    Json::Value jEdited;
    dialog.tableGet(jEdited);
    fTableSet(jEdited);
}
