#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"

#include "tuning-client/source/control/slider-spin-widget.h"

#include <QGridLayout>

EnableAutoLevelSliderAbstractWidget::EnableAutoLevelSliderAbstractWidget(QWidget* pParent, const QString& name,
                                                                         int count)
    : EnableAutoSliderAbstractWidget(pParent, name, count),
      pSliderSpinWidgetLevel(new SliderSpinWidget(tr("Level"), nullptr))
{
    pSliderSpinWidgetLevel->setDecimals(0);
    pSliderSpinWidgetLevel->setRange(0, 100);
    pGridLayoutReserved->addWidget(pSliderSpinWidgetLevel, pGridLayoutReserved->rowCount(), 0, 1, 2);
    connectGuarded(pSliderSpinWidgetLevel, &SliderSpinWidget::valueChanged, [this] { configSet(); });
    EnableAutoLevelSliderAbstractWidget::workModeChanged(isAuto());
}

void EnableAutoLevelSliderAbstractWidget::childrenWidgetsEnableSet(bool isEnable)
{
    for (auto* pWidget : childrenWidgets())
        if (pWidget != pSliderSpinWidgetLevel)
            pWidget->setEnabled(isEnable);
}

void EnableAutoLevelSliderAbstractWidget::workModeChanged(bool isAuto)
{
    EnableAutoSliderAbstractWidget::workModeChanged(isAuto);
    pSliderSpinWidgetLevel->setVisible(isAuto);
}
