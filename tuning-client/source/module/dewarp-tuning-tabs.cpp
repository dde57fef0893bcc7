#include "tuning-client/source/module/dewarp-tuning-widget.h"

#include "tuning-client/source/control/grid-view.h"
#include "tuning-client/source/shortcut/form.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <iterator>

using clb::TuningCalibration;
using FishEye = DewarpTuningWidget::FishEyeWidget;

namespace
{
/// Shows the values in the first boxes.
template <size_t count>
void boxesShow(QDoubleSpinBox* const* pBoxes, const double (&values)[count])
{
    for (size_t i = 0; i < count; ++i)
        shortcut::NoSignals::setValue(pBoxes[i], values[i]);
}

template <size_t count>
void boxesStore(QDoubleSpinBox* const* pBoxes, double (&values)[count])
{
    for (size_t i = 0; i < count; ++i)
        values[i] = pBoxes[i]->value();
}
} // namespace

DewarpTuningWidget::PerspectiveWidget::PerspectiveWidget(QWidget* pParent)
    : AbstractWidget(pParent, QString(), false, Role::Part),
      pPushButtonLoadFile(new QPushButton(tr("&Load from File"))),
      pGridView(new GridView(tr("Preview")))
{
    auto* pGroupBox = boxesBuild(tr("3 x 3 Coefficients"), pDoubleSpinBoxes3x3, 9, 3, "-10000.0000000");
    pGridLayoutScrollArea->addWidget(pPushButtonLoadFile, 0, 0, Qt::AlignLeft);
    pGridLayoutScrollArea->addWidget(pGroupBox, 1, 0, Qt::AlignTop);
    pGridLayoutScrollArea->addWidget(pGridView, 1, 1, 1, 2);
    pGridLayoutScrollArea->setRowStretch(3, 1);
    pGridLayoutScrollArea->setColumnStretch(2, 1);
    connectGuarded(pPushButtonLoadFile, &QPushButton::clicked, [this] { loadFile(); });
}

QGroupBox* DewarpTuningWidget::PerspectiveWidget::boxesBuild(const QString& title, QDoubleSpinBox** boxes, int count,
                                                             int columns, const QString& widest)
{
    auto* pGroupBox = new QGroupBox(title);
    auto* pLayout = new QGridLayout(pGroupBox);
    pLayout->setHorizontalSpacing(2);
    for (int i = 0; i < count; ++i)
    {
        auto* pBox = boxes[i] = new QDoubleSpinBox;
        pBox->setReadOnly(true);
        pBox->setButtonSymbols(QDoubleSpinBox::NoButtons);
        pBox->setDecimals(7);
        pBox->setRange(-10000, 10000);
        pBox->setMinimumWidth(pBox->fontMetrics().horizontalAdvance(widest + QStringLiteral("00")));
        pBox->setToolTip(valueTip(*pBox));
        pBox->setAccessibleName(QString("%1 %2").arg(title).arg(i + 1));
        pLayout->addWidget(pBox, i / columns, i % columns);
    }
    return pGroupBox;
}

void DewarpTuningWidget::PerspectiveWidget::matrixShow(const double (&matrix)[9])
{
    boxesShow(pDoubleSpinBoxes3x3, matrix);
    modelShow();
}

void DewarpTuningWidget::PerspectiveWidget::matrixStore(double (&matrix)[9]) const
{
    boxesStore(pDoubleSpinBoxes3x3, matrix);
}

void DewarpTuningWidget::PerspectiveWidget::modelShow()
{
    struct Matrix
    {
        double values[9];
    } matrix{};
    matrixStore(matrix.values);
    pGridView->modelSet([matrix](const QPointF& point) { return lens::projected(matrix.values, point); });
}

void DewarpTuningWidget::PerspectiveWidget::loadFile()
{
    const auto path = QFileDialog::getOpenFileName(this, tr("Select File"), QDir::currentPath(), tr("YAML (*.yml)"));
    if (path.isEmpty())
        return;
    TuningCalibration::DewarpResult result{};
    TuningCalibration().dewarpCalibrationFromYaml(path.toStdString(), result);
    matrixShow(result.matrix);
    resultLoaded(result);
}

void DewarpTuningWidget::PerspectiveWidget::resultLoaded(TuningCalibration::DewarpResult) {}

DewarpTuningWidget::DistortionWidget::DistortionWidget(QWidget* pParent)
    : PerspectiveWidget(pParent), pComboBoxModel(new QComboBox)
{
    auto* pGroupBox = boxesBuild(tr("8 x 1 Coefficients"), pDoubleSpinBoxes8x1, 8, 8, "-99.0000000");
    pGridLayoutScrollArea->addWidget(pGroupBox, 2, 0, 1, 3);
    auto* pLabelModel = new QLabel(tr("Preview as"));
    pLabelModel->setBuddy(pComboBoxModel);
    pComboBoxModel->setAccessibleName(pLabelModel->text());
    pComboBoxModel->addItems({tr("Fisheye"), tr("Wide Angle")});
    pGridLayoutScrollArea->addWidget(pLabelModel, 0, 1);
    pGridLayoutScrollArea->addWidget(pComboBoxModel, 0, 2, Qt::AlignLeft);
    connect(pComboBoxModel, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DistortionWidget::modelShow);
}

void DewarpTuningWidget::DistortionWidget::resultLoaded(TuningCalibration::DewarpResult result)
{
    boxesShow(pDoubleSpinBoxes8x1, result.coefficients);
    modelShow();
}

void DewarpTuningWidget::DistortionWidget::coefficientsShow(const double (&coefficients)[8])
{
    boxesShow(pDoubleSpinBoxes8x1, coefficients);
    modelShow();
}

void DewarpTuningWidget::DistortionWidget::coefficientsStore(double (&coefficients)[8]) const
{
    boxesStore(pDoubleSpinBoxes8x1, coefficients);
}

void DewarpTuningWidget::DistortionWidget::modelShow()
{
    struct Lens
    {
        lens::Model model;
        double matrix[9];
        double coefficients[8];
    } values{lens::Model(pComboBoxModel->currentIndex()), {}, {}};
    matrixStore(values.matrix);
    coefficientsStore(values.coefficients);
    pGridView->modelSet([values](const QPointF& point)
                        { return lens::distorted(values.model, values.matrix, values.coefficients, point); });
}

namespace
{
/// A view of a fisheye's picture, by the places of its lines; the whole picture has none.
struct View
{
    const char* text;
    uint32_t horizontal, up, down;
};

constexpr View views[FishEye::Mode_Max] = {
    {"0-0-0", 0, 0, 0},     {"0-1-1", 0, 960, 960}, {"1-0-0", 544, 0, 0},
    {"1-0-1", 544, 0, 960}, {"1-1-0", 544, 960, 0}, {"1-1-1", 544, 960, 960},
};
} // namespace

FishEye::FishEyeWidget(QWidget* pParent)
    : AbstractWidget(pParent, QString(), false, Role::Part), pComboBoxMode(new QComboBox)
{
    for (const auto& view : views)
        pComboBoxMode->addItem(QIcon(QString(":/images/%1.png").arg(view.text)), view.text);
    const int height = 2 * fontMetrics().height();
    pComboBoxMode->setIconSize({height * 16 / 9, height});
    pComboBoxMode->setAccessibleName(tr("Mode"));
    pGridLayoutScrollArea->addWidget(pComboBoxMode, 0, 0, Qt::AlignLeft | Qt::AlignTop);
}

void FishEye::modeGet(rest::wq700_parameters params, Mode& mode) const
{
    const auto* pView = std::find_if(std::begin(views), std::end(views),
                                     [&](const View& view)
                                     {
                                         return bool(view.horizontal) == bool(params.split_horizon_line) &&
                                                bool(view.up) == bool(params.split_vertical_line_up) &&
                                                bool(view.down) == bool(params.split_vertical_line_down);
                                     });
    if (pView != std::end(views))
        mode = Mode(pView - views);
}

void FishEye::paramsGet(Mode mode, rest::wq700_parameters& params) const
{
    // The whole picture leaves the lines as they are.
    params.dewarp_type = mode == Mode_000 ? FishEyeWhole : FishEyeSplit;
    if (mode == Mode_000)
        return;
    params.split_horizon_line = views[mode].horizontal;
    params.split_vertical_line_up = views[mode].up;
    params.split_vertical_line_down = views[mode].down;
}
