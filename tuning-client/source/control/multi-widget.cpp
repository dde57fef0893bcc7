#include "tuning-client/source/control/multi-widget.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>

MultiWidget::MultiWidget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, name, false, Role::Container),
      pComboBox(new QComboBox),
      pStackedWidget(new QStackedWidget)
{
    auto* pLabel = new QLabel(tr("Module"));
    pLabel->setBuddy(pComboBox);
    pComboBox->setAccessibleName(pLabel->text());
    pGridLayoutScrollArea->addWidget(pLabel, 0, 0);
    pGridLayoutScrollArea->addWidget(pComboBox, 0, 1);
    pGridLayoutScrollArea->addWidget(pStackedWidget, 1, 0, 1, 2);
    pGridLayoutScrollArea->setColumnStretch(1, 1);

    connect(pComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int index)
            {
                auto* pWidget = pComboBox->itemData(index).value<QWidget*>();
                if (pWidget && pStackedWidget->indexOf(pWidget) >= 0)
                    pStackedWidget->setCurrentWidget(pWidget);
            });
}

void MultiWidget::addWidget(QWidget* pWidget, const QString& name)
{
    // The frame of this page is enough, and so is its margin.
    if (auto* pScrollArea = pWidget->findChild<QScrollArea*>())
        pScrollArea->setFrameShape(QFrame::NoFrame);
    if (pWidget->layout())
        pWidget->layout()->setContentsMargins(0, 0, 0, 0);
    pStackedWidget->addWidget(pWidget);
    pComboBox->addItem(name, QVariant::fromValue(pWidget));
}
