#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/ee.h"

/// "Edge Enhance": gains of edges, brightness and colour.
class EeWidget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit EeWidget(QWidget* pParent);

    void configSet() override;
    void editTable() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    enum
    {
        EdgeGain,
        Strength,
        UvGain,
        YGainDown,
        YGainUp,
        Sum
    };

private:
    rest::Ee::Config config; ///< as read: three of its fields have no control
    shortcut::RecordBinding<rest::CamEngineEeConfig_t> binding;
};
