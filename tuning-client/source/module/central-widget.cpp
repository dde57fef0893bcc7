#include "tuning-client/source/module/central-widget.h"

#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/module/3a-widget.h"
#include "tuning-client/source/module/ae-widget.h"
#include "tuning-client/source/module/ae2-widget.h"
#include "tuning-client/source/module/af-widget.h"
#include "tuning-client/source/module/ahdr-widget.h"
#include "tuning-client/source/module/avs-widget.h"
#include "tuning-client/source/module/awb-widget.h"
#include "tuning-client/source/module/bls-widget.h"
#include "tuning-client/source/module/ca-widget.h"
#include "tuning-client/source/module/cac-widget.h"
#include "tuning-client/source/module/calibration-data-widget.h"
#include "tuning-client/source/module/cnr-widget.h"
#include "tuning-client/source/module/cnr2-widget.h"
#include "tuning-client/source/module/cproc-widget.h"
#include "tuning-client/source/module/dci-widget.h"
#include "tuning-client/source/module/dehaze-widget.h"
#include "tuning-client/source/module/demosaic-widget.h"
#include "tuning-client/source/module/demosaic2-widget.h"
#include "tuning-client/source/module/dewarp-widget.h"
#include "tuning-client/source/module/dg-widget.h"
#include "tuning-client/source/module/dnr2-v5-widget.h"
#include "tuning-client/source/module/dnr2-widget.h"
#include "tuning-client/source/module/dnr3-v3-widget.h"
#include "tuning-client/source/module/dnr3-v32-widget.h"
#include "tuning-client/source/module/dnr3-widget.h"
#include "tuning-client/source/module/dpcc-widget.h"
#include "tuning-client/source/module/dpf-widget.h"
#include "tuning-client/source/module/ec-widget.h"
#include "tuning-client/source/module/ee-widget.h"
#include "tuning-client/source/module/filter-widget.h"
#include "tuning-client/source/module/gc-widget.h"
#include "tuning-client/source/module/gc2-widget.h"
#include "tuning-client/source/module/ge-widget.h"
#include "tuning-client/source/module/hdr-widget.h"
#include "tuning-client/source/module/hdr1_2-widget.h"
#include "tuning-client/source/module/hdr2-widget.h"
#include "tuning-client/source/module/hdr2_lite-widget.h"
#include "tuning-client/source/module/img-effects-widget.h"
#include "tuning-client/source/module/input-widget.h"
#include "tuning-client/source/module/isp-register-widget.h"
#include "tuning-client/source/module/lsc-widget.h"
#include "tuning-client/source/module/lut3d-widget.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/module/rgbir-widget.h"
#include "tuning-client/source/module/roi-widget.h"
#include "tuning-client/source/module/simp-widget.h"
#include "tuning-client/source/module/wb-widget.h"
#include "tuning-client/source/module/wdr1-widget.h"
#include "tuning-client/source/module/wdr2-widget.h"
#include "tuning-client/source/module/wdr3-widget.h"
#include "tuning-client/source/module/wdr4-widget.h"
#include "tuning-client/source/module/wdr5-widget.h"
#include "tuning-common/source/page-names.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QStackedWidget>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace
{
using Entry = CentralWidget::Entry;

template <class Page>
constexpr auto make = &CentralWidget::make<Page>;
template <class Page>
constexpr auto makeNamed = &CentralWidget::makeNamed<Page>;

// A page a line.
// clang-format off
constexpr Entry rows[]{
    {"2D Noise Reduction", makeNamed<Dnr2Widget>},
    {"2D Noise Reduction 5", makeNamed<Dnr2V5Widget>},
    {"3A Config", make<_3AWidget>},
    {"3D Noise Reduction", makeNamed<Dnr3Widget>},
    {"3D Noise Reduction 3", makeNamed<Dnr3V3Widget>},
    {"3D Noise Reduction 3.2", makeNamed<Dnr3V32Widget>},
    {"Auto Exposure", make<AeWidget>},
    {"Auto Exposure 2", make<Ae2Widget>},
    {"Auto Focus", make<AfWidget>},
    {"Auto High Dynamic Range", make<AhdrWidget>},
    {"Auto Video Stabilization", make<AvsWidget>},
    {"Auto White Balance", make<AwbWidget>},
    {"Black Level Subtraction", make<BlsWidget>},
    {"Calibration Data", make<CalibrationDataWidget>},
    {"Chromatic Aberration Correction", make<CacWidget>},
    {"Color Adjustment", makeNamed<CaWidget>},
    {"Color Noise Reduction", make<CnrWidget>},
    {"Color Noise Reduction 2", make<Cnr2Widget>},
    {"Color Processing", make<CProcWidget>},
    {"Defect Pixel Cluster Correction", make<DpccWidget>},
    {"Dehaze", makeNamed<DehazeWidget>},
    {"Demosaicing", make<DeMosaicWidget>},
    {"Demosaicing 2", make<DeMosaic2Widget>},
    {"Denoising Prefilter", make<DpfWidget>},
    {"Dewarp", make<DewarpWidget>},
    {"Digital Gain", make<DgWidget>},
    {"Dynamic Contrast Improvement", make<DciWidget>},
    {"Edge Enhance", make<EeWidget>},
    {"Exposure Control", make<EcWidget>},
    {"Filter", make<FilterWidget>},
    {"Gamma Correction", make<GcWidget>},
    {"Gamma Correction 2", make<Gc2Widget>},
    {"Global Wide Dynamic Range", make<Wdr1Widget>},
    {"Green Equilibrate", make<GeWidget>},
    {"High Dynamic Range", make<HdrWidget>},
    {"High Dynamic Range 1.2", makeNamed<Hdr1_2Widget>},
    {"High Dynamic Range 2", make<Hdr2Widget>},
    {"High Dynamic Range 2 Lite", makeNamed<Hdr2_LiteWidget>},
    {"Image Effects", make<ImgEffectsWidget>},
    {"Input Control", make<InputWidget>},
    {"ISP Register", make<IspRegisterWidget>},
    {"Lens Shading Correction", make<LscWidget>},
    {"LUT 3D", make<Lut3dWidget>},
    {"Region Of Interested", make<RoiWidget>},
    {"Register", make<RegisterWidget>},
    {"Rgbir", make<RgbirWidget>},
    {"Super Impose", make<SImpWidget>},
    {"White Balance", make<WbWidget>},
    {"Wide Dynamic Range 2", make<Wdr2Widget>},
    {"Wide Dynamic Range 3", make<Wdr3Widget>},
    {"Wide Dynamic Range 4", make<Wdr4Widget>},
    {"Wide Dynamic Range 5", make<Wdr5Widget>},
};
// clang-format on

/// The list of names is for programs without pages.
constexpr bool isListed()
{
    if (std::size(rows) != std::size(t_common::pageNames))
        return false;
    for (std::size_t i = 0; i < std::size(rows); ++i)
        if (std::string_view(rows[i].name) != t_common::pageNames[i])
            return false;
    return true;
}
static_assert(isListed(), "the catalogue and tuning-common/source/page-names.h have the same names in the same order");
} // namespace

const QVector<CentralWidget::Entry>& CentralWidget::catalogue()
{
    static const QVector<Entry> entries(std::begin(rows), std::end(rows));
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
        if (entry == catalogue().end())
            continue;
        auto* pPage = entry->fMake(page.name);
        pPage->setAccessibleName(page.name);
        pStackedWidget->addWidget(pPage);
    }
}

void CentralWidget::setCurrentIndex(int index) { pStackedWidget->setCurrentIndex(index); }
