#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-rest/source/lsc.h"

class QGroupBox;
class QStandardItemModel;

/// "Lens Shading Correction": the switch, and the gains that the board corrects with.
class LscWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit LscWidget(QWidget* pParent);

    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QGroupBox* pGroupBoxGridConfig;
    QGroupBox* pGroupBoxGainMatTab;
    QStandardItemModel* pStandardItemModelSector;
    QStandardItemModel* pStandardItemModelGainRed;
    QStandardItemModel* pStandardItemModelGainGreenRed;
    QStandardItemModel* pStandardItemModelGainGreenBlue;
    QStandardItemModel* pStandardItemModelGainBlue;

private:
    using Grid = rest::CamEngineLscConfig_t::Grid;
    using Gain = rest::CamEngineLscConfig_t::Gain;

    /// A gain table on a tab of its own.
    struct Tab
    {
        QStandardItemModel* pModel;
        uint16_t (Gain::*pTable)[289];
        QLabel* pLabelRange;
    };

    void gridBuild();
    void gainsBuild();
    void controlsEnableSet(bool isEnable);

    QVector<Tab> tabs;
};
