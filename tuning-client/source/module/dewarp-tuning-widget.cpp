#include "tuning-client/source/module/dewarp-tuning-widget.h"

#include "tuning-client/source/control/grid-view.h"
#include "tuning-client/source/file/file-menu.h"
#include "tuning-client/source/file/local-file.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-common/source/limits.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <algorithm>
#include <cstdlib>

using rest::Dewarp;

namespace
{
constexpr uint32_t gridStep = 16; ///< pixels of a map between two points of its grid

/// The file that the user chooses; empty for none.
QString fileChoose(QWidget* pParent, const QString& filter)
{
    return QFileDialog::getOpenFileName(pParent, QWidget::tr("Select File"), QDir::currentPath(), filter);
}

/// Reads the map's head and values. False for a file that is no whole map.
bool mapRead(QFile& file, uint32_t& width, uint32_t& height, std::vector<uint32_t>& values)
{
    uint32_t head[4];
    if (file.read(reinterpret_cast<char*>(head), sizeof head) != qint64(sizeof head))
        return false;
    width = head[0];
    height = head[1];
    const auto isSide = [](uint32_t side) { return side >= 1 && side <= t_common::limit::dewarpMapSide; };
    if (!isSide(width) || !isSide(height))
        return false;
    const auto bytes = qint64(sizeof(uint32_t)) * width * height;
    if (file.size() - qint64(sizeof head) < bytes)
        return false;
    values.resize(size_t(width) * height);
    return file.read(reinterpret_cast<char*>(values.data()), bytes) == bytes;
}
} // namespace

DewarpTuningWidget::DewarpTuningWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Dewarp"),
      pCheckBoxEnable(new QCheckBox(tr("Enable Dewarp"))),
      pLineEditMapPath(new QLineEdit),
      pPushButtonLoadMap(new QPushButton(tr("Load Map"))),
      pTabWidget(new QTabWidget),
      pDistortionWidget(new DistortionWidget(this)),
      pFishEyeWidget(new FishEyeWidget(this)),
      pPerspectiveWidget(new PerspectiveWidget(this))
{
    pLineEditMapPath->setReadOnly(true);
    pLineEditMapPath->setAccessibleName(tr("Map"));
    pTabWidget->addTab(pDistortionWidget, tr("Distortion Correction"));
    pTabWidget->addTab(pFishEyeWidget, tr("Fisheye Dewarp"));
    pTabWidget->addTab(pPerspectiveWidget, tr("Perspective"));
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0, 1, 2);
    pGridLayoutScrollArea->addWidget(pPushButtonLoadMap, 1, 0);
    pGridLayoutScrollArea->addWidget(pLineEditMapPath, 1, 1);
    pGridLayoutScrollArea->addWidget(pTabWidget, 2, 0, 1, 2);

    connectSwitch(
        pCheckBoxEnable,
        [this](bool isEnable)
        {
            // The settings go first, and without them the block stays off.
            if (isEnable && !configSet())
                return shortcut::NoSignals::setChecked(pCheckBoxEnable, false);
            Dewarp().enableSet(isEnable);
        },
        [this](bool isFree) { freeSet(isFree); });
    connectGuarded(pPushButtonLoadMap, &QPushButton::clicked,
                   [this] { pLineEditMapPath->setText(fileChoose(this, tr("All (*.*)"))); });
}

void DewarpTuningWidget::freeSet(bool isFree)
{
    pPushButtonLoadMap->setEnabled(isFree);
    pLineEditMapPath->setEnabled(isFree);
    pTabWidget->setEnabled(isFree);
}

void DewarpTuningWidget::updateStatus()
{
    bool isEnable = false;
    Dewarp::Config config;
    void* pMap = nullptr;
    uint32_t size = 0;
    Dewarp().enableGet(isEnable).configGet(config, &pMap, size);
    std::free(pMap);

    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    freeSet(!isEnable);
    const auto& params = config.params;
    const auto& map = config.distortionMap[0];
    const auto& frame = params.input_res[0];
    if (qMax(frame.width, frame.height) <= t_common::limit::dewarpMapSide)
        for (auto* pWidget : {static_cast<PerspectiveWidget*>(pDistortionWidget), pPerspectiveWidget})
            pWidget->pGridView->frameSet({int(frame.width), int(frame.height)});
    pDistortionWidget->matrixShow(map.camera_matrix);
    pDistortionWidget->coefficientsShow(map.distortion_coeff);
    pPerspectiveWidget->matrixShow(map.perspective_matrix);
    const bool isFishEye = params.dewarp_type == FishEyeWhole || params.dewarp_type == FishEyeSplit;
    pTabWidget->setCurrentWidget(isFishEye ? static_cast<QWidget*>(pFishEyeWidget) : pDistortionWidget);
    auto mode = FishEyeWidget::Mode(pFishEyeWidget->pComboBoxMode->currentIndex());
    pFishEyeWidget->modeGet(params, mode);
    shortcut::NoSignals::setCurrentIndex(pFishEyeWidget->pComboBoxMode, mode);
}

bool DewarpTuningWidget::configSet()
{
    Dewarp::Config config;
    auto& map = config.distortionMap[0];
    pDistortionWidget->matrixStore(map.camera_matrix);
    pDistortionWidget->coefficientsStore(map.distortion_coeff);
    pPerspectiveWidget->matrixStore(map.perspective_matrix);
    if (pTabWidget->currentWidget() == pFishEyeWidget)
        pFishEyeWidget->paramsGet(FishEyeWidget::Mode(pFishEyeWidget->pComboBoxMode->currentIndex()), config.params);
    else
        config.params.dewarp_type = Distortion;

    QByteArray grid;
    const auto path = pLineEditMapPath->text();
    if (!path.isEmpty() && !mapGet(path, grid))
    {
        shortcut::messageShow(statusBar(), tr("Map is invalid: ") + path);
        return false;
    }
    // For the user to look at; the board gets its map all the same.
    guarded([&] { shortcut::fileWrite("user_map.bin", grid); });
    Dewarp().configSet(config, grid.data(), uint32_t(grid.count()));
    return true;
}

void DewarpTuningWidget::configSet(clb::TuningCalibration::DewarpResult result)
{
    // What the calibration does not tell is sent as the board has it.
    if (!isRead())
        guarded([this] { readStatus(); });
    pDistortionWidget->matrixShow(result.matrix);
    pDistortionWidget->resultLoaded(result);
    pPerspectiveWidget->matrixShow(result.matrix);
    configSet();
}

void DewarpTuningWidget::lensModelSet(lens::Model model)
{
    pDistortionWidget->pComboBoxModel->setCurrentIndex(int(model));
}

bool DewarpTuningWidget::mapGet(QString path, QByteArray& map)
{
    QFile file(path);
    // Opening anything else than a file, such as a pipe, could block.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
    {
        shortcut::messageShow(statusBar(), tr("Open file failed: ") + path);
        return true;
    }
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint32_t> values;
    if (!mapRead(file, width, height, values))
        return false;
    uint32_t columns = 0;
    uint32_t rows = 0;
    std::vector<uint32_t> grid;
    createGridMap(width, height, values.data(), columns, rows, grid);
    map = QByteArray(reinterpret_cast<const char*>(grid.data()), int(grid.size() * sizeof grid[0]));
    return true;
}

void DewarpTuningWidget::createGridMap(uint32_t width, uint32_t height, const uint32_t* values, uint32_t& columns,
                                       uint32_t& rows, std::vector<uint32_t>& grid)
{
    const auto points = [](uint32_t side) { return side / gridStep + (side % gridStep ? 1 : 0) + 1; };
    columns = points(width);
    rows = points(height);
    grid.resize(size_t(columns) * rows);
    for (uint32_t row = 0; row < rows; ++row)
    {
        const auto* pLine = values + size_t(std::min(row * gridStep, height - 1)) * width;
        for (uint32_t column = 0; column < columns; ++column)
            grid[size_t(row) * columns + column] = pLine[std::min(column * gridStep, width - 1)];
    }
}
