#pragma once

#include "tuning-client/source/control/gamma-abstract-widget.h"
#include "tuning-rest/source/gc.h"

/// The editor of a gamma curve of 64 points. The scale of its x axis is the board's.
class Gamma2ChannelWidget : public GammaAbstractWidget
{
    Q_OBJECT

public:
    /// Edits `curve` in place; `init()` makes it ready.
    Gamma2ChannelWidget(rest::Gc::Config::Curve2& curve, QWidget* parent);

    void init();

    /// Shows the record.
    void updateStatus();

    void configSet() override;

    rest::Gc::Config::Curve2& curve;

private:
    void pointsFollow();
};
