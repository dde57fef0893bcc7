#include "tuning-client/source/module/central-widget.h"

#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/module/3a-widget.h"
#include "tuning-client/source/module/ae-widget.h"
#include "tuning-client/source/module/ae2-widget.h"
#include "tuning-client/source/module/bls-widget.h"
#include "tuning-client/source/module/cac-widget.h"
#include "tuning-client/source/module/calibration-data-widget.h"
#include "tuning-client/source/module/cproc-widget.h"
#include "tuning-client/source/module/dehaze-widget.h"
#include "tuning-client/source/module/demosaic-widget.h"
#include "tuning-client/source/module/demosaic2-widget.h"
#include "tuning-client/source/module/dg-widget.h"
#include "tuning-client/source/module/ec-widget.h"
#include "tuning-client/source/module/ge-widget.h"
#include "tuning-client/source/module/hdr2-widget.h"
#include "tuning-client/source/module/img-effects-widget.h"
#include "tuning-client/source/module/input-widget.h"
#include "tuning-client/source/module/isp-register-widget.h"
#include "tuning-client/source/module/lsc-widget.h"
#include "tuning-client/source/module/lut3d-widget.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/module/rgbir-widget.h"
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
        {"Black Level Subtraction", make<BlsWidget>},
        {"Calibration Data", make<CalibrationDataWidget>},
        {"Chromatic Aberration Correction", make<CacWidget>},
        {"Color Processing", make<CProcWidget>},
        {"Dehaze", makeNamed<DehazeWidget>},
        {"Demosaicing", make<DeMosaicWidget>},
        {"Demosaicing 2", make<DeMosaic2Widget>},
        {"Digital Gain", make<DgWidget>},
        {"Exposure Control", make<EcWidget>},
        {"Green Equilibrate", make<GeWidget>},
        {"High Dynamic Range 2", make<Hdr2Widget>},
        {"Image Effects", make<ImgEffectsWidget>},
        {"Input Control", make<InputWidget>},
        {"ISP Register", make<IspRegisterWidget>},
        {"Lens Shading Correction", make<LscWidget>},
        {"LUT 3D", make<Lut3dWidget>},
        {"Register", make<RegisterWidget>},
        {"Rgbir", make<RgbirWidget>},
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
