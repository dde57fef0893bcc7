#include "tuning-client/source/module/central-widget.h"

#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/module/3a-widget.h"
#include "tuning-client/source/module/ae-widget.h"
#include "tuning-client/source/module/ae2-widget.h"
#include "tuning-client/source/module/ca-widget.h"
#include "tuning-client/source/module/calibration-data-widget.h"
#include "tuning-client/source/module/dci-widget.h"
#include "tuning-client/source/module/ec-widget.h"
#include "tuning-client/source/module/gc-widget.h"
#include "tuning-client/source/module/gc2-widget.h"
#include "tuning-client/source/module/hdr2-widget.h"
#include "tuning-client/source/module/input-widget.h"
#include "tuning-client/source/module/isp-register-widget.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/module/wdr4-widget.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QStackedWidget>

#include <algorithm>

const QVector<CentralWidget::Entry>& CentralWidget::catalogue()
{
    // A page a line.
    // clang-format off
    static const QVector<Entry> entries{
        {"3A Config", make<_3AWidget>},
        {"Auto Exposure", make<AeWidget>},
        {"Auto Exposure 2", make<Ae2Widget>},
        {"Calibration Data", make<CalibrationDataWidget>},
        {"Color Adjustment", makeNamed<CaWidget>},
        {"Dynamic Contrast Improvement", make<DciWidget>},
        {"Exposure Control", make<EcWidget>},
        {"Gamma Correction", make<GcWidget>},
        {"Gamma Correction 2", make<Gc2Widget>},
        {"High Dynamic Range 2", make<Hdr2Widget>},
        {"Input Control", make<InputWidget>},
        {"ISP Register", make<IspRegisterWidget>},
        {"Register", make<RegisterWidget>},
        {"Wide Dynamic Range 4", make<Wdr4Widget>},
    };
    // clang-format on
    return entries;
}

CentralWidget::CentralWidget(QWidget* parent)
    : AbstractWidget(parent, QString(), false, Role::Container), pStackedWidget(new QStackedWidget)
{
    pGridLayoutScrollArea->addWidget(pStackedWidget, 0, 0);
    pGridLayoutScrollArea->setContentsMargins(0, 0, 0, 0);
    layout()->setContentsMargins(0, 0, 0, 0);
    // The pages scroll for themselves.
    findChild<QScrollArea*>()->setFrameShape(QFrame::NoFrame);

    for (const auto& page : qAsConst(chips.chip.pages))
    {
        const auto entry =
            std::find_if(catalogue().begin(), catalogue().end(),
                         [&](const Entry& candidate) { return page.name == QLatin1String(candidate.name); });
        if (entry != catalogue().end())
            pStackedWidget->addWidget(entry->fMake(page.name));
    }
}

void CentralWidget::setCurrentIndex(int index) { pStackedWidget->setCurrentIndex(index); }
