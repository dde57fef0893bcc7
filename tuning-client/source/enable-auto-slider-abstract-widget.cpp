#include "tuning-client/source/enable-auto-slider-abstract-widget.h"

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
    auto rows = form(pGridLayoutReserved);
    pComboBoxWorkMode->addItems({tr("Manual"), tr("Auto")});
    rows.labelled(tr("Working Mode"), pComboBoxWorkMode);
    pGridLayoutReserved->addWidget(pPushButtonEditTable, pGridLayoutReserved->rowCount(), 1, 1,
                                   shortcut::Form::columns - 1, Qt::AlignLeft);
    connectWrite(pComboBoxWorkMode, QOverload<int>::of(&QComboBox::currentIndexChanged),
                 [this]
                 {
                     workModeChanged(isAuto());
                     configSet();
                 });
    connectGuarded(pPushButtonEditTable, &QPushButton::clicked, [this] { editTable(); });

    pTimer->setInterval(1000);
    connectTick(pTimer, [this] { emit refresh(); });
    // Also after a failed command: a box that is off stops the timer at once.
    connect(pCheckBoxEnable, &QCheckBox::toggled, this, [this] { stateFollow(isAuto()); });

    // Auto until the first read says otherwise. No command is sent for it.
    shortcut::NoSignals::setCurrentText(pComboBoxWorkMode, tr("Auto"));
    EnableAutoSliderAbstractWidget::workModeChanged(true);
}

void EnableAutoSliderAbstractWidget::editTable() {}

void EnableAutoSliderAbstractWidget::workModeChanged(bool isAuto)
{
    for (auto* pSlider : qAsConst(sliderSpinWidgets))
        pSlider->setEnabled(!isAuto);
    stateFollow(isAuto);
}

void EnableAutoSliderAbstractWidget::childrenWidgetsEnableSet(bool isEnable)
{
    EnableSliderAbstractWidget::childrenWidgetsEnableSet(isEnable);
    stateFollow(isAuto());
}

void EnableAutoSliderAbstractWidget::enableSet(bool isEnable) { timerSet(isEnable && isAuto()); }

void EnableAutoSliderAbstractWidget::updateStatus() { timerSet(pCheckBoxEnable->isChecked() && isAuto()); }

void EnableAutoSliderAbstractWidget::afterShow() { stateFollow(isAuto()); }

bool EnableAutoSliderAbstractWidget::isAuto() const { return pComboBoxWorkMode->currentText() == tr("Auto"); }

void EnableAutoSliderAbstractWidget::tableHide()
{
    hasTable = false;
    shortcut::withdraw({pPushButtonEditTable});
}

void EnableAutoSliderAbstractWidget::workModeShow(bool isAuto)
{
    shortcut::NoSignals::setCurrentText(pComboBoxWorkMode, isAuto ? tr("Auto") : tr("Manual"));
    workModeChanged(isAuto);
}

void EnableAutoSliderAbstractWidget::stateShow(bool isEnable, bool isAuto)
{
    enableBoxShow(isEnable);
    // The mode decides over the sliders at the end. To grey and free them would take the focus from the user's hand.
    auto widgets = childrenWidgets();
    for (auto* pSlider : qAsConst(sliderSpinWidgets))
        widgets.removeAll(pSlider);
    shortcut::enabledSet(widgets, !isEnable);
    ledShow(isEnable);
    workModeShow(isAuto);
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

/// The state table. In Manual the order of a page's own steps decides over the sliders.
void EnableAutoSliderAbstractWidget::stateFollow(bool isAuto)
{
    pPushButtonEditTable->setVisible(isAuto && hasTable);
    if (isAuto)
        for (auto* pSlider : qAsConst(sliderSpinWidgets))
            pSlider->setEnabled(false);
    timerSet(pCheckBoxEnable->isChecked() && isAuto && isVisible());
}

void EnableAutoSliderAbstractWidget::timerSet(bool isRunning)
{
    if (!isRunning)
        pTimer->stop();
    else if (!pTimer->isActive())
        pTimer->start();
}
