#include "tuning-client/source/enable-slider-abstract-widget.h"

#include "tuning-client/source/shortcut/no-signals.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

EnableSliderAbstractWidget::EnableSliderAbstractWidget(QWidget* pParent, const QString& name, int count)
    : AbstractWidget(pParent, name),
      pCheckBoxEnable(new QCheckBox(tr("Enable %1").arg(objectName()))),
      pPushButtonRest(new QPushButton(tr("Reset"))),
      pGridLayoutReserved(new QGridLayout),
      pGridLayoutSliderSpinWidgetCollection(new QGridLayout)
{
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0);
    connectGuarded(pCheckBoxEnable, &QCheckBox::toggled, [this](bool isEnable) { enableSet(isEnable); });

    pGridLayoutScrollArea->addWidget(pPushButtonRest, 0, 1);
    connectGuarded(pPushButtonRest, &QPushButton::clicked, [this] { reset(); });

    pGridLayoutScrollArea->addLayout(pGridLayoutReserved, 1, 0, 1, 2);
    pGridLayoutScrollArea->addLayout(pGridLayoutSliderSpinWidgetCollection, 2, 0, 1, 2);
    for (int i = 0; i < count; ++i)
    {
        auto* pSlider = new SliderSpinWidget(tr("SliderSpinWidget %1").arg(i), nullptr);
        pGridLayoutSliderSpinWidgetCollection->addWidget(pSlider, i, 0);
        connectGuarded(pSlider, &SliderSpinWidget::valueChanged, [this] { configSet(); });
        sliderSpinWidgets.append(pSlider);
    }
}

QVector<QWidget*> EnableSliderAbstractWidget::childrenWidgets() const
{
    QVector<QWidget*> widgets;
    for (auto* pChild : pGridLayoutScrollArea->parentWidget()->children())
    {
        auto* pWidget = qobject_cast<QWidget*>(pChild);
        if (pWidget && pWidget != pCheckBoxEnable)
            widgets.append(pWidget);
    }
    return widgets;
}

void EnableSliderAbstractWidget::childrenWidgetsEnableSet(bool isEnable)
{
    for (auto* pWidget : childrenWidgets())
        pWidget->setEnabled(isEnable);
}

void EnableSliderAbstractWidget::configSet() {}

void EnableSliderAbstractWidget::enableSet(bool isEnable) { childrenWidgetsEnableSet(!isEnable); }

void EnableSliderAbstractWidget::reset() {}

SliderSpinWidget* EnableSliderAbstractWidget::slider(int index, const QString& text, double min, double max,
                                                     int decimals)
{
    auto* pSlider = sliderSpinWidgets.at(index);
    pSlider->setText(text);
    pSlider->setDecimals(decimals);
    pSlider->setRange(min, max);
    return pSlider;
}

void EnableSliderAbstractWidget::controlAdd(QGridLayout* pGridLayout, const QString& text, QWidget* pControl)
{
    // A grid without items already counts one row.
    const int row = pGridLayout->count() == 0 ? 0 : pGridLayout->rowCount();
    auto* pLabel = new QLabel(text);
    pLabel->setBuddy(pControl);
    pControl->setAccessibleName(text);
    pGridLayout->addWidget(pLabel, row, 0);
    pGridLayout->addWidget(pControl, row, 1);
}

void EnableSliderAbstractWidget::enableShow(bool isEnable, const QString& textOn, const QString& textOff)
{
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    childrenWidgetsEnableSet(!isEnable);
    statusBarLabelLed(isEnable, isEnable ? textOn : textOff);
}
