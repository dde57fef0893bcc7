#include "tuning-client/source/module/simp-widget.h"

#include "tuning-client/source/control/image-label.h"
#include "tuning-client/source/control/keep-ratio.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/image/picture.h"
#include "tuning-client/source/shortcut/message-box.h"
#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-rest/source/simp.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using rest::Simp;

namespace
{
/// A colour as the video has it, in the range of television.
rest::CamEngineSimpConfig_s::SimpModeConfig_u::KeyColoring_s keyColoring(int r, int g, int b)
{
    const auto byte = [](int value, int most) { return uint8_t(std::clamp(value, 16, most)); };
    return {byte(((263 * r + 516 * g + 100 * b) >> 10) + 16, 235),
            byte(((-151 * r - 297 * g + 449 * b) >> 10) + 128, 240),
            byte(((449 * r - 376 * g - 72 * b) >> 10) + 128, 240)};
}
} // namespace

SImpWidget::SImpWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Super Impose"),
      pImageLabel(new ImageLabel(nullptr)),
      pCheckBoxEnable(new QCheckBox(tr("Enable Super Impose"))),
      pLabelColor(new QLabel),
      pLabelFileName(new QLabel),
      pPushButtonLoadImage(new QPushButton(tr("Load Image..."))),
      pGroupBoxKeyColor(new QGroupBox(tr("Key Color Mode"))),
      pGroupBoxOverlay(new QGroupBox(tr("Overlay Mode")))
{
    ledWordsSet(tr("SIMP ON"), tr("SIMP OFF"));
    overlayBuild();
    keyColorBuild();
    place();
    connectSwitch(
        pCheckBoxEnable, [](bool isEnable) { Simp().enableSet(isEnable); },
        [this](bool isFree) { shortcut::enabledSet(shortcut::siblings(pCheckBoxEnable), isFree); },
        shortcut::Grey::Always);
    connectGuarded(pPushButtonLoadImage, &QPushButton::clicked, [this] { loadImage(); });

    for (auto* pGroupBox : {pGroupBoxOverlay, pGroupBoxKeyColor})
        pGroupBox->setCheckable(true);
    pGroupBoxKeyColor->setChecked(false);
    connect(pGroupBoxOverlay, &QGroupBox::toggled, this, [this](bool isOn) { pGroupBoxKeyColor->setChecked(!isOn); });
    connect(pGroupBoxKeyColor, &QGroupBox::toggled, this, [this](bool isOn) { pGroupBoxOverlay->setChecked(!isOn); });
    updateKeyColorPreview();
}

void SImpWidget::overlayBuild()
{
    auto* pGrid = new QGridLayout(pGroupBoxOverlay);
    const auto changed = [this](double) { overlayChanged(); };
    pSliderSpinWidgetOffsetX = new SliderSpinWidget(tr("Offset X"), 0, 1920, 0, changed, nullptr);
    pSliderSpinWidgetOffsetY = new SliderSpinWidget(tr("Offset Y"), 0, 1080, 0, changed, nullptr);
    pGrid->addWidget(pSliderSpinWidgetOffsetX, 0, 0);
    pGrid->addWidget(pSliderSpinWidgetOffsetY, 1, 0);
    pGrid->setRowStretch(2, 1);
}

void SImpWidget::keyColorBuild()
{
    auto* pGrid = new QGridLayout(pGroupBoxKeyColor);
    pLabelColor->setFixedWidth(150);
    pLabelColor->setScaledContents(true);
    pLabelColor->setBackgroundRole(QPalette::Dark);
    pLabelColor->setAccessibleName(tr("Key color"));
    pGrid->addWidget(pLabelColor, 0, 0, 3, 1);
    int line = 0;
    const auto row = [&](const QString& text)
    {
        auto* pSlider = new SliderSpinWidget(
            text, 0, 255, 0, [this](double) { keyColorChanged(); }, nullptr);
        pGrid->addWidget(pSlider, line++, 1);
        return pSlider;
    };
    pSliderSpinWidgetRed = row(tr("Red"));
    pSliderSpinWidgetGreen = row(tr("Green"));
    pSliderSpinWidgetBlue = row(tr("Blue"));
}

void SImpWidget::place()
{
    pImageLabel->setAccessibleName(tr("Picture in the video"));
    // The name of a file may look like markup, and be longer than the page is wide.
    pLabelFileName->setTextFormat(Qt::PlainText);
    pLabelFileName->setWordWrap(true);
    pLabelFileName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* pGrid = pGridLayoutScrollArea;
    pGrid->addWidget(pCheckBoxEnable, 0, 0, 1, 2);
    pGrid->addWidget(pGroupBoxOverlay, 1, 0);
    pGrid->addWidget(pGroupBoxKeyColor, 1, 1);
    pGrid->addWidget(pPushButtonLoadImage, 2, 0, Qt::AlignLeft);
    pGrid->addWidget(pLabelFileName, 2, 1);
    pGrid->addWidget(new KeepRatio(pImageLabel, pImageLabel->sceneRect().size().toSize()), 3, 0, 1, 2);
    // Nearly all of the height.
    pGrid->setRowStretch(3, 100);
    pGrid->setRowStretch(4, 1);
    // The sliders beside the colour need the room.
    pGrid->setColumnStretch(0, 3);
    pGrid->setColumnStretch(1, 4);
}

/// What the user sees here follows the sliders in any case; what the board has, where the page may write.
void SImpWidget::overlayChanged()
{
    const double x = pSliderSpinWidgetOffsetX->value();
    const double y = pSliderSpinWidgetOffsetY->value();
    pImageLabel->setOffset(int(x), int(y));
    auto config = rest::recordZero<rest::CamEngineSimpConfig_t>();
    config.Mode = rest::CAM_ENGINE_SIMP_MODE_OVERLAY;
    config.SimpModeConfig.Overlay = {uint32_t(x), uint32_t(y)};
    send(config);
}

void SImpWidget::keyColorChanged()
{
    updateKeyColorPreview();
    auto config = rest::recordZero<rest::CamEngineSimpConfig_t>();
    config.Mode = rest::CAM_ENGINE_SIMP_MODE_KEYCOLORING;
    config.SimpModeConfig.KeyColoring = keyColoring(
        int(pSliderSpinWidgetRed->value()), int(pSliderSpinWidgetGreen->value()), int(pSliderSpinWidgetBlue->value()));
    send(config);
}

void SImpWidget::updateKeyColorPreview()
{
    QPixmap pixmap(1, 1);
    pixmap.fill(QColor(int(pSliderSpinWidgetRed->value()), int(pSliderSpinWidgetGreen->value()),
                       int(pSliderSpinWidgetBlue->value())));
    pLabelColor->setPixmap(pixmap);
}

void SImpWidget::send(const rest::CamEngineSimpConfig_t& config)
{
    writeGuarded([&] { Simp().configSet({QFileInfo(pLabelFileName->text()).fileName().toStdString(), config}); });
}

void SImpWidget::loadImage()
{
    const auto path = QFileDialog::getOpenFileName(this, tr("Open Image"), QDir::homePath() + "/Pictures", "");
    if (path.isEmpty())
        return;
    const auto image = [&]
    {
        const shortcut::WaitCursor waiting;
        return Picture(path).imageGet().convertToFormat(QImage::Format_RGB32);
    }();
    if (image.isNull())
        return message_box::information(this, tr("Super Impose"), tr("Cannot load image %1.").arg(path));
    pImageLabel->setImage(image);
    pLabelFileName->setText(path);
    pLabelFileName->setToolTip(Qt::convertFromPlainText(path));
    shortcut::remoteUpload(clientHolder(), path);
}

void SImpWidget::updateStatus()
{
    bool isEnable = false;
    Simp().enableGet(isEnable);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    shortcut::enabledSet(shortcut::siblings(pCheckBoxEnable), !isEnable);
    ledShow(isEnable);
}
