#include "tuning-client/source/module/cnr2-widget.h"

#include <QGridLayout>
#include <QStatusBar>

using rest::Cnr2;

Cnr2Widget::Cnr2Widget(QWidget* pParent)
    : AbstractWidget(pParent, "Color Noise Reduction"),
      pCheckBoxYnrEnable(new QCheckBox(tr("Enable YNR"))),
      pCheckBoxCnrEnable(new QCheckBox(tr("Enable CNR")))
{
    shortcut::Form page(this, pGridLayoutScrollArea, [this](QObject*) { configSet(); });
    auto values = page.group(QString());
    pGroupBoxCnr2 = values.groupBox();
    auto* pGrid = values.grid();
    pGrid->setColumnStretch(shortcut::Form::columns - 1, 0);
    pGrid->setColumnStretch(1, 1);
    pGrid->addWidget(pCheckBoxYnrEnable, 0, 0);
    // Its text is longer than a box is wide.
    pGrid->addWidget(pCheckBoxCnrEnable, 0, 1, 1, 4);
    for (auto* pCheckBox : {pCheckBoxYnrEnable, pCheckBoxCnrEnable})
        connectWrite(pCheckBox, &QCheckBox::toggled, [this, pCheckBox] { switched(pCheckBox); });
    binding.add(pCheckBoxYnrEnable, &Cnr2::Config::ynr_enable).add(pCheckBoxCnrEnable, &Cnr2::Config::cnr_enable);
    valuesBuild(values);
    page.stretch();
}

void Cnr2Widget::valuesBuild(shortcut::Form values)
{
    using Config = Cnr2::Config;
    binding
        .add(values.spinBoxes(
                 tr("C Sigma Layer[4]"),
                 {&pDoubleSpinBoxLayer1, &pDoubleSpinBoxLayer2, &pDoubleSpinBoxLayer3, &pDoubleSpinBoxLayer4}, 1, 48,
                 2),
             &Config::c_sigma_layer)
        .add(values.spinBoxes(tr("C Sigma Merge[3]"),
                              {&pDoubleSpinBoxMerge1, &pDoubleSpinBoxMerge2, &pDoubleSpinBoxMerge3}, 1, 48, 2),
             &Config::c_sigma_merge)
        .add(pSliderSpinWidgetYSigma = values.slider(tr("Y Sigma Layer"), 0, 128, 2), &Config::y_sigma)
        .add(pSliderSpinWidgetBit = values.slider(tr("Bit"), 0, 32), &Config::bit)
        .add(pSliderSpinWidgetCnrStrength1 = values.slider(tr("CNR Strength 1"), 0, 128), &Config::cnr_strength1)
        .add(pSliderSpinWidgetCnrStrength2 = values.slider(tr("CNR Strength 2"), 0, 128), &Config::cnr_strength2)
        .add(pSliderSpinWidgetTexture = values.slider(tr("Texture Mask Select"), 0, 8), &Config::texture_mask_select)
        .add(pSliderSpinWidgetYnrStrength1 = values.slider(tr("YNR Strength 1"), 0, 128), &Config::ynr_strength1)
        .add(pSliderSpinWidgetYnrStrength2 = values.slider(tr("YNR Strength 2"), 0, 128), &Config::ynr_strength2);
}

/// The block has no switch of its own: it runs as long as one of the two does.
void Cnr2Widget::switched(QCheckBox* pCheckBox)
{
    if (!pCheckBoxYnrEnable->isChecked() && !pCheckBoxCnrEnable->isChecked())
    {
        shortcut::NoSignals::setChecked(pCheckBox, true);
        if (auto* pStatusBar = statusBar())
            pStatusBar->showMessage(tr("Cannot disable YNR and CNR both!"), 3000);
        return;
    }
    configSet();
    freeSet(!pCheckBox->isChecked());
}

void Cnr2Widget::freeSet(bool isFree)
{
    shortcut::enabledSet({pDoubleSpinBoxLayer1, pDoubleSpinBoxLayer2, pDoubleSpinBoxLayer3, pDoubleSpinBoxLayer4,
                          pDoubleSpinBoxMerge1, pDoubleSpinBoxMerge2, pDoubleSpinBoxMerge3, pSliderSpinWidgetYSigma,
                          pSliderSpinWidgetBit, pSliderSpinWidgetCnrStrength1, pSliderSpinWidgetCnrStrength2,
                          pSliderSpinWidgetTexture, pSliderSpinWidgetYnrStrength1, pSliderSpinWidgetYnrStrength2},
                         isFree);
}

void Cnr2Widget::configSet()
{
    Cnr2::Config config;
    binding.store(config);
    Cnr2().configSet(config);
}

void Cnr2Widget::updateStatus()
{
    Cnr2::Config config;
    Cnr2().configGet(config);
    freeSet(!config.ynr_enable && !config.cnr_enable);
    binding.show(config);
}
