#include "tests/support/board-fixture.h"
#include "tests/support/board-picture.h"
#include "tuning-client/source/control/calibration-dialog.h"
#include "tuning-client/source/control/grid-view.h"
#include "tuning-client/source/control/lens-model.h"
#include "tuning-client/source/module/dewarp-calibration-widget.h"
#include "tuning-client/source/module/dewarp-tuning-widget.h"
#include "tuning-client/source/module/dewarp-widget.h"

#include <array>
#include <numeric>

#include <sys/stat.h>

using rest::Dewarp;
using Parameters = clb::TuningCalibration::DewarpParameters;

namespace
{
class DewarpPageTest : public BoardTest
{
protected:
    static constexpr int64_t configSetId = 30002;
    static constexpr int64_t enableSetId = 30004;

    DewarpPageTest() : page(shown<DewarpWidget>("Dewarp")), calibration(*page.pDewarpCalibrationWidget)
    {
        config.preferences.calibration.path = QDir::currentPath();
        QFile::remove("user_map.bin");
    }

    /// Shows the inner page, read.
    DewarpTuningWidget& tuning()
    {
        page.pComboBox->setCurrentText("Tuning");
        QApplication::processEvents();
        board->requestsClear();
        return *page.pDewarpTuningWidget;
    }

    void mapLoad(const QString& path)
    {
        const FileDialogAnswer answer(path);
        tuning().pPushButtonLoadMap->click();
        EXPECT_EQ(str(answer.seen), str("Select File|" + QDir::currentPath() + "|All (*.*)"));
    }

    static void mapWrite(const QString& path, std::vector<uint32_t> head, const std::vector<uint32_t>& values = {})
    {
        head.insert(head.end(), values.begin(), values.end());
        fileWrite(path, QByteArray(reinterpret_cast<const char*>(head.data()), int(head.size() * sizeof head[0])));
    }

    QByteArray mapSent() const
    {
        return QByteArray::fromStdString(t_common::Base64::decode(lastQuery(configSetId)["map"].asString()));
    }

    /// The board has these parameters from now on.
    void boardSet(const Dewarp::Config& value)
    {
        Json::Value query;
        query["config"] = t_common::Base64::encode(value);
        query["map"] = "";
        run(configSetId, query);
    }

    /// Pictures of a chessboard by a known camera, the first ones of the good poses; their paths.
    static QStringList picturesTake(int count)
    {
        Parameters parameters;
        const board_picture::Photographer photographer(board_picture::cameraOf(Parameters::Fisheye), parameters);
        QStringList paths;
        for (int i = 0; i < count; ++i)
        {
            const auto image = photographer.take(board_picture::goodPoses()[size_t(i)]);
            paths.append(QDir::current().filePath(QString("board%1.jpg").arg(i)));
            EXPECT_TRUE(QImage(image.grey.data(), image.width, image.height, image.width, QImage::Format_Grayscale8)
                            .save(paths.last(), "JPG", 95));
        }
        return paths;
    }

    /// Chooses the pictures and waits for the end of the run.
    void calibrate(const QStringList& paths)
    {
        calibration.pLabelReport->clear();
        const FileDialogAnswer answer('"' + paths.join("\" \"") + '"');
        calibration.pPushButtonLoadImage->click();
        EXPECT_EQ(str(answer.seen), str("Select File|" + QDir::currentPath() + "|Image (*.jpg)"));
        EXPECT_TRUE(waitUntil([this] { return !calibration.pLabelReport->text().isEmpty(); }));
        EXPECT_TRUE(waitUntil([this] { return !calibration.findChild<CalibrationDialog*>(); }));
    }

    DewarpWidget& page;
    DewarpCalibrationWidget& calibration;
};
} // namespace

TEST_F(DewarpPageTest, EachTabAndModeSendsItsTypeAndLines)
{
    auto& widget = tuning();
    const auto& modes = *widget.pFishEyeWidget;
    const auto isAnyFree = [&]
    {
        return widget.pPushButtonLoadMap->isEnabled() || widget.pLineEditMapPath->isEnabled() ||
               widget.pTabWidget->isEnabled();
    };
    struct Row
    {
        int tab;
        const char* mode;
        uint32_t type, horizon, up, down;
    };
    for (const auto& row :
         {Row{0, "1-1-1", 1, 716, 716, 716}, Row{2, "0-1-1", 1, 716, 716, 716}, Row{1, "0-0-0", 2, 716, 716, 716},
          Row{1, "0-1-1", 4, 0, 960, 960}, Row{1, "1-0-0", 4, 544, 0, 0}, Row{1, "1-0-1", 4, 544, 0, 960},
          Row{1, "1-1-0", 4, 544, 960, 0}, Row{1, "1-1-1", 4, 544, 960, 960}})
    {
        SCOPED_TRACE(row.mode + std::to_string(row.tab));
        widget.pTabWidget->setCurrentIndex(row.tab);
        modes.pComboBoxMode->setCurrentText(row.mode);
        EXPECT_FALSE(modes.pComboBoxMode->itemIcon(modes.pComboBoxMode->currentIndex()).availableSizes().isEmpty());
        widget.pCheckBoxEnable->click();
        const auto sent = record<Dewarp::Config>("Dewarp");
        EXPECT_EQ(sent.params.dewarp_type, row.type);
        EXPECT_EQ(sent.params.split_horizon_line, row.horizon);
        EXPECT_EQ(sent.params.split_vertical_line_up, row.up);
        EXPECT_EQ(sent.params.split_vertical_line_down, row.down);
        EXPECT_FALSE(isAnyFree());
        widget.pCheckBoxEnable->click();
        EXPECT_TRUE(widget.pPushButtonLoadMap->isEnabled() && widget.pLineEditMapPath->isEnabled());
        // A read shows the type's tab and, where the lines are those of a mode, the mode.
        modes.pComboBoxMode->setCurrentText("1-0-0");
        refresh();
        EXPECT_EQ(widget.pTabWidget->currentIndex(), row.type == 1 ? 0 : 1);
        EXPECT_EQ(str(modes.pComboBoxMode->currentText()), row.horizon == 716 ? "1-1-1" : row.mode);
    }
    boardSwitch(enableSetId, true);
    refresh();
    EXPECT_TRUE(widget.pCheckBoxEnable->isChecked() && !isAnyFree());
}

TEST_F(DewarpPageTest, ReadsTheFirstMapAndSendsNothingElseOfIt)
{
    Dewarp::Config read;
    std::iota(read.distortionMap[0].camera_matrix, read.distortionMap[0].camera_matrix + 9, 1.5);
    std::iota(read.distortionMap[0].perspective_matrix, read.distortionMap[0].perspective_matrix + 9, -20.25);
    std::iota(read.distortionMap[0].distortion_coeff, read.distortionMap[0].distortion_coeff + 8, 0.0000125);
    read.distortionMap[1] = read.distortionMap[0];
    read.params.hflip = true;
    read.params.split_horizon_line = 0; // with unequal vertical lines: no mode
    read.params.split_vertical_line_up = 0;
    read.params.dewarp_type = 4;
    auto& widget = tuning();
    widget.pFishEyeWidget->pComboBoxMode->setCurrentText("1-0-1");
    const auto preview = [&] { return widget.pDistortionWidget->pGridView->grab().toImage(); };
    auto drawn = preview();
    const auto isNew = [&] { return std::exchange(drawn, preview()) != drawn; };
    widget.pDistortionWidget->pComboBoxModel->setCurrentIndex(1);
    EXPECT_TRUE(isNew());
    const auto projected = widget.pPerspectiveWidget->pGridView->grab().toImage();
    boardSet(read);
    refresh();
    EXPECT_TRUE(isNew() && widget.pPerspectiveWidget->pGridView->grab().toImage() != projected);
    for (const auto* pBox : widget.pTabWidget->findChildren<QDoubleSpinBox*>())
        EXPECT_TRUE(pBox->isReadOnly());
    for (const uint32_t width : {640, 0, 20000})
    {
        read.params.input_res[0].width = width;
        boardSet(read);
        refresh();
        EXPECT_EQ(isNew(), width == 640) << width;
    }
    EXPECT_EQ(widget.pTabWidget->currentIndex(), 1);
    EXPECT_EQ(str(widget.pFishEyeWidget->pComboBoxMode->currentText()), "1-0-1");

    widget.pCheckBoxEnable->click();
    const auto sent = record<Dewarp::Config>("Dewarp");
    Dewarp::Config expected;
    auto& map = expected.distortionMap[0];
    std::copy_n(read.distortionMap[0].camera_matrix, 9, map.camera_matrix);
    std::copy_n(read.distortionMap[0].perspective_matrix, 9, map.perspective_matrix);
    std::copy_n(read.distortionMap[0].distortion_coeff, 8, map.distortion_coeff);
    std::for_each_n(map.distortion_coeff, 8, [](double& k) { k = std::round(k * 1e7) / 1e7; });
    widget.pFishEyeWidget->paramsGet(DewarpTuningWidget::FishEyeWidget::Mode_101, expected.params);
    EXPECT_EQ(std::memcmp(&sent, &expected, sizeof sent), 0);
}

TEST_F(DewarpPageTest, SamplesTheMapOnAGridAndKeepsACopy)
{
    auto& widget = tuning();
    struct Row
    {
        uint32_t width, height, columns, rows;
    };
    for (const auto& row : {Row{1920, 1080, 121, 69}, Row{16384, 17, 1025, 3}, Row{1, 17, 2, 3}})
    {
        SCOPED_TRACE(row.width);
        std::vector<uint32_t> values(size_t(row.width) * row.height);
        std::iota(values.begin(), values.end(), 7U);
        mapWrite("map.bin", {row.width, row.height, 1, 2}, values);
        mapLoad(QDir::current().filePath("map.bin"));
        widget.pCheckBoxEnable->click();
        const auto map = mapSent();
        ASSERT_EQ(map.size(), int(row.columns * row.rows * 4));
        const auto at = [&](uint32_t column, uint32_t line)
        {
            uint32_t value = 0;
            std::memcpy(&value, map.data() + 4 * size_t(line * row.columns + column), sizeof value);
            return value;
        };
        EXPECT_EQ(at(0, 0), 7U);
        EXPECT_EQ(at(0, 1), 7 + 16 * row.width);
        EXPECT_EQ(at(1, row.rows - 2), 7 + qMin(16U, row.width - 1) + (row.rows - 2) * 16 * row.width);
        EXPECT_EQ(at(row.columns - 1, row.rows - 1), values.back());
        EXPECT_EQ(fileRead("user_map.bin"), map);
        widget.pCheckBoxEnable->click();
    }
    mapLoad(QString());
    EXPECT_EQ(str(widget.pLineEditMapPath->text()), "");
    widget.pCheckBoxEnable->click();
    EXPECT_EQ(mapSent().size() + fileRead("user_map.bin").size(), 0);
}

TEST_F(DewarpPageTest, ABadMapIsToldAndOnlyAMissingOneIsSentAsNone)
{
    auto& widget = tuning();
    const auto path = QDir::current().filePath("bad.bin");
    const std::vector<std::vector<uint32_t>> heads{{2, 2, 0, 0, 1, 2, 3}, {0, 1, 0, 0, 1},      {1, 0, 0, 0, 1},
                                                   {16385, 1, 0, 0},      {65536, 65536, 0, 0}, {4, 4}};
    for (const auto& head : heads)
    {
        mapWrite(path, head);
        mapLoad(path);
        widget.pCheckBoxEnable->click();
        EXPECT_EQ(str(status()), str("Map is invalid: " + path));
        EXPECT_EQ(sent(configSetId) + sent(enableSetId), 0U);
        EXPECT_FALSE(widget.pCheckBoxEnable->isChecked());
        EXPECT_TRUE(widget.pTabWidget->isEnabled());
    }
    QFile::remove(path);
    ::mkfifo(path.toUtf8(), 0600);
    for (int i = 0; i < 2; ++i)
    {
        fileWrite("user_map.bin", "old");
        widget.pCheckBoxEnable->click();
        EXPECT_EQ(str(status()), str("Open file failed: " + path));
        EXPECT_EQ(sent(configSetId), size_t(i + 1));
        EXPECT_EQ(mapSent().size() + fileRead("user_map.bin").size(), 0);
        widget.pCheckBoxEnable->click();
        QFile::remove(path);
    }
    QFile::remove("user_map.bin");
    QDir().mkdir("user_map.bin");
    widget.pCheckBoxEnable->click();
    EXPECT_TRUE(status().startsWith("Saving of \"user_map.bin\" failed: ")) << str(status());
    EXPECT_EQ(sent(configSetId), 3U);
    QDir().rmdir("user_map.bin");
}

TEST_F(DewarpPageTest, ACalibrationGoesToTheBoardAlsoWhileTheBlockRuns)
{
    boardSwitch(enableSetId, true);
    auto paths = picturesTake(6);
    paths.append(QDir::current().filePath("a&lt;%1.jpg"));
    fileWrite("a&lt;%1.jpg", "no picture");
    Dewarp::Config before;
    before.distortionMap[0].distortion_coeff[4] = 0.25;
    boardSet(before);
    auto* pModel = page.pDewarpTuningWidget->pDistortionWidget->pComboBoxModel;
    pModel->setCurrentIndex(1);
    board->requestsClear();
    QString atTheEnd;
    const Modals dialogs(
        [&](QDialog& dialog)
        {
            if (!qobject_cast<CalibrationDialog*>(&dialog) || !atTheEnd.isNull())
                return;
            atTheEnd = "";
            QObject::connect(&dialog, &QDialog::finished,
                             [&]
                             {
                                 for (auto* pLabel : dialog.findChildren<QLabel*>())
                                     atTheEnd += pLabel->text() + '|';
                                 atTheEnd += QString::number(dialog.findChild<QProgressBar*>()->value());
                                 EXPECT_FALSE(dialog.findChild<QDialogButtonBox*>()->isEnabled());
                             });
        });
    calibrate(paths);
    EXPECT_EQ(str(atTheEnd), "Computing the camera from 7 images...|a&lt;%1.jpg: no picture, or too large|7");
    EXPECT_EQ(pModel->currentIndex(), 0);
    const auto camera = board_picture::cameraOf(Parameters::Fisheye);
    const auto sent = record<Dewarp::Config>("Dewarp");
    const auto& map = sent.distortionMap[0];
    EXPECT_EQ(this->sent(configSetId), 1U);
    EXPECT_EQ(this->sent(enableSetId), 0U);
    EXPECT_EQ(sent.params.dewarp_type, 1U);
    EXPECT_NEAR(map.camera_matrix[0], camera.fx, camera.fx * 0.005);
    EXPECT_NEAR(map.distortion_coeff[0], camera.k[0], 0.01);
    EXPECT_EQ(std::memcmp(map.camera_matrix, map.perspective_matrix, sizeof map.camera_matrix), 0);
    EXPECT_EQ(map.distortion_coeff[4], 0.25) << "read first";

    const auto* pTable = calibration.pTableReport;
    ASSERT_EQ(pTable->rowCount(), 7);
    EXPECT_LT(pTable->item(0, 1)->text().toDouble(), 0.3);
    EXPECT_EQ(str(pTable->item(6, 0)->text() + pTable->item(6, 1)->text()), "a&lt;%1.jpg");
    EXPECT_TRUE(pTable->item(6, 0)->toolTip().endsWith("/a&amp;lt;%1.jpg</p>")) << str(pTable->item(6, 0)->toolTip());
    EXPECT_EQ(str(pTable->item(6, 2)->text()), "no picture, or too large");
    EXPECT_TRUE(calibration.pLabelReport->text().contains("over 6 of 7 images"));

    // The file that was written gives the same.
    const auto files = QDir().entryList({"dewarp_*.yml"});
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(
        QRegularExpression("^dewarp_\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d\\.yml$").match(files[0]).hasMatch());
    boardSwitch(enableSetId, false);
    boardSet(Dewarp::Config());
    auto& widget = tuning();
    for (auto* pWidget :
         {static_cast<DewarpTuningWidget::PerspectiveWidget*>(widget.pDistortionWidget), widget.pPerspectiveWidget})
    {
        const FileDialogAnswer answer(QDir::current().filePath(files[0]));
        pWidget->pPushButtonLoadFile->click();
        EXPECT_EQ(str(answer.seen), str("Select File|" + QDir::currentPath() + "|YAML (*.yml)"));
        EXPECT_NEAR(pWidget->pDoubleSpinBoxes3x3[4]->value(), map.camera_matrix[4], 1e-6);
    }
    EXPECT_NEAR(widget.pDistortionWidget->pDoubleSpinBoxes8x1[3]->value(), map.distortion_coeff[3], 1e-6);
    EXPECT_EQ(board->requests().size(), 0U) << "loading sends nothing";
    QFile::remove(files[0]);
    for (const auto& path : {QString(), paths.last()})
    {
        const FileDialogAnswer answer(path);
        const auto told = str(status());
        widget.pDistortionWidget->pPushButtonLoadFile->click();
        EXPECT_EQ(str(status()), path.isEmpty() ? told : "Reading of \"" + str(path) + "\" failed: it is no YAML");
    }

    config.preferences.calibration.path = QDir::current().filePath("nowhere");
    calibrate(paths);
    EXPECT_TRUE(QRegularExpression("^Saving of \".*\" failed: No such file or directory$").match(status()).hasMatch());
    EXPECT_TRUE(calibration.pLabelReport->text().endsWith(status())) << str(status());
    EXPECT_EQ(this->sent(configSetId), 1U);
}

TEST_F(DewarpPageTest, ControlsGoIntoTheParameters)
{
    const auto parameters = [&] { return calibration.parametersGet({"b.jpg", "a.jpg"}); };
    const auto first = parameters();
    EXPECT_EQ(std::tuple(first.width, first.height, first.frameNumbers, first.aspectRatio), std::tuple(9, 7, 2, 1.0F));
    EXPECT_EQ(first.images, (std::vector<std::string>{"b.jpg", "a.jpg"}));
    EXPECT_EQ(first.outputFileName.find(str(config.preferences.calibration.path + "/dewarp_")), 0U);
    EXPECT_EQ(first.pattern, Parameters::Chessboard);
    calibration.pSpinBoxCornerVertical->setValue(5);
    EXPECT_EQ(parameters().height, 5);
    QRadioButton* const patterns[]{calibration.pRadioButtonAcircles, calibration.pRadioButtonChessboard,
                                   calibration.pRadioButtonCircles};
    QRadioButton* const modes[]{calibration.pRadioButtonFisheye, calibration.pRadioButtonWideAngle};
    QCheckBox* const boxes[][3]{{calibration.pCheckBoxFisheyeCheckCond, calibration.pCheckBoxFisheyeFixSkew,
                                 calibration.pCheckBoxFisheyeRecomputeExtrinsic},
                                {calibration.pCheckBoxWideAngleFixAspectRatio,
                                 calibration.pCheckBoxWideAngleFixPrincipalPoint,
                                 calibration.pCheckBoxWideAngleZeroTangentDist}};
    for (int pattern = 2; pattern >= 0; --pattern)
    {
        patterns[pattern]->click();
        EXPECT_EQ(parameters().pattern, pattern);
    }
    for (const int mode : {0, 1})
    {
        modes[mode]->click();
        EXPECT_EQ(parameters().mode, mode);
        const auto& options = boxes[mode];
        EXPECT_TRUE(std::all_of(options, options + 3, [&](auto* pBox) { return pBox->isChecked() == (mode == 0); }));
        for (auto* pOnly : options)
        {
            for (auto* pBox : options)
                pBox->setChecked(pBox == pOnly);
            const auto held = parameters().modeConfig;
            const std::array<bool, 3> shown{options[0]->isChecked(), options[1]->isChecked(), options[2]->isChecked()};
            EXPECT_EQ(std::memcmp(&held, &shown, 3), 0) << mode << str(pOnly->text());
        }
    }
}

TEST_F(DewarpPageTest, ARunWithoutAResultSendsNothing)
{
    auto paths = picturesTake(1);
    calibrate(paths);
    EXPECT_EQ(str(status()), "Calibration failed: pattern found in 1 of 1 pictures, 3 are needed");
    EXPECT_EQ(sent(configSetId), 0U);
    EXPECT_EQ(calibration.pTableReport->rowCount(), 1);
    EXPECT_TRUE(QDir().entryList({"dewarp_*.yml"}).isEmpty());

    EXPECT_TRUE(calibration.pGroupBoxFisheye->isVisible() && !calibration.pGroupBoxWideAngle->isVisible());
    calibration.pRadioButtonWideAngle->click();
    EXPECT_TRUE(!calibration.pGroupBoxFisheye->isVisible() && calibration.pGroupBoxWideAngle->isVisible());
    // Not the corners that are in the picture.
    calibration.pSpinBoxCornerHorizontal->setValue(10);
    calibrate(paths);
    EXPECT_EQ(str(status()), "Calibration failed: pattern found in 0 of 1 pictures, 3 are needed");
}

TEST_F(DewarpPageTest, ARunCanBeCancelledAndOutlivesNoWindow)
{
    const auto paths = picturesTake(6);
    const auto run = [&](const std::function<void(CalibrationDialog&)>& fDialog)
    {
        const Modals dialogs(
            [&](QDialog& dialog)
            {
                if (auto* pDialog = qobject_cast<CalibrationDialog*>(&dialog))
                    fDialog(*pDialog);
            });
        calibrate(paths);
    };
    run([](CalibrationDialog& dialog)
        { dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click(); });
    EXPECT_EQ(str(status()), "Calibration cancelled");
    EXPECT_EQ(sent(configSetId), 0U);

    const FileDialogAnswer answer('"' + paths.join("\" \"") + '"');
    calibration.pPushButtonLoadImage->click();
    EXPECT_TRUE(qobject_cast<CalibrationDialog*>(QApplication::activeModalWidget()));
    pMainWindow.reset();
    EXPECT_TRUE(QDir().entryList({"dewarp_*.yml"}).isEmpty());
}

TEST(LensModelTest, DrawsWhatTheLensDoes)
{
    const double matrix[9] = {700, 0, 950, 0, 710, 530, 0, 0, 1};
    const double k[8] = {-0.1, 0.02, 0.003, -0.004, 0.05, 0.01, -0.02, 0.005};
    const QPointF point(1500, 900);
    // Figures of another program.
    const auto fisheye = lens::distorted(lens::Model::Fisheye, matrix, k, point);
    const auto wideAngle = lens::distorted(lens::Model::WideAngle, matrix, k, point);
    EXPECT_NEAR(fisheye.x(), 1368.7381698, 1e-6);
    EXPECT_NEAR(fisheye.y(), 811.6965869, 1e-6);
    EXPECT_NEAR(wideAngle.x(), 1476.6975115, 1e-6);
    EXPECT_NEAR(wideAngle.y(), 887.8915823, 1e-6);
    const auto projected = lens::projected({2, 0.5, 10, 0.25, 3, -5, 0.001, 0.002, 1}, {100, 50});
    EXPECT_NEAR(projected.x(), 235 / 1.2, 1e-9);
    EXPECT_NEAR(projected.y(), 170 / 1.2, 1e-9);
    EXPECT_EQ(lens::distorted(lens::Model::Fisheye, matrix, k, {950, 530}), QPointF(950, 530));
    const double skewed[9] = {700, 20, 950, 0, 710, 530, 0, 0, 1};
    EXPECT_NEAR(lens::distorted(lens::Model::WideAngle, skewed, {}, point).x(), point.x(), 1e-9);
}
