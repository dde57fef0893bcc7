#include "tuning-client/source/abstract-dialog.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QVBoxLayout>

AbstractDialog::AbstractDialog(QWidget* pParent, Qt::WindowFlags flags, bool isSetupUi) : QDialog(pParent, flags)
{
    if (isSetupUi)
        return;
    auto pLayout = new QVBoxLayout(this);
    auto pScrollArea = new QScrollArea(this);
    pLayout->addWidget(pScrollArea);
    pScrollArea->setWidgetResizable(true);
    pScrollArea->setFrameShape(QFrame::NoFrame);
    auto pWidget = new QWidget;
    pScrollArea->setWidget(pWidget);
    pGridLayoutScrollArea = new QGridLayout(pWidget);
}
