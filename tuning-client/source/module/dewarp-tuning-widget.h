#pragma once

#include "tuning-calibration/source/tuning-calibration.h"
#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/control/lens-model.h"
#include "tuning-rest/source/dewarp.h"

#include <QByteArray>

#include <vector>

class GridView;
class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTabWidget;

/// "Tuning" of "Dewarp": the matrices, the fisheye mode and a map of the user's. They reach the board when the block is
/// switched on, and when a calibration is done.
class DewarpTuningWidget : public AbstractWidget
{
    Q_OBJECT

public:
    /// What the board does to the picture.
    enum Type : uint32_t
    {
        Distortion = 1,
        FishEyeWhole = 2,
        FishEyeSplit = 4
    };

    // The inner pages have no signals of their own, which nested classes could not have.

    /// The perspective's matrix, which a file of a calibration gives.
    class PerspectiveWidget : public AbstractWidget
    {
    public:
        explicit PerspectiveWidget(QWidget* pParent);

        /// Shows the matrix.
        void matrixShow(const double (&matrix)[9]);

        /// What the boxes hold.
        void matrixStore(double (&matrix)[9]) const;

        virtual void resultLoaded(clb::TuningCalibration::DewarpResult result);

        QPushButton* pPushButtonLoadFile;
        QDoubleSpinBox* pDoubleSpinBoxes3x3[9];
        GridView* pGridView;

    protected:
        /// A group of read-only boxes, `columns` in a row, with room for the text `widest`.
        QGroupBox* boxesBuild(const QString& title, QDoubleSpinBox** boxes, int count, int columns,
                              const QString& widest);

        /// Draws what the boxes hold.
        virtual void modelShow();

    private:
        void loadFile();
    };

    /// The camera's matrix and the coefficients of its lens.
    class DistortionWidget : public PerspectiveWidget
    {
    public:
        explicit DistortionWidget(QWidget* pParent);

        void resultLoaded(clb::TuningCalibration::DewarpResult result) override;

        void coefficientsShow(const double (&coefficients)[8]);
        void coefficientsStore(double (&coefficients)[8]) const;

        QDoubleSpinBox* pDoubleSpinBoxes8x1[8];
        QComboBox* pComboBoxModel; ///< of the picture only: the board knows no model

    protected:
        void modelShow() override;
    };

    /// How a fisheye's picture is split into views.
    class FishEyeWidget : public AbstractWidget
    {
    public:
        /// The digits tell whether the horizontal line, the upper and the lower vertical line are there.
        enum Mode
        {
            Mode_000 = 0,
            Mode_011 = 1,
            Mode_100 = 2,
            Mode_101 = 3,
            Mode_110 = 4,
            Mode_111 = 5,
            Mode_Max = 6
        };

        explicit FishEyeWidget(QWidget* pParent);

        /// The mode of parameters that the board reports; lines that fit none leave `mode` as it is.
        void modeGet(rest::wq700_parameters params, Mode& mode) const;

        /// Sets the type of the parameters, and the lines that the mode has.
        void paramsGet(Mode mode, rest::wq700_parameters& params) const;

        QComboBox* pComboBoxMode;
    };

    explicit DewarpTuningWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    /// Sends what the page holds. False when the map is invalid, which is said and keeps everything back.
    bool configSet();

    /// Takes a calibration over and sends it. Throws when the board does not take it.
    void configSet(clb::TuningCalibration::DewarpResult result);

    /// Samples a map of `width` * `height` values, row by row, on a grid of 16 pixels; the last row and column of the
    /// grid sit on those of the map. `grid` has `columns` * `rows` values then.
    static void createGridMap(uint32_t width, uint32_t height, const uint32_t* values, uint32_t& columns,
                              uint32_t& rows, std::vector<uint32_t>& grid);

    /// The grid of the map in a file. A file that can't be opened leaves it empty, and its text in the status bar.
    /// False for one that is no whole map.
    bool mapGet(QString path, QByteArray& map);

    void updateStatus() override;

    /// What the picture of the coefficients takes them for.
    void lensModelSet(lens::Model model);

    QCheckBox* pCheckBoxEnable;
    QLineEdit* pLineEditMapPath;
    QPushButton* pPushButtonLoadMap;
    QTabWidget* pTabWidget;
    DistortionWidget* pDistortionWidget;
    FishEyeWidget* pFishEyeWidget;
    PerspectiveWidget* pPerspectiveWidget;

private:
    void freeSet(bool isFree);
};
