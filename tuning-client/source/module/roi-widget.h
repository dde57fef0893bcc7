#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/roi.h"

class QComboBox;
class QScrollArea;
class RegionView;

/// "Region Of Interested": windows that the exposure weighs, in numbers and in a picture of the frame. They are free
/// while auto exposure 2 is on, and go to the board by "Apply" alone, once all of them lie in the frame.
class RoiWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit RoiWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    void configSet();
    void updateStatus() override;

    QComboBox* pComboBoxResolution;
    QGroupBox* pGroupBoxRegionOfInterested;
    SliderSpinWidget* pSliderSpinWidgetWindownum;
    QVector<QLabel*> Labelnums;
    QVector<QSpinBox*> SpinBoxRoixStarts;
    QVector<QSpinBox*> SpinBoxRoiyStarts;
    QVector<QSpinBox*> SpinBoxRoiWidths;
    QVector<QSpinBox*> SpinBoxRoiHeights;
    QVector<QDoubleSpinBox*> SpinBoxRoiWeights;
    RegionView* pRegionView;

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void rowsBuild();
    void place();
    void arrange();
    void rowsShow(int count);
    void rangesSet(int index);
    void regionsShow();
    void regionTake(int index, const QRectF& region);

    QVector<shortcut::RecordBinding<rest::Roi::RoiWindow>> bindings; ///< a row each
    QScrollArea* pScrollArea;
    QPushButton* pPushButtonApply;
    int shownCount = 0;        ///< rows
    QSize most = {1920, 1920}; ///< for the boxes of a row that is seen: the frame, once it is read
    bool isStacked = false;
};
