#include "tuning-client/source/module/image-widget.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/file/file-menu.h"
#include "tuning-rest/source/image.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace
{
QString noImageText() { return ImageWidget::tr("Select Image (*.pgm)"); }

QString formatText(rest::PicBufType_t type)
{
    switch (type)
    {
    case rest::PIC_BUF_TYPE_RAW8:
        return "RAW8";
    case rest::PIC_BUF_TYPE_RAW10:
        return "RAW10";
    case rest::PIC_BUF_TYPE_RAW16:
        return "RAW16";
    default:
        return {};
    }
}

QString bayerText(rest::PicBufLayout_t layout)
{
    switch (layout)
    {
    case rest::PIC_BUF_LAYOUT_BAYER_RGRGGBGB:
        return "RGGB";
    case rest::PIC_BUF_LAYOUT_BAYER_GRGRBGBG:
        return "GRBG";
    case rest::PIC_BUF_LAYOUT_BAYER_GBGBRGRG:
        return "GBRG";
    case rest::PIC_BUF_LAYOUT_BAYER_BGBGGRGR:
        return "BGGR";
    default:
        return {};
    }
}
} // namespace

ImageWidget::ImageWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Image Control", false),
      pCheckBoxLsb(new QCheckBox(tr("LSB"))),
      pLabelImageBayerPattern(new QLabel),
      pLabelImageFormat(new QLabel),
      pLabelImageHeight(new QLabel),
      pLabelImageWidth(new QLabel),
      pPushButtonChangeImage(new QPushButton(tr("Change Image"))),
      pPushButtonImageList(new QPushButton(noImageText()))
{
    auto* pGroupBox = new QGroupBox(tr("Image Settings"));
    auto* pGroupLayout = new QGridLayout(pGroupBox);
    auto* pLabelFile = new QLabel(tr("Image File"));
    pLabelFile->setBuddy(pPushButtonImageList);
    pPushButtonImageList->setAccessibleName(pLabelFile->text());
    pGroupLayout->addWidget(pLabelFile, 0, 0);
    pGroupLayout->addWidget(pPushButtonImageList, 0, 1, 1, 2);
    pGroupLayout->addWidget(pCheckBoxLsb, 1, 1);
    pGroupLayout->addWidget(pPushButtonChangeImage, 1, 2);
    pGroupLayout->setColumnStretch(2, 1);
    pGridLayoutScrollArea->addWidget(pGroupBox, 0, 0, 1, 2);

    const auto rowAdd = [this](const QString& text, QLabel* pLabel)
    {
        const int row = pGridLayoutScrollArea->rowCount();
        pLabel->setText(tr("Not Found"));
        pLabel->setFrameStyle(6);
        pGridLayoutScrollArea->addWidget(new QLabel(text), row, 0);
        pGridLayoutScrollArea->addWidget(pLabel, row, 1);
    };
    rowAdd(tr("Width"), pLabelImageWidth);
    rowAdd(tr("Height"), pLabelImageHeight);
    rowAdd(tr("Format"), pLabelImageFormat);
    rowAdd(tr("Bayer Pattern"), pLabelImageBayerPattern);
    pGridLayoutScrollArea->setColumnStretch(1, 1);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount(), 1);

    auto* pMenu = new QMenu(this);
    pPushButtonImageList->setMenu(pMenu);
    shortcut::fileMenuAdd(this, pMenu,
                          {"pgm", config.preferences.capture.path,
                           [this](const QString& path) { pPushButtonImageList->setText(QFileInfo(path).fileName()); },
                           [this](const QString& name) { pPushButtonImageList->setText(name); },
                           [this](const QString& name)
                           {
                               if (pPushButtonImageList->text() == name)
                                   pPushButtonImageList->setText(noImageText());
                           }});
    connectGuarded(pPushButtonChangeImage, &QPushButton::clicked, [this] { imageChange(); });
}

void ImageWidget::imageChange()
{
    if (pPushButtonImageList->text() == noImageText())
    {
        QMessageBox::information(this, tr("Oops"), tr("Please select image"));
        return;
    }
    rest::Image::Config image;
    image.isLsb = pCheckBoxLsb->isChecked();
    rest::Image().load(pPushButtonImageList->text().toStdString(), image);

    const auto& metaData = image.metaData;
    pLabelImageWidth->setText(QString::number(metaData.Data.raw.PicWidthPixel));
    pLabelImageHeight->setText(QString::number(metaData.Data.raw.PicHeightPixel));
    pLabelImageFormat->setText(formatText(metaData.Type));
    pLabelImageBayerPattern->setText(bayerText(metaData.Layout));
}
