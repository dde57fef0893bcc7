#pragma once

#include "tuning-client/source/abstract-widget.h"

class CaChannelWidegt;
class DciWidget;
class EnableAutoSliderAbstractWidget;
class QButtonGroup;
class QGroupBox;
class QRadioButton;

/// "Color Adjustment": colour adjustment and contrast improvement under one switch.
class CaWidget : public AbstractWidget
{
    Q_OBJECT

public:
    CaWidget(QWidget* pParent, const QString& name);

    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QGroupBox* pGroupBox;
    QRadioButton* pRadioButtonCa;
    QRadioButton* pRadioButtonDci;
    CaChannelWidegt* pCaChannelWidget;
    DciWidget* pDciChannelWidget;

private:
    void choiceBuild();
    void channelShow(bool isCa);
    void channelsEnable(bool isFree);
    void switchFollow(bool isEnable);

    const QVector<EnableAutoSliderAbstractWidget*> channels;
    QButtonGroup* pButtonGroup;
};
