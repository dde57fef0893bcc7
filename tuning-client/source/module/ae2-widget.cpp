#include "tuning-client/source/module/ae2-widget.h"

#include "tuning-client/source/control/histogram-plot.h"

#include <algorithm>
#include <array>
#include <iterator>

using rest::Ae;

Ae2Widget::Ae2Widget(QWidget* pParent) : AeWidget(pParent, Ae::V2, tr("AE2 ON"), tr("AE2 OFF"))
{
    setObjectName("Auto Exposure 2");
}

void Ae2Widget::enableSet(bool isEnable)
{
    AeWidget::enableSet(isEnable);
    if (isEnable)
        readStatus();
}

void Ae2Widget::updateStatusPlot()
{
    Ae::Status status;
    Ae().statusGet(status, Ae::V2);
    const auto& v2 = status.histogram.v2;
    if (std::any_of(std::begin(v2._16), std::end(v2._16), [](uint32_t count) { return count != 0; }))
    {
        std::array<uint32_t, 256> a;
        for (size_t i = 0; i < a.size(); ++i)
            a[i] = v2._16[i / 16];
        pHistPlot->populate(uint32_t(a.size()), a.data());
    }
    else
    {
        pHistPlot->populate(256, v2._256);
    }
    sampleShow(status);
}
