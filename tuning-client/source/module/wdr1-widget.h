#pragma once

#include "tuning-client/source/abstract-widget.h"

class QButtonGroup;
class QGroupBox;
class WdrCurve;
class WdrPlot;

/// "Global Wide Dynamic Range": one of eleven tone mapping curves.
class Wdr1Widget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit Wdr1Widget(QWidget* pParent);
    ~Wdr1Widget() override;

    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QGroupBox* pGroupBoxCurves;
    WdrPlot* pWdrPlot;
    QVector<WdrCurve*> wdrCurves; ///< by the ids of the group's buttons; belong to the page

private:
    QButtonGroup* pCurveButtons;

    void curvesBuild();
    void curveChoose(int index);
};
