#include "tuning-client/source/module/filter-widget.h"

#include <QCheckBox>

using rest::Filter;

FilterWidget::FilterWidget(QWidget* pParent) : EnableAutoSliderAbstractWidget(pParent, "Demosaicing", Sum)
{
    using Config = Filter::Config;
    ledWordsSet(tr("Filter ON"), tr("Filter OFF"));
    pCheckBoxEnable->setText(tr("Enable Filter"));
    binding.add(slider(FilterDenoising, tr("Filter Denoising"), 0, 10), &Config::denoise)
        .add(slider(FilterSharpening, tr("Filter Sharpening"), 0, 10), &Config::sharpen)
        .add(slider(FilterVMode, tr("Filter V Mode"), 0, 3), &Config::chrV)
        .add(slider(FilterHMode, tr("Filter H Mode"), 0, 3), &Config::chrH);
    form(pGridLayoutScrollArea).stretch();
}

void FilterWidget::configSet()
{
    Filter::Config config;
    config.isAuto = isAuto();
    binding.store(config);
    Filter().configSet(config);
}

void FilterWidget::editTable() { tableEdit<Filter>(); }

void FilterWidget::enableSet(bool isEnable) { enableSend<Filter>(isEnable); }

void FilterWidget::reset()
{
    resetSend<Filter>();
    emit refresh();
}

void FilterWidget::updateStatus()
{
    bool isEnable = false;
    Filter::Config config;
    Filter().enableGet(isEnable).configGet(config);
    stateShow(isEnable, config.isAuto);
    binding.show(config);
}
