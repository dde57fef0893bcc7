#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"

EnableAutoLevelSliderAbstractWidget::EnableAutoLevelSliderAbstractWidget(QWidget* pParent, const QString& name,
                                                                         int count)
    : EnableAutoSliderAbstractWidget(pParent, name, count),
      pSliderSpinWidgetLevel(form(pGridLayoutReserved).slider(tr("Level"), 0, 100))
{
    EnableAutoLevelSliderAbstractWidget::workModeChanged(isAuto());
}

QVector<QWidget*> EnableAutoLevelSliderAbstractWidget::childrenWidgets() const
{
    auto widgets = EnableAutoSliderAbstractWidget::childrenWidgets();
    widgets.removeAll(pSliderSpinWidgetLevel);
    return widgets;
}

void EnableAutoLevelSliderAbstractWidget::workModeChanged(bool isAuto)
{
    EnableAutoSliderAbstractWidget::workModeChanged(isAuto);
    pSliderSpinWidgetLevel->setVisible(isAuto);
}
