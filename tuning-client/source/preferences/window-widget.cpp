#include "tuning-client/source/preferences/window-widget.h"

#include "tuning-client/source/config/config.h"

#include <QCheckBox>
#include <QGridLayout>

WindowWidget::WindowWidget(QWidget* pParent)
    : SettingsAbstractWidget(pParent, "window"), pCheckBoxAutoResize(new QCheckBox(tr("Auto Resize Window")))
{
    pGridLayoutScrollArea->addWidget(pCheckBoxAutoResize, 0, 0);
    pGridLayoutScrollArea->setRowStretch(1, 1);
    pCheckBoxAutoResize->setChecked(config.preferences.window.isAutoResize);
    connect(pCheckBoxAutoResize, &QCheckBox::toggled, this,
            [](bool isChecked) { config.preferences.window.isAutoResize = isChecked; });
}
