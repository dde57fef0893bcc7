#include "tuning-client/source/control/calibration-dialog.h"

#include "tuning-client/source/image/picture.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <stdexcept>

using clb::TuningCalibration;

namespace
{
QString nameOf(const std::string& path) { return QFileInfo(QString::fromStdString(path)).fileName(); }

TuningCalibration::Image imageLoad(const std::string& path)
{
    const auto image = Picture(QString::fromStdString(path)).imageGet().convertToFormat(QImage::Format_Grayscale8);
    if (image.isNull())
        throw std::runtime_error("no picture, or too large");
    TuningCalibration::Image grey{image.width(), image.height(), {}};
    grey.grey.reserve(size_t(image.width()) * size_t(image.height()));
    for (int y = 0; y < image.height(); ++y)
        grey.grey.insert(grey.grey.end(), image.constScanLine(y), image.constScanLine(y) + image.width());
    return grey;
}

QLabel* plainLabel()
{
    auto* pLabel = new QLabel;
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setMinimumWidth(pLabel->fontMetrics().horizontalAdvance('x') * 60);
    return pLabel;
}
} // namespace

CalibrationDialog::CalibrationDialog(QWidget* pParent, const TuningCalibration::DewarpParameters& parameters_)
    : AbstractDialog(pParent, {}, true),
      parameters(parameters_),
      calibration(imageLoad, [this](size_t index, const auto& view) { return progress(index, view); }),
      pLabelImage(plainLabel()),
      pLabelLast(plainLabel()),
      pProgressBar(new QProgressBar),
      pButtonBox(new QDialogButtonBox(QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("Calibration"));
    setModal(true);
    pProgressBar->setMaximum(int(parameters.images.size()));
    auto* pLayout = new QVBoxLayout(this);
    for (auto* pWidget : QVector<QWidget*>{pLabelImage, pLabelLast, pProgressBar, pButtonBox})
        pLayout->addWidget(pWidget);
    connect(pButtonBox, &QDialogButtonBox::rejected, this, &CalibrationDialog::reject);
    imageShow(0);
    thread = std::thread([this] { run(); });
}

CalibrationDialog::~CalibrationDialog()
{
    isCancelled = true;
    if (thread.joinable())
        thread.join();
}

void CalibrationDialog::reject()
{
    // Behind the last picture there is nothing to leave out any more.
    if (!pButtonBox->isEnabled())
        return;
    isCancelled = true;
    pButtonBox->setEnabled(false);
    pLabelImage->setText(tr("Cancelling..."));
}

/// On the thread of the run.
void CalibrationDialog::run()
{
    try
    {
        calibration.dewarpCalibration(parameters, dewarpResult);
    }
    catch (const std::exception& exception)
    {
        failureText = exception.what();
    }
    QMetaObject::invokeMethod(this, &CalibrationDialog::end, Qt::QueuedConnection);
}

void CalibrationDialog::end()
{
    thread.join();
    // A "Cancel" behind the last picture's end came too late for the run, but not for the user.
    if (isCancelled && failureText.isEmpty())
        failureText = tr("Calibration cancelled");
    accept();
}

/// On the thread of the run.
bool CalibrationDialog::progress(size_t index, const TuningCalibration::View& view)
{
    const auto found = view.isFound ? tr("%1: pattern found").arg(nameOf(view.path))
                                    : nameOf(view.path) + ": " + QString::fromStdString(view.reason);
    QMetaObject::invokeMethod(
        this,
        [this, index, found]
        {
            pLabelLast->setText(found);
            if (!isCancelled)
                imageShow(int(index) + 1);
        },
        Qt::QueuedConnection);
    return !isCancelled;
}

/// `index` is that of the picture that is looked at now.
void CalibrationDialog::imageShow(int index)
{
    const int count = int(parameters.images.size());
    pProgressBar->setValue(index);
    pButtonBox->setEnabled(index < count);
    pLabelImage->setText(
        index < count ? tr("Image %1 of %2: %3").arg(index + 1).arg(count).arg(nameOf(parameters.images[size_t(index)]))
                      : tr("Computing the camera from %1 images...").arg(count));
}
