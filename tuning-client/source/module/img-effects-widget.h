#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/ie.h"

class QRadioButton;

/// "Image Effects": what is chosen here reaches the board when the block is switched on.
class ImgEffectsWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit ImgEffectsWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    /// Without a colour to select it says so, unchecks the enable box and sends nothing.
    void configSet();
    void updateStatus() override;

    QCheckBox* pCheckBoxEnable;
    QGroupBox* pGroupBoxMode;
    QRadioButton* pRadioButtonGrayScale;
    QRadioButton* pRadioButtonNegative;
    QRadioButton* pRadioButtonSepia;
    QRadioButton* pRadioButtonColorSelection;
    QGroupBox* pGroupBoxRange;
    QRadioButton* pRadioButtonRangeBt601;
    QRadioButton* pRadioButtonRangeFull;
    QGroupBox* pGroupBoxSepia;
    SliderSpinWidget* pSliderSpinWidgetTintCb;
    SliderSpinWidget* pSliderSpinWidgetTintCr;
    QGroupBox* pGroupBoxColorSelection;
    QCheckBox* pCheckBoxRed;
    QCheckBox* pCheckBoxGreen;
    QCheckBox* pCheckBoxBlue;
    SliderSpinWidget* pSliderSpinWidgetColorThreshold;

private:
    using ModeConfig = rest::OptrixIeConfig_t::ModeConfig_u;

    void modesBuild();
    void parametersBuild();
    void controlsEnableSet(bool isEnable);
    rest::OptrixIeColorSelection_t colors() const;
    void colorsShow(rest::OptrixIeColorSelection_t selection);

    QButtonGroup* pButtonGroupMode;
    QButtonGroup* pButtonGroupRange;
    shortcut::RecordBinding<ModeConfig::Sepia_s> bindingSepia;
    shortcut::RecordBinding<ModeConfig::ColorSelection_s> bindingThreshold;
};
