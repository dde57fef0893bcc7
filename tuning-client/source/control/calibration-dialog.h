#pragma once

#include "tuning-calibration/source/tuning-calibration.h"
#include "tuning-client/source/abstract-dialog.h"

#include <QString>

#include <atomic>
#include <thread>

class QDialogButtonBox;
class QLabel;
class QProgressBar;

/// Holds the window while a calibration runs in a thread, and tells which picture it has reached. "Cancel" ends it
/// behind that picture; the dialog closes by itself when the run is over.
class CalibrationDialog : public AbstractDialog
{
    Q_OBJECT

public:
    /// The run starts at once.
    CalibrationDialog(QWidget* pParent, const clb::TuningCalibration::DewarpParameters& parameters);

    /// Ends a run behind the picture that it has reached, and waits for that.
    ~CalibrationDialog() override;

    void reject() override;

    // What the run has brought, once the dialog has finished.

    const clb::TuningCalibration::DewarpResult& result() const { return dewarpResult; }
    const clb::TuningCalibration::Report& report() const { return calibration.report(); }

    /// Why there is no result; empty where there is one.
    const QString& failure() const { return failureText; }

private:
    void run();
    void end();
    bool progress(size_t index, const clb::TuningCalibration::View& view);
    void imageShow(int index);

    const clb::TuningCalibration::DewarpParameters parameters;
    clb::TuningCalibration calibration;
    clb::TuningCalibration::DewarpResult dewarpResult{};
    QString failureText;
    QLabel* pLabelImage;
    QLabel* pLabelLast;
    QProgressBar* pProgressBar;
    QDialogButtonBox* pButtonBox;
    std::atomic<bool> isCancelled = false;
    std::thread thread;
};
