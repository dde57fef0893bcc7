#pragma once

#include "tuning-client/source/control/gamma-abstract-widget.h"
#include "tuning-rest/source/gc.h"

/// The editor of a gamma curve of 17 points.
class GammaChannelWidget : public GammaAbstractWidget
{
    Q_OBJECT

public:
    /// Edits `curve` in place; `init()` makes it ready.
    GammaChannelWidget(rest::Gc::Config::Curve& curve, QWidget* parent);

    void init();

    /// Shows the record.
    void updateStatus();

    void configSet() override;

    rest::Gc::Config::Curve& curve;

private:
    void xFollow();
};
