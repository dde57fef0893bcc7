#pragma once

#include "tuning-client/source/abstract-widget.h"

class QCheckBox;
class QLabel;
class QPushButton;

/// "Image Control": a stored image as the pipeline's input. It sends only on user actions.
class ImageWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit ImageWidget(QWidget* pParent);

    QCheckBox* pCheckBoxLsb;
    QLabel* pLabelImageBayerPattern;
    QLabel* pLabelImageFormat;
    QLabel* pLabelImageHeight;
    QLabel* pLabelImageWidth;
    QPushButton* pPushButtonChangeImage;
    QPushButton* pPushButtonImageList; ///< its text is the selected image

private:
    void imageChange();
};
