// The shape that most tuning pages share: switch, Reset, sliders, mode, table and level; on a real page that has all.

#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tuning-client/source/module/hdr2-widget.h"
#include "tuning-client/source/module/wdr4-widget.h"
#include "tuning-client/source/table-editor-dialog.h"

using board::Fault;

namespace
{
class EnablePagesTest : public BoardTest
{
protected:
    EnablePagesTest() : pPage(&dynamic_cast<Wdr4Widget&>(page("Wide Dynamic Range 4"))) { away(); }

    void away() { page("Register"); }

    /// Sets the board's module.
    void boardSet(bool isEnable, bool isAuto, int level = 2, int strength = 64)
    {
        boardSwitch("Wdr::enableSet"_id, isEnable, 3);
        Json::Value query;
        query["generation"] = 3;
        for (const char* key :
             {"contrast", "flat.strength", "flat.threshold", "strength.high", "strength.low", "strength.global"})
            query[key] = 0;
        query["auto"] = isAuto;
        query["auto.level"] = level;
        query["strength"] = strength;
        run("Wdr::configSet"_id, query);
    }

    /// The page on a module in that state.
    Wdr4Widget& shown(bool isEnable, bool isAuto)
    {
        boardSet(isEnable, isAuto);
        away();
        page("Wide Dynamic Range 4");
        board->requestsClear();
        return *pPage;
    }

    Wdr4Widget* pPage;
};
} // namespace

TEST_F(EnablePagesTest, StartsInAutoAndAsksNothing)
{
    const Wdr4Widget page(nullptr);
    EXPECT_EQ(page.pComboBoxWorkMode->currentText(), "Auto");
    for (const auto* pSlider : page.sliderSpinWidgets)
        EXPECT_FALSE(pSlider->isEnabled());
    EXPECT_FALSE(page.pPushButtonEditTable->isHidden());
    EXPECT_FALSE(page.pSliderSpinWidgetLevel->isHidden());
    board->requestsClear();
    EnableAutoLevelSliderAbstractWidget plain(nullptr, "Plain", 2);
    EXPECT_EQ(plain.pCheckBoxEnable->text(), "Enable Plain");
    EXPECT_EQ(plain.sliderSpinWidgets[1]->findChild<QLabel*>()->text(), "SliderSpinWidget 1");
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(EnablePagesTest, ControlsFollowSwitchAndMode)
{
    struct Row
    {
        bool isEnable, isAuto;
        bool isTimer, isSlider, isAutoShown; ///< running, free, table button and level shown
        bool isOther;                        ///< Reset, mode and table button are free
    };
    const Row rows[] = {
        {false, false, false, true, false, true},
        // On and Manual: the sliders come last, so a running module can be tuned.
        {true, false, false, true, false, false},
        {false, true, false, false, true, true},
        {true, true, true, false, true, false},
    };
    const auto expect = [&](const Row& row, bool isSliderFree)
    {
        EXPECT_EQ(pPage->pTimer->isActive(), row.isTimer);
        for (const auto* pSlider : pPage->sliderSpinWidgets)
            EXPECT_EQ(pSlider->isEnabled(), isSliderFree);
        EXPECT_EQ(pPage->pPushButtonEditTable->isVisible(), row.isAutoShown);
        EXPECT_EQ(pPage->pSliderSpinWidgetLevel->isVisible(), row.isAutoShown);
        EXPECT_TRUE(pPage->pSliderSpinWidgetLevel->isEnabled()) << "never greyed";
        for (const QWidget* pOther : std::initializer_list<QWidget*>{pPage->pPushButtonRest, pPage->pComboBoxWorkMode,
                                                                     pPage->pPushButtonEditTable})
            EXPECT_EQ(pOther->isEnabled(), row.isOther);
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::string(row.isEnable ? "on" : "off") + (row.isAuto ? ", Auto" : ", Manual"));
        shown(row.isEnable, row.isAuto);
        EXPECT_EQ(pPage->pCheckBoxEnable->isChecked(), row.isEnable);
        EXPECT_EQ(pPage->pComboBoxWorkMode->currentText(), row.isAuto ? "Auto" : "Manual");
        expect(row, row.isSlider);
        EXPECT_EQ(led().toolTip(), row.isEnable ? "WDR4 ON" : "WDR4 OFF");
        away();
        EXPECT_FALSE(pPage->pTimer->isActive()) << "hidden";

        // The same by the user's hand; the switch greys all sliders in Manual.
        shown(!row.isEnable, row.isAuto);
        pPage->pCheckBoxEnable->click();
        EXPECT_EQ(led().toolTip(), row.isEnable ? "WDR4 ON" : "WDR4 OFF") << "what the board does now";
        expect(row, !row.isAuto && !row.isEnable);
    }
}

TEST_F(EnablePagesTest, FailedChangeIsToldAndLeavesTheControl)
{
    auto& page = shown(false, true);
    board->faultSet({Fault::Error, Fault::Everything, -1, 0, "not now"});
    const auto told = [&]
    {
        const bool isTold = status() == "Server: not now";
        pMainWindow->statusBar()->clearMessage();
        return isTold;
    };
    page.pCheckBoxEnable->click();
    EXPECT_TRUE(told());
    EXPECT_TRUE(page.pCheckBoxEnable->isChecked()) << "as the user set it, until the next read";
    EXPECT_TRUE(page.pPushButtonRest->isEnabled());
    EXPECT_EQ(led().toolTip(), "WDR4 OFF") << "the board did not take it";
    page.pCheckBoxEnable->click();
    EXPECT_TRUE(told());
    EXPECT_FALSE(page.pTimer->isActive()) << "an unchecked box stops it at once";
    page.pPushButtonRest->click();
    EXPECT_TRUE(told());
    page.pComboBoxWorkMode->setCurrentIndex(0);
    EXPECT_TRUE(told());
    page.sliderSpinWidgets[0]->setValue(100);
    EXPECT_TRUE(told());
    EXPECT_EQ(page.sliderSpinWidgets[0]->value(), 100);
    board->faultsClear();
    emit page.refresh();
    EXPECT_EQ(page.sliderSpinWidgets[0]->value(), 64);
    EXPECT_TRUE(page.pPushButtonEditTable->isVisible());
}

TEST_F(EnablePagesTest, ResetReadsAndSoFreesTheWay)
{
    board->faultSet({Fault::Close});
    auto& page = shown(false, false);
    EXPECT_TRUE(status().contains("failed"));
    board->faultsClear();
    page.pPushButtonRest->click();
    EXPECT_EQ(status(), "Request update...") << "the failure is over";
    board->requestsClear();
    page.sliderSpinWidgets[0]->setValue(1);
    EXPECT_EQ(sent("Wdr::configSet"_id), 1u);
}

// A running module in Manual: its sliders stay free all through the read, and so in the user's hand.
TEST_F(EnablePagesTest, ReadLeavesTheHandOnTheControl)
{
    auto& page = shown(true, false);
    pMainWindow->activateWindow();
    auto* pBox = page.sliderSpinWidgets[0]->findChild<QDoubleSpinBox*>();
    typeHalf(pBox, "5");
    ASSERT_TRUE(waitUntil([&] { return pBox->hasFocus(); }));
    emit pMainWindow->refresh();
    EXPECT_EQ(sent("Wdr::configSet"_id), 0u);
    EXPECT_EQ(pBox->text(), "5");
    EXPECT_TRUE(pBox->hasFocus());
}

TEST_F(EnablePagesTest, BoxWithoutACommandGreysByItself)
{
    board->faultSet({Fault::Close});
    auto& hdr = dynamic_cast<Hdr2Widget&>(page("High Dynamic Range 2"));
    board->faultsClear();
    board->requestsClear();
    hdr.pCheckBoxEnable->click();
    EXPECT_TRUE(hdr.pTabWidget->isEnabled());
    hdr.pCheckBoxEnable->click();
    EXPECT_FALSE(hdr.pTabWidget->isEnabled());
    EXPECT_FALSE(hdr.pPushButtonRest->isEnabled());
    EXPECT_EQ(board->requestCount(), 0u) << "not even a read";
}

TEST_F(EnablePagesTest, TickKeepsTheVisiblePageUpToDate)
{
    auto& page = shown(true, true);
    EXPECT_EQ(page.pTimer->interval(), 1000);
    page.pTimer->setInterval(30);
    QSignalSpy refreshed(&page, &AbstractWidget::refresh);
    pMainWindow->statusBar()->showMessage("kept");
    boardSet(true, true, 33, 11);
    ASSERT_TRUE(waitUntil([&] { return page.pSliderSpinWidgetLevel->value() == 33; }));
    EXPECT_EQ(page.sliderSpinWidgets[0]->value(), 11);
    EXPECT_GE(refreshed.count(), 1);
    EXPECT_EQ(status(), "kept");

    // A failing tick goes on; what the user is typing is his.
    auto* pBox = page.pSliderSpinWidgetLevel->findChild<QDoubleSpinBox*>();
    typeHalf(pBox, "5");
    board->faultSet({Fault::Error, Fault::Everything, -1, 0, "some ticks"});
    ASSERT_TRUE(waitUntil([&] { return status() == "Server: some ticks" && led().toolTip().isEmpty(); }));
    boardSet(true, true, 44, 22);
    board->faultsClear();
    ASSERT_TRUE(waitUntil([&] { return page.sliderSpinWidgets[0]->value() == 22; }));
    EXPECT_EQ(status(), "Request update...") << "the failure is over";
    EXPECT_EQ(led().toolTip(), "WDR4 ON");
    EXPECT_EQ(pBox->text(), "5");
    EXPECT_EQ(sent("Wdr::configSet"_id), 0u);
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(sent("Wdr::configSet"_id), 1u);

    // The board's own change to Manual ends it.
    boardSet(true, false);
    ASSERT_TRUE(waitUntil([&] { return !page.pTimer->isActive(); }));
    EXPECT_TRUE(page.sliderSpinWidgets[0]->isEnabled());
}

TEST_F(EnablePagesTest, TableEditorAppliesCancelsOrFails)
{
    auto& page = shown(false, true);
    const struct
    {
        int64_t fails;
        bool isApplied;
        const char* text;
    } cases[] = {{"Wdr::statusGet"_id, false, ""},
                 {"Wdr::statusGet"_id, true, ""},
                 {"Wdr::tableGet"_id, true, "Server: no table"},
                 {"Wdr::tableSet"_id, true, "Server: no table"}};
    for (const auto& row : cases)
    {
        board->faultSet({Fault::Error, row.fails, -1, 0, "no table"});
        board->requestsClear();
        pMainWindow->statusBar()->clearMessage();
        bool isOpened = false;
        const Modals editing(
            [&](QDialog& dialog)
            {
                EXPECT_EQ(dialog.parentWidget(), &page);
                isOpened = true;
                dialog.findChild<QTableWidget*>()->item(0, 1)->setText("77.5");
                row.isApplied ? dialog.accept() : dialog.reject();
            });
        page.pPushButtonEditTable->click();
        EXPECT_EQ(isOpened, row.fails != "Wdr::tableGet"_id);
        EXPECT_EQ(str(status()), row.text);
        EXPECT_EQ(sent("Wdr::tableSet"_id), isOpened && row.isApplied ? 1u : 0u);
        if (row.fails == "Wdr::statusGet"_id && row.isApplied)
        {
            const auto jTable = board->requests().back().query["table"];
            EXPECT_EQ(jTable["columns"][1], "strength");
            EXPECT_EQ(jTable["rows"].size(), 6u);
            EXPECT_EQ(jTable["rows"][0][1].asDouble(), 77.5);
        }
        board->faultsClear();
    }
}

// Greying takes the focus, and the box commits its text: that is not the user's doing.
TEST_F(EnablePagesTest, TextThatAReadCommitsIsNotSent)
{
    auto& plain = dynamic_cast<EnableSliderAbstractWidget&>(page("Wide Dynamic Range 2"));
    auto* pBox = plain.sliderSpinWidgets[0]->findChild<QDoubleSpinBox*>();
    pMainWindow->activateWindow();
    typeHalf(pBox, "7");
    ASSERT_TRUE(waitUntil([&] { return pBox->hasFocus(); }));
    board->answerSet("Wdr::enableGet"_id, "enable", true);
    board->requestsClear();
    emit pMainWindow->refresh();
    EXPECT_FALSE(pBox->isEnabled());
    QApplication::processEvents();
    EXPECT_EQ(sent("Wdr::configSet"_id), 0u);
    EXPECT_EQ(pBox->value(), 64) << "as the board has it";
}
