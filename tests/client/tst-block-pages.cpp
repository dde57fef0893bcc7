// What the pages of single blocks do beside their rows.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/cac-plot.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/module/cac-widget.h"
#include "tuning-client/source/module/cproc-widget.h"
#include "tuning-client/source/module/demosaic-widget.h"
#include "tuning-client/source/module/demosaic2-widget.h"
#include "tuning-client/source/module/img-effects-widget.h"
#include "tuning-client/source/module/lsc-widget.h"
#include "tuning-client/source/module/rgbir-widget.h"

#include <qwt_plot_curve.h>

using board::Fault;
using V2 = rest::DeMosaic::Config::V2;

namespace
{
using BlockPagesTest = BoardTest;
} // namespace

TEST_F(BlockPagesTest, LabelsOfColorProcessingGreyWithTheirBoxes)
{
    const auto& color = shown<CProcWidget>("Color Processing");
    for (const auto* pLabel :
         {color.pQLabelChrominanceclippingrangeatoutput, color.pQLabelLuminanceinputrangeoffsetprocessing,
          color.pQLabelLuminanceclippingrangeatoutput})
        EXPECT_FALSE(pLabel->isEnabled());
}

TEST_F(BlockPagesTest, LensShadingShowsEachTableRowByRow)
{
    auto status = rest::recordZero<rest::Lsc::Status>();
    auto& [grid, gain] = status.config;
    for (int i = 0; i < 8; ++i)
    {
        grid.LscXSizeTbl[i] = uint16_t(10 + i);
        grid.LscYSizeTbl[i] = uint16_t(20 + i);
        grid.LscXGradTbl[i] = uint16_t(30 + i);
        grid.LscYGradTbl[i] = uint16_t(40 + i);
    }
    uint16_t* tables[] = {gain.LscRDataTbl, gain.LscGRDataTbl, gain.LscGBDataTbl, gain.LscBDataTbl};
    for (int table = 0; table < 4; ++table)
        for (int i = 0; i < 289; ++i)
            tables[table][i] = uint16_t(1000 * table + i);
    answerSet("Lsc::statusGet"_id, "config", status);
    auto& widget = shown<LscWidget>("Lens Shading Correction");
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(str(widget.pStandardItemModelSector->item(7, column)->text()), std::to_string(10 * column + 17));
    const QStandardItemModel* models[] = {widget.pStandardItemModelGainRed, widget.pStandardItemModelGainGreenRed,
                                          widget.pStandardItemModelGainGreenBlue, widget.pStandardItemModelGainBlue};
    for (int table = 0; table < 4; ++table)
        for (const auto& [row, column, i] : {std::tuple(0, 0, 0), {1, 0, 17}, {16, 16, 288}})
            EXPECT_EQ(str(models[table]->item(row, column)->text()), std::to_string(1000 * table + i));
}

// What no control shows stays as the board has it at that moment, not as the page has read it.
TEST_F(BlockPagesTest, RgbirChangesOnlyItsOwnFields)
{
    auto& widget = shown<RgbirWidget>("Rgbir");
    EXPECT_FALSE(widget.pPushButtonEditTable->isVisible()) << "there is no table";
    auto settings = record<rest::Rgbir::Config>("Rgbir");
    settings.gain_r = 3.5;
    settings.rgbirBpt = rest::CAM_ENGINE_RGBIR_BPT_IRGGR;
    recordSet("Rgbir", settings);
    widget.pSliderSpinWidgetBlsIr->setValue(99);
    settings.bls_ir = 99;
    EXPECT_EQ(board->recordGet("Rgbir", 0), bytes(settings));
    refuse("Rgbir::configGet"_id);
    board->requestsClear();
    widget.pSliderSpinWidgetBlsIr->setValue(100);
    EXPECT_EQ(status(), "Server: not now");
    EXPECT_EQ(sent("Rgbir::configSet"_id), 0u);
}

TEST_F(BlockPagesTest, DemosaicingIsBypassedByItsBox)
{
    auto& widget = shown<DeMosaicWidget>("Demosaicing");
    for (const bool isOn : {false, true})
    {
        widget.pCheckBoxEnable->setChecked(isOn);
        widget.sliderSpinWidgets[0]->setValue(isOn ? 90 : 80);
        const auto settings = record<rest::DeMosaic::Config>("DeMosaic");
        EXPECT_EQ(settings.v1.threshold, isOn ? 90 : 80);
        EXPECT_EQ(settings.v1.isBypass, isOn);
    }
}

TEST_F(BlockPagesTest, Demosaicing2StoresTheMovedFieldOnly)
{
    auto settings = record<rest::DeMosaic::Config>("DeMosaic", "config", 1);
    auto& v2 = settings.v2;
    v2.isBypass = true;
    v2.sharpenLine.shift2 = 200;
    v2.cac.c.blue = 0x1234;
    v2.dePurple.threshold = 3;
    v2.dePurple.cbCrMode = V2::DePurple::CbCrMode(77);
    recordSet("DeMosaic", settings, 1);
    auto& widget = shown<DeMosaic2Widget>("Demosaicing 2");
    const auto& purple = *widget.pDeMosaic2PageDePurple;
    widget.pTabWidget->setCurrentWidget(widget.pDeMosaic2PageDePurple);
    EXPECT_EQ(board->requestCount(), 0u) << "a tab shows what the page has read";
    EXPECT_EQ(purple.pSliderSpinWidgetThreshold->value(), 8);
    EXPECT_EQ(purple.pComboBoxCbCrMode->currentText(), "Off");
    purple.pSliderSpinWidgetSaturationShrink->setValue(5);
    v2.dePurple.saturationShrink = 5;
    EXPECT_EQ(board->recordGet("DeMosaic", 1), bytes(settings));

    // A refused change is in the record, and so in the next one.
    refuse("DeMosaic::configSet"_id);
    purple.pComboBoxCbCrMode->setCurrentIndex(2);
    EXPECT_EQ(status(), "Server: not now");
    board->faultsClear();
    widget.pDeMosaic2PageSharppen->pSliderSpinWidgetSharppenLineShift1->setValue(9);
    v2.dePurple.cbCrMode = V2::DePurple::Blue;
    v2.sharpenLine.shift1 = 9;
    EXPECT_EQ(board->recordGet("DeMosaic", 1), bytes(settings));
}

namespace
{
class AberrationTest : public BlockPagesTest
{
protected:
    AberrationTest()
    {
        boardSwitch("Cac::enableSet"_id, false);
        emit pMainWindow->refresh();
        board->requestsClear();
    }

    void tick() { BoardTest::tick(widget.pTimer); }

    /// The red value at the middle of the picture.
    double middle() const { return widget.pCacPlot->curve->sample(256).y(); }

    CacWidget& widget = shown<CacWidget>("Chromatic Aberration Correction");
};
} // namespace

TEST_F(AberrationTest, PollsWhileOnAndShown)
{
    const auto expect = [&](bool isOn)
    {
        EXPECT_EQ(widget.pTimer->isActive(), isOn);
        for (const auto* pBox : {widget.pGroupBox, widget.pGroupBox2, widget.pGroupBox3})
            EXPECT_EQ(pBox->isEnabled(), !isOn);
    };
    EXPECT_EQ(widget.pTimer->interval(), 1000);
    expect(false);
    widget.pCheckBoxEnable->click();
    expect(true);
    refuse("Cac::statusGet"_id);
    tick();
    EXPECT_EQ(status(), "Server: not now");
    expect(true);
    page("Register");
    EXPECT_FALSE(widget.pTimer->isActive());
    page("Chromatic Aberration Correction");
    expect(true);
    boardSwitch("Cac::enableSet"_id, false);
    emit pMainWindow->refresh();
    expect(false);
}

TEST_F(AberrationTest, DrawsWhatTheBoxesHold)
{
    auto coeffs = rest::recordZero<rest::Cac::Status>();
    coeffs.coeff[rest::Cac::Status::Red] = {20, 0, 0.00004};
    coeffs.coeff[rest::Cac::Status::Blue] = {1, 2, 3};
    coeffs.hCenterOffset = 640;
    coeffs.vCenterOffset = 9000;
    answerSet("Cac::statusGet"_id, "status", coeffs);
    refuse("Sensor::statusGet"_id);
    widget.pCheckBoxEnable->click();
    tick();
    EXPECT_EQ(widget.pDoubleSpinBoxRedLinearCoeff->value(), 15.9375);
    EXPECT_EQ(widget.pDoubleSpinBoxRedCubicalCoeff->value(), 0);
    EXPECT_EQ(widget.pDoubleSpinBoxBlueLinearCoeff->value(), 1);
    EXPECT_EQ(widget.pDoubleSpinBoxBlueSquareCoeff->value(), 2);
    EXPECT_EQ(widget.pDoubleSpinBoxBlueCubicalCoeff->value(), 3);
    EXPECT_EQ(widget.pSpinBoxCenterVertOffset->value(), 8191);
    EXPECT_EQ(widget.pCacPlot->curve1->sample(512).y(), 6);
    EXPECT_EQ(widget.pCacPlot->curve->sample(512).y(), 15.9375);
    EXPECT_EQ(middle(), 0) << "the width is not known";
    EXPECT_FALSE(status().startsWith("Server")) << "which is nobody's concern";

    board->faultsClear();
    emit pMainWindow->refresh();
    tick();
    EXPECT_DOUBLE_EQ(middle(), 15.9375 * 640 * 513 / 1920 / 256);

    coeffs.coeff[rest::Cac::Status::Red] = {4, 2, 1};
    coeffs.hCenterOffset = 0;
    answerSet("Cac::statusGet"_id, "status", coeffs);
    tick();
    EXPECT_EQ(widget.pCacPlot->curve->sample(384).y(), 2.625);
    EXPECT_EQ(widget.pCacPlot->curve1->sample(384).y(), 1.375);
}

namespace
{
class ImageEffectsTest : public BlockPagesTest
{
protected:
    using Config = rest::OptrixIeConfig_t;

    /// What the board has after the block was switched on, and off again.
    Config switched()
    {
        board->requestsClear();
        widget.pCheckBoxEnable->click();
        widget.pCheckBoxEnable->click();
        EXPECT_EQ(sent("Ie::configSet"_id), 1u);
        return record<Config>("Ie");
    }

    void planesSet(bool isRed, bool isGreen, bool isBlue)
    {
        widget.pCheckBoxRed->setChecked(isRed);
        widget.pCheckBoxGreen->setChecked(isGreen);
        widget.pCheckBoxBlue->setChecked(isBlue);
    }

    QString planes() const
    {
        return QString("%1%2%3")
            .arg(widget.pCheckBoxRed->isChecked() ? "r" : "")
            .arg(widget.pCheckBoxGreen->isChecked() ? "g" : "")
            .arg(widget.pCheckBoxBlue->isChecked() ? "b" : "");
    }

    ImgEffectsWidget& widget = shown<ImgEffectsWidget>("Image Effects");
};
} // namespace

TEST_F(ImageEffectsTest, SwitchingOnSendsWhatIsChosen)
{
    widget.pSliderSpinWidgetTintCb->setValue(200);
    widget.pSliderSpinWidgetTintCr->setValue(3);
    auto sepia = switched();
    EXPECT_EQ(sepia.mode, rest::OPTRIX_IE_MODE_SEPIA);
    EXPECT_EQ(sepia.ModeConfig.Sepia.TintCb, 200);
    EXPECT_EQ(sepia.ModeConfig.Sepia.TintCr, 3);

    widget.pRadioButtonRangeFull->click();
    for (auto* pButton : {widget.pRadioButtonGrayScale, widget.pRadioButtonNegative})
    {
        pButton->click();
        EXPECT_TRUE(widget.pGroupBoxSepia->isHidden());
        const auto plain = switched();
        EXPECT_EQ(plain.mode, pButton == widget.pRadioButtonNegative ? 2u : 1u);
        EXPECT_EQ(plain.range, rest::OPTRIX_IE_RANGE_FULL_RANGE);
        EXPECT_EQ(bytes(plain.ModeConfig), std::string(sizeof plain.ModeConfig, '\0'));
    }

    widget.pRadioButtonColorSelection->click();
    widget.pSliderSpinWidgetColorThreshold->setValue(77);
    const struct
    {
        bool isRed, isGreen, isBlue;
        uint32_t selection;
    } rows[] = {{true, true, true, 1},  {true, true, false, 7},  {true, false, true, 6}, {true, false, false, 5},
                {false, true, true, 4}, {false, true, false, 3}, {false, false, true, 2}};
    for (const auto& row : rows)
    {
        planesSet(row.isRed, row.isGreen, row.isBlue);
        const auto color = switched();
        EXPECT_EQ(color.mode, rest::OPTRIX_IE_MODE_COLOR);
        EXPECT_EQ(color.ModeConfig.ColorSelection.col_selection, row.selection);
        EXPECT_EQ(color.ModeConfig.ColorSelection.col_threshold, 77);
        // A read checks what the record names, and leaves the rest.
        const auto before = planes();
        planesSet(false, false, false);
        widget.pSliderSpinWidgetColorThreshold->setValue(5);
        emit pMainWindow->refresh();
        EXPECT_EQ(planes(), before);
        EXPECT_EQ(widget.pSliderSpinWidgetColorThreshold->value(), 77);
        planesSet(true, true, true);
        emit pMainWindow->refresh();
        EXPECT_EQ(planes(), "rgb");
    }
}

TEST_F(ImageEffectsTest, NoColorIsToldOnceAndSwitchesOff)
{
    widget.pRadioButtonColorSelection->click();
    planesSet(false, false, false);
    const auto texts = boxesDuring([&] { widget.pCheckBoxEnable->click(); });
    EXPECT_EQ(texts, QStringList("Image Effects: Please select a color!"));
    EXPECT_FALSE(widget.pCheckBoxEnable->isChecked());
    EXPECT_TRUE(widget.pGroupBoxMode->isEnabled());
    EXPECT_EQ(sent("Ie::configSet"_id), 0u);
    EXPECT_EQ(sent("Ie::enableSet"_id), 1u);
    EXPECT_EQ(lastQuery("Ie::enableSet"_id)["enable"], false);
}

TEST_F(ImageEffectsTest, ReadShowsTheGroupOfTheModeOnly)
{
    auto settings = record<Config>("Ie");
    settings.mode = rest::OPTRIX_IE_MODE_COLOR;
    settings.range = rest::OPTRIX_IE_RANGE_FULL_RANGE;
    answerSet("Ie::configGet"_id, "config", settings);
    emit pMainWindow->refresh();
    EXPECT_TRUE(widget.pRadioButtonColorSelection->isChecked());
    EXPECT_TRUE(widget.pGroupBoxColorSelection->isVisible());
    EXPECT_FALSE(widget.pGroupBoxSepia->isVisible());
    EXPECT_TRUE(widget.pRadioButtonRangeBt601->isChecked()) << "no read sets the range";
    settings.mode = rest::OPTRIX_IE_MODE_SKETCH;
    answerSet("Ie::configGet"_id, "config", settings);
    emit pMainWindow->refresh();
    EXPECT_TRUE(widget.pRadioButtonColorSelection->isChecked()) << "a mode without a button";
    EXPECT_FALSE(widget.pGroupBoxColorSelection->isVisible());
}

TEST_F(ImageEffectsTest, RefusedSettingsSwitchNothing)
{
    refuse("Ie::configSet"_id);
    widget.pCheckBoxEnable->click();
    EXPECT_EQ(status(), "Server: not now");
    EXPECT_EQ(sent("Ie::enableSet"_id), 0u);
    EXPECT_TRUE(widget.pGroupBoxMode->isEnabled());
}
