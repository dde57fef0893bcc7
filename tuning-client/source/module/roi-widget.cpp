#include "tuning-client/source/module/roi-widget.h"

#include "tuning-client/source/control/region-view.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/ae.h"
#include "tuning-rest/source/sensor.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include <limits>

using rest::Roi;
using shortcut::NoSignals;
using Window = Roi::RoiWindow;
using Resolution = rest::Sensor::Config::Resolution;

namespace
{
constexpr int rowCount = 16;
constexpr int weightColumn = 5;

/// Rows of the page's grid.
enum
{
    TableRow = 3,
    StackedRow, ///< of the picture where it has no room beside the table
    ApplyRow,
    RestRow
};

Resolution resolutionGet()
{
    auto status = rest::recordZero<rest::Sensor::Status>();
    rest::Sensor().statusGet(status);
    return status.resolutionCollection.resolution;
}

/// As far as a box counts.
QSize sizeOf(const Resolution& resolution)
{
    const auto held = [](uint32_t side) { return int(qMin(side, uint32_t(std::numeric_limits<int>::max()))); };
    return {held(resolution.width), held(resolution.height)};
}

/// What of the window lies outside the frame, empty where nothing does.
QString excess(const Window& window, const Resolution& frame)
{
    const auto along = [](uint64_t start, uint64_t length, uint64_t side, const char* starts, const char* lengths) {
        return start > side ? starts : start + length > side ? lengths : "";
    };
    const QString across = along(window.xStart, window.width, frame.width, "X", "Width");
    return across.isEmpty() ? along(window.yStart, window.height, frame.height, "Y", "Height") : across;
}
} // namespace

RoiWidget::RoiWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Region Of Interested"),
      pComboBoxResolution(new QComboBox),
      pGroupBoxRegionOfInterested(new QGroupBox),
      pSliderSpinWidgetWindownum(new SliderSpinWidget(
          tr("WindowNum"), 1, rowCount, 0, [this](double count) { rowsShow(int(count)); }, nullptr)),
      pRegionView(new RegionView),
      pScrollArea(findChild<QScrollArea*>()),
      pPushButtonApply(new QPushButton(tr("Apply")))
{
    pComboBoxResolution->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    pRegionView->setAccessibleName(tr("Regions in the frame"));
    rowsBuild();
    place();
    rowsShow(1);
    connect(pRegionView, &RegionView::regionChanged, this, &RoiWidget::regionTake);
    connectWrite(pPushButtonApply, &QPushButton::clicked,
                 [this]
                 {
                     const shortcut::WaitCursor waiting;
                     configSet();
                 });
}

void RoiWidget::rowsBuild()
{
    shortcut::Form rows(this, new QGridLayout(pGroupBoxRegionOfInterested), {});
    const QStringList heads{tr("X Coordinate"), tr("Y Coordinate"), tr("Image Width"), tr("Image Height"),
                            tr("Weight")};
    rows.heads(QStringList(QString()) + heads);
    // In two lines where the page is narrow.
    for (auto* pHead : pGroupBoxRegionOfInterested->findChildren<QLabel*>())
    {
        pHead->setWordWrap(true);
        pHead->setAlignment(Qt::AlignCenter);
    }
    for (int i = 0; i < rowCount; ++i)
    {
        QSpinBox *pX, *pY, *pWidth, *pHeight;
        const auto name = tr("ROI-%1").arg(i + 1);
        const auto boxes = rows.spinBoxes(name, {&pX, &pY, &pWidth, &pHeight}, 0, 1920);
        for (int column = 0; column < boxes.size(); ++column)
        {
            boxes[column]->setAccessibleName(name + ' ' + heads[column]);
            // Typing sends nothing, and is seen at once.
            boxes[column]->setKeyboardTracking(true);
            connect(boxes[column], QOverload<int>::of(&QSpinBox::valueChanged), this, &RoiWidget::regionsShow);
        }
        auto* pWeight = rows.doubleSpinBoxBeside(name + ' ' + heads.last(), weightColumn, 0, 100);
        bindings.append(shortcut::RecordBinding<Window>()
                            .add(pX, &Window::xStart)
                            .add(pY, &Window::yStart)
                            .add(pWidth, &Window::width)
                            .add(pHeight, &Window::height)
                            .add(pWeight, &Window::weight));
        Labelnums.append(shortcut::labelOf(pX));
        // Or it would be as wide as the slider's.
        Labelnums.last()->setObjectName(QString());
        SpinBoxRoixStarts.append(pX);
        SpinBoxRoiyStarts.append(pY);
        SpinBoxRoiWidths.append(pWidth);
        SpinBoxRoiHeights.append(pHeight);
        SpinBoxRoiWeights.append(pWeight);
    }
}

void RoiWidget::place()
{
    auto* pLabel = new QLabel(tr("Resolution"));
    pLabel->setBuddy(pComboBoxResolution);
    pComboBoxResolution->setAccessibleName(pLabel->text());
    auto* pGrid = pGridLayoutScrollArea;
    pGrid->addWidget(pLabel, 0, 0, 1, 2);
    pGrid->addWidget(pComboBoxResolution, 1, 0, 1, 2, Qt::AlignLeft);
    pGrid->addWidget(pSliderSpinWidgetWindownum, 2, 0, 1, 2);
    pGrid->addWidget(pGroupBoxRegionOfInterested, TableRow, 0, Qt::AlignTop);
    pGrid->addWidget(pRegionView, TableRow, 1, RestRow - TableRow + 1, 1);
    pGrid->addWidget(pPushButtonApply, ApplyRow, 0, Qt::AlignLeft);
    pGrid->setColumnStretch(1, 1);
    pGrid->setRowStretch(RestRow, 1);
    pScrollArea->viewport()->installEventFilter(this);
    pScrollArea->widget()->installEventFilter(this);
}

/// Puts the picture beside the table or, where there is no room, below it.
void RoiWidget::arrange()
{
    auto* pGrid = pGridLayoutScrollArea;
    const auto margins = pGrid->contentsMargins();
    const int width = margins.left() + pGroupBoxRegionOfInterested->sizeHint().width() + pGrid->horizontalSpacing() +
                      pRegionView->minimumSizeHint().width() + margins.right();
    const bool isNarrow = width > pScrollArea->viewport()->width();
    if (isNarrow == isStacked)
        return;
    isStacked = isNarrow;
    if (isStacked)
        pGrid->addWidget(pRegionView, StackedRow, 0, 1, 2);
    else
        pGrid->addWidget(pRegionView, TableRow, 1, RestRow - TableRow + 1, 1);
    pGrid->setRowStretch(StackedRow, isStacked);
    pGrid->setRowStretch(RestRow, !isStacked);
}

bool RoiWidget::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::Resize || pEvent->type() == QEvent::LayoutRequest)
        arrange();
    return AbstractWidget::eventFilter(pWatched, pEvent);
}

void RoiWidget::rowsShow(int count)
{
    shownCount = count;
    for (int i = 0; i < rowCount; ++i)
        for (QWidget* pWidget :
             std::initializer_list<QWidget*>{Labelnums[i], SpinBoxRoixStarts[i], SpinBoxRoiyStarts[i],
                                             SpinBoxRoiWidths[i], SpinBoxRoiHeights[i], SpinBoxRoiWeights[i]})
            pWidget->setVisible(i < count);
    // A row that was not in use when the frame was read has to reach as far as the others.
    for (int i = 0; i < count; ++i)
        rangesSet(i);
    regionsShow();
}

void RoiWidget::rangesSet(int index)
{
    for (auto* pBox : {SpinBoxRoixStarts[index], SpinBoxRoiWidths[index]})
        NoSignals::setRange(pBox, 0, most.width());
    for (auto* pBox : {SpinBoxRoiyStarts[index], SpinBoxRoiHeights[index]})
        NoSignals::setRange(pBox, 0, most.height());
}

/// The picture follows the boxes.
void RoiWidget::regionsShow()
{
    QVector<QRectF> regions;
    for (int i = 0; i < shownCount; ++i)
        regions.append(QRectF(SpinBoxRoixStarts[i]->value(), SpinBoxRoiyStarts[i]->value(),
                              SpinBoxRoiWidths[i]->value(), SpinBoxRoiHeights[i]->value()));
    pRegionView->setRegions(regions);
}

/// The boxes follow the picture, as far as their ranges go.
void RoiWidget::regionTake(int index, const QRectF& region)
{
    SpinBoxRoixStarts[index]->setValue(int(region.x()));
    SpinBoxRoiyStarts[index]->setValue(int(region.y()));
    SpinBoxRoiWidths[index]->setValue(int(region.width()));
    SpinBoxRoiHeights[index]->setValue(int(region.height()));
}

void RoiWidget::configSet()
{
    const auto resolution = resolutionGet();
    auto config = rest::recordZero<Roi::Config>();
    config.windowNum = uint32_t(pSliderSpinWidgetWindownum->value());
    for (int i = 0; i < rowCount; ++i)
    {
        bindings[i].store(config.roi[i]);
        const auto what = excess(config.roi[i], resolution);
        if (what.isEmpty())
            continue;
        if (auto* pStatusBar = statusBar())
        {
            pStatusBar->showMessage(tr("%1 is Out of Bounds").arg(what), 2000);
            // The window has just coloured the message in its own way.
            pStatusBar->setStyleSheet("color:red");
        }
        return;
    }
    Roi().configSet(config);
}

void RoiWidget::updateStatus()
{
    auto config = rest::recordZero<Roi::Config>();
    bool isAeOn = false;
    Roi().configGet(config);
    rest::Ae().enableGet(isAeOn, rest::Ae::V2);
    // At once: the exposure counts whether or not the sensor answers.
    setEnabled(isAeOn);
    setToolTip(isAeOn ? QString() : tr("Regions are free while auto exposure 2 is on"));

    const auto resolution = resolutionGet();
    const auto size = sizeOf(resolution);
    const auto text = QString("%1x%2").arg(resolution.width).arg(resolution.height);
    if (pComboBoxResolution->findText(text) < 0)
        pComboBoxResolution->addItem(text, size);
    NoSignals::setCurrentText(pComboBoxResolution, text);
    NoSignals::setValue(pSliderSpinWidgetWindownum, double(config.windowNum));
    const int count = int(rest::recordCount(config.windowNum, config.roi));
    most = size;
    pRegionView->setFrame(size);
    rowsShow(count);
    for (int i = 0; i < count; ++i)
        bindings[i].show(config.roi[i]);
    regionsShow();
}
