#include "tuning-client/source/module/ahdr-widget.h"

#include "tuning-client/source/shortcut/value-pair.h"

#include <QComboBox>

using rest::Ahdr;

AhdrWidget::AhdrWidget(QWidget* pParent)
    : EnableAutoSliderAbstractWidget(pParent, "Auto High Dynamic Range", Sum), config(rest::recordZero<Ahdr::Config>())
{
    using V1 = Ahdr::Config::V1;
    // Hidden in Manual, where the record has no use for them.
    shortcut::Form rows(this, pGridLayoutReserved,
                        [this](QObject* pControl)
                        {
                            if (static_cast<QWidget*>(pControl)->isVisible())
                                configSet();
                        });
    pCheckBoxSetPointAuto = rows.textCheckBox(tr("Set Point Auto"));
    pCheckBoxSetPoint2Auto = rows.textCheckBox(tr("Set Point 2 Auto"));
    binding.add(pCheckBoxSetPointAuto, &V1::isAutoSetPoint)
        .add(pCheckBoxSetPoint2Auto, &V1::isAutoSetPoint2)
        .add(slider(C, tr("C"), 0, 255, 1), &V1::c)
        .add(slider(C2, tr("C2"), 0, 255, 1), &V1::c2)
        .add(slider(Ceil, tr("Ceil"), 0, 1, 1), &V1::ceil)
        .add(slider(SetPoint2, tr("Set Point 2"), 0, 255, 1), &V1::setPoint2)
        .add(slider(Tolerance, tr("Tolerance"), 0, 255), &V1::tolerance)
        .add(slider(ObjectFactor, tr("Object Factor"), 0, 1, 1), &V1::objectFector)
        .add(slider(RatioMax, tr("Ratio Max"), 1, 256, 1), &V1::ratio, &V1::Ratio::max)
        .add(slider(RatioMin, tr("Ratio Min"), 1, 256, 1), &V1::ratio, &V1::Ratio::min);
    form(pGridLayoutScrollArea).stretch();
}

/// Of the two ratios the one that differs from the record was moved, and gives way.
void AhdrWidget::ratioKeep()
{
    auto* pMax = sliderSpinWidgets[RatioMax];
    auto* pMin = sliderSpinWidgets[RatioMin];
    if (pMin->value() != config.v1.ratio.min)
        shortcut::giveWay(pMin, pMin, pMax);
    else if (pMax->value() != config.v1.ratio.max)
        shortcut::giveWay(pMax, pMin, pMax);
}

void AhdrWidget::configSet()
{
    // The mode that a read brings sends the record, as the board has it.
    if (!isEchoing)
    {
        ratioKeep();
        config.v1.isAuto = isAuto();
        binding.store(config.v1);
    }
    Ahdr().configSet(config, Ahdr::V1);
}

void AhdrWidget::editTable() { tableEdit<Ahdr>(Ahdr::V1); }

void AhdrWidget::enableSet(bool isEnable) { Ahdr().enableSet(isEnable, Ahdr::V1); }

void AhdrWidget::reset() { Ahdr().reset(Ahdr::V1); }

void AhdrWidget::updateStatus()
{
    bool isEnable = false;
    Ahdr().enableGet(isEnable, Ahdr::V1).configGet(config, Ahdr::V1);
    enableBoxShow(isEnable);
    binding.show(config.v1);
    echo([this] { pComboBoxWorkMode->setCurrentText(config.v1.isAuto ? tr("Auto") : tr("Manual")); });
}

void AhdrWidget::workModeChanged(bool isAuto)
{
    pCheckBoxSetPointAuto->setVisible(isAuto);
    pCheckBoxSetPoint2Auto->setVisible(isAuto);
    EnableAutoSliderAbstractWidget::workModeChanged(isAuto);
}
