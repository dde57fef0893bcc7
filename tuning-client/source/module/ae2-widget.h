#pragma once

#include "tuning-client/source/module/ae-widget.h"

/// "Auto Exposure 2": the same page for the second generation of the module.
class Ae2Widget : public AeWidget
{
    Q_OBJECT

public:
    explicit Ae2Widget(QWidget* pParent);

    void enableSet(bool isEnable) override;
    void updateStatusPlot() override;
};
