#pragma once

#include "tuning-client/source/abstract-widget.h"

class ImageLabel;
class QGroupBox;
class QPushButton;
class SliderSpinWidget;

namespace rest
{
struct CamEngineSimpConfig_s;
}

/// "Super Impose": a picture over the video, at an offset or wherever the video has a key colour. The board does not
/// tell what it is set to, so the page shows what it has sent last.
class SImpWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit SImpWidget(QWidget* pParent);

    void keyColorChanged();
    void loadImage();
    void overlayChanged();
    void updateKeyColorPreview();
    void updateStatus() override;

    ImageLabel* pImageLabel;
    QCheckBox* pCheckBoxEnable;
    QLabel* pLabelColor;
    QLabel* pLabelFileName;
    QPushButton* pPushButtonLoadImage;
    QGroupBox *pGroupBoxKeyColor, *pGroupBoxOverlay;
    SliderSpinWidget *pSliderSpinWidgetRed, *pSliderSpinWidgetGreen, *pSliderSpinWidgetBlue;
    SliderSpinWidget *pSliderSpinWidgetOffsetX, *pSliderSpinWidgetOffsetY;

private:
    void overlayBuild();
    void keyColorBuild();
    void place();
    void send(const rest::CamEngineSimpConfig_s& config);
};
