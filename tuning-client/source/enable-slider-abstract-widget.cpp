#include "tuning-client/source/enable-slider-abstract-widget.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

EnableSliderAbstractWidget::EnableSliderAbstractWidget(QWidget* pParent, const QString& name, int count)
    : AbstractWidget(pParent, name),
      pCheckBoxEnable(new QCheckBox(tr("Enable %1").arg(objectName()))),
      pPushButtonRest(new QPushButton(tr("Reset"))),
      pGridLayoutReserved(new QGridLayout),
      pGridLayoutSliderSpinWidgetCollection(new QGridLayout)
{
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0);
    connectWrite(pCheckBoxEnable, &QCheckBox::toggled,
                 [this](bool isEnable)
                 {
                     enableSet(isEnable);
                     // A page may have read, and the board decided otherwise.
                     ledShow(pCheckBoxEnable->isChecked());
                 });

    pGridLayoutScrollArea->addWidget(pPushButtonRest, 0, 1, Qt::AlignLeft);
    connectLong(pPushButtonRest, &QPushButton::clicked, [this] { reset(); });

    pGridLayoutScrollArea->addLayout(pGridLayoutReserved, 1, 0, 1, shortcut::Form::columns);
    pGridLayoutScrollArea->addLayout(pGridLayoutSliderSpinWidgetCollection, 2, 0, 1, shortcut::Form::columns);
    auto sliders = form(pGridLayoutSliderSpinWidgetCollection);
    for (int i = 0; i < count; ++i)
        sliderSpinWidgets.append(
            sliders.slider(tr("SliderSpinWidget %1").arg(i), 0, 99.99, shortcut::Form::ownDecimals));
}

QVector<QWidget*> EnableSliderAbstractWidget::childrenWidgets() const { return shortcut::siblings(pCheckBoxEnable); }

void EnableSliderAbstractWidget::childrenWidgetsEnableSet(bool isEnable)
{
    shortcut::enabledSet(childrenWidgets(), isEnable);
}

void EnableSliderAbstractWidget::configSet() {}

void EnableSliderAbstractWidget::changed(QObject*) { configSet(); }

void EnableSliderAbstractWidget::enableSet(bool isEnable) { childrenWidgetsEnableSet(!isEnable); }

void EnableSliderAbstractWidget::reset() {}

SliderSpinWidget* EnableSliderAbstractWidget::slider(int index, const QString& text, double min, double max,
                                                     int decimals)
{
    auto* pSlider = sliderSpinWidgets.at(index);
    pSlider->setText(text);
    if (decimals != shortcut::Form::ownDecimals)
        pSlider->setDecimals(decimals);
    pSlider->setRange(min, max);
    return pSlider;
}

shortcut::Form EnableSliderAbstractWidget::form(QGridLayout* pGrid)
{
    return {this, pGrid, [this](QObject* pControl) { changed(pControl); }};
}

void EnableSliderAbstractWidget::enableBoxShow(bool isEnable)
{
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
}

void EnableSliderAbstractWidget::enableShow(bool isEnable)
{
    enableBoxShow(isEnable);
    childrenWidgetsEnableSet(!isEnable);
    ledShow(isEnable);
}
