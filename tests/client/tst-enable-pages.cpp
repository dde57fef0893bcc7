// The shape that most tuning pages share: switch, Reset, sliders, mode, table and level.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/enable-auto-level-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-client/source/table-editor-dialog.h"
#include "tuning-rest/source/engine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <thread>

using board::Fault;

namespace
{
/// All settings of the board's fourth wide dynamic range module, the ones without a control at 0.
Json::Value settings(bool isAuto, double level, double strength)
{
    Json::Value jSettings;
    for (const char* key :
         {"contrast", "flat.strength", "flat.threshold", "strength.high", "strength.low", "strength.global"})
        jSettings[key] = 0;
    jSettings["auto"] = isAuto;
    jSettings["auto.level"] = int(level);
    jSettings["strength"] = int(strength);
    return jSettings;
}

/// Its commands.
class Wdr : public rest::Engine
{
public:
    enum Id
    {
        ConfigGet = 4003101,
        ConfigSet,
        EnableGet,
        EnableSet,
        Reset,
        StatusGet,
        TableGet,
        TableSet
    };

    void configGet(Json::Value& jConfig) { request(COMMAND(ConfigGet, 3).query(), jConfig, rest::TimeoutDefault); }

    void configSet(bool isAuto, double level, double strength)
    {
        auto command = COMMAND(ConfigSet, 3);
        const auto jSettings = settings(isAuto, level, strength);
        for (const auto& key : jSettings.getMemberNames())
            command.with(key.c_str(), jSettings[key]);
        send(*this, command);
    }

    void enableGet(bool& isEnable) { read(*this, COMMAND(EnableGet, 3), "enable", isEnable); }
    void enableSet(bool isEnable) { write(*this, COMMAND(EnableSet, 3), "enable", isEnable); }
    void reset() { send(*this, COMMAND(Reset, 3)); }
    void tableGet(Json::Value& jTable) { read(*this, COMMAND(TableGet, 3), "table", jTable); }
    void tableSet(const Json::Value& jTable) { write(*this, COMMAND(TableSet, 3), "table", jTable); }
};

/// A page as the catalogue has them.
class LevelPage : public EnableAutoLevelSliderAbstractWidget
{
public:
    explicit LevelPage(int count = 2) : EnableAutoLevelSliderAbstractWidget(nullptr, "Level Page", count)
    {
        if (count)
            slider(0, "Strength", 0, 128);
    }

    void configSet() override
    {
        Wdr().configSet(isAuto(), pSliderSpinWidgetLevel->value(), sliderSpinWidgets[0]->value());
    }

    void enableSet(bool isEnable) override
    {
        Wdr().enableSet(isEnable);
        EnableAutoLevelSliderAbstractWidget::enableSet(isEnable);
        childrenWidgetsEnableSet(!isEnable);
    }

    void reset() override
    {
        Wdr().reset();
        updateStatus();
        emit refresh();
    }

    void updateStatus() override
    {
        bool isEnable = false;
        Json::Value jConfig;
        Wdr().enableGet(isEnable);
        Wdr().configGet(jConfig);
        const bool isAuto = jConfig["auto"].asBool();
        timerSet(isEnable, isAuto);
        enableShow(isEnable, "Level ON", "Level OFF");
        workModeShow(isAuto);
        shortcut::NoSignals::setValue(pSliderSpinWidgetLevel, jConfig["auto.level"].asDouble());
        shortcut::NoSignals::setValue(sliderSpinWidgets[0], jConfig["strength"].asDouble());
    }

    void editTable() override
    {
        tableEdit([](Json::Value& jTable) { Wdr().tableGet(jTable); },
                  [](const Json::Value& jTable) { Wdr().tableSet(jTable); });
    }
};

class EnablePagesTest : public BoardTest
{
protected:
    EnablePagesTest()
    {
        open();
        central().pStackedWidget->addWidget(pEmpty = new QWidget);
        central().pStackedWidget->addWidget(pPage = new LevelPage);
        show(pEmpty);
        board->requestsClear();
    }

    void show(QWidget* pWidget) { central().pStackedWidget->setCurrentWidget(pWidget); }

    void boardSet(bool isEnable, bool isAuto, double level = 2, double strength = 64)
    {
        for (auto jQuery : {Wdr::EnableSet, Wdr::ConfigSet})
        {
            auto query = jQuery == Wdr::ConfigSet ? settings(isAuto, level, strength) : Json::Value();
            query["function"] = "test";
            query["id"] = jQuery;
            query["generation"] = 3;
            if (jQuery == Wdr::EnableSet)
                query["enable"] = isEnable;
            ASSERT_EQ(board->execute(query)["error"].asInt(), 0);
        }
    }

    /// Shows the page on a module in that state, and forgets the reads.
    LevelPage& shown(bool isEnable, bool isAuto)
    {
        boardSet(isEnable, isAuto);
        show(pPage);
        board->requestsClear();
        return *pPage;
    }

    /// The only command since, without its envelope.
    Json::Value sentOnly() const
    {
        const auto requests = board->requests();
        EXPECT_EQ(requests.size(), 1u);
        auto query = requests.empty() ? Json::Value(Json::objectValue) : requests.front().query;
        for (const auto* key : {"function", "generation", "path"})
            query.removeMember(key);
        board->requestsClear();
        return query;
    }

    static Json::Value configSent(bool isAuto, double level, double strength)
    {
        auto jSent = settings(isAuto, level, strength);
        jSent["id"] = Wdr::ConfigSet;
        return jSent;
    }

    /// Opens the table editor and works in it. False when it did not open.
    bool inEditor(const std::function<void(QDialog&)>& fWork)
    {
        bool isOpened = false;
        QTimer::singleShot(0, pPage,
                           [&]
                           {
                               auto* pDialog = qobject_cast<TableEditorDialog*>(QApplication::activeModalWidget());
                               if (!pDialog)
                                   return;
                               isOpened = true;
                               fWork(*pDialog);
                               if (pDialog->isVisible())
                                   pDialog->reject();
                           });
        pPage->pPushButtonEditTable->setEnabled(true); // greyed while the module is on
        QTest::mouseClick(pPage->pPushButtonEditTable, Qt::LeftButton);
        QCoreApplication::processEvents();
        return isOpened;
    }

    static void applyClick(QDialog& dialog)
    {
        for (auto* pButton : dialog.findChildren<QPushButton*>())
        {
            if (pButton->text() == "Apply")
                pButton->click();
        }
    }

    QWidget* pEmpty;
    LevelPage* pPage;
};

std::string labelText(const QGridLayout* pGrid, int row, int column)
{
    auto* pItem = pGrid->itemAtPosition(row, column);
    const auto* pLabel = pItem ? qobject_cast<QLabel*>(pItem->widget()) : nullptr;
    return pLabel ? pLabel->text().toStdString() : "no label";
}

QWidget* widgetAt(const QGridLayout* pGrid, int row, int column)
{
    auto* pItem = pGrid->itemAtPosition(row, column);
    return pItem ? pItem->widget() : nullptr;
}
} // namespace

TEST_F(EnablePagesTest, IsBuiltInReadingOrderAndAsksNothing)
{
    const auto& page = *pPage;
    const auto* pGrid = page.pGridLayoutScrollArea;
    EXPECT_EQ(page.pCheckBoxEnable->text(), "Enable Level Page");
    EXPECT_EQ(page.pPushButtonRest->text(), "Reset");
    EXPECT_EQ(widgetAt(pGrid, 0, 0), page.pCheckBoxEnable);
    EXPECT_EQ(widgetAt(pGrid, 0, 1), page.pPushButtonRest);
    EXPECT_EQ(pGrid->itemAtPosition(1, 0), page.pGridLayoutReserved);
    EXPECT_EQ(pGrid->itemAtPosition(1, 1), page.pGridLayoutReserved);
    EXPECT_EQ(pGrid->itemAtPosition(2, 0), page.pGridLayoutSliderSpinWidgetCollection);
    EXPECT_EQ(pGrid->itemAtPosition(2, 1), page.pGridLayoutSliderSpinWidgetCollection);

    const auto* pReserved = page.pGridLayoutReserved;
    EXPECT_EQ(labelText(pReserved, 0, 0), "Working Mode");
    EXPECT_EQ(widgetAt(pReserved, 0, 1), page.pComboBoxWorkMode);
    EXPECT_EQ(qobject_cast<QLabel*>(widgetAt(pReserved, 0, 0))->buddy(), page.pComboBoxWorkMode);
    EXPECT_EQ(page.pComboBoxWorkMode->accessibleName(), "Working Mode");
    EXPECT_EQ(page.pComboBoxWorkMode->itemText(0), "Manual");
    EXPECT_EQ(page.pComboBoxWorkMode->itemText(1), "Auto");
    EXPECT_EQ(widgetAt(pReserved, 1, 1), page.pPushButtonEditTable);
    EXPECT_EQ(page.pPushButtonEditTable->text(), "Edit Auto Algorithm Table");
    EXPECT_EQ(widgetAt(pReserved, 2, 0), page.pSliderSpinWidgetLevel);
    EXPECT_EQ(widgetAt(pReserved, 2, 1), page.pSliderSpinWidgetLevel);
    const auto* pLevelBox = page.pSliderSpinWidgetLevel->findChild<QDoubleSpinBox*>();
    EXPECT_EQ(pLevelBox->accessibleName(), "Level");
    EXPECT_EQ(pLevelBox->maximum(), 100);
    EXPECT_EQ(pLevelBox->decimals(), 0);

    ASSERT_EQ(page.sliderSpinWidgets.size(), 2);
    EXPECT_EQ(page.sliderSpinWidgets[1]->findChild<QLabel*>()->text(), "SliderSpinWidget 1");
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(widgetAt(page.pGridLayoutSliderSpinWidgetCollection, i, 0), page.sliderSpinWidgets[i]);
        EXPECT_FALSE(page.sliderSpinWidgets[i]->isEnabled()) << "Auto until the first read";
    }
    EXPECT_EQ(page.pComboBoxWorkMode->currentText(), "Auto");
    EXPECT_FALSE(page.pPushButtonEditTable->isHidden());
    EXPECT_FALSE(page.pSliderSpinWidgetLevel->isHidden());
    EXPECT_FALSE(page.pTimer->isActive());
    EXPECT_EQ(LevelPage(0).findChildren<SliderSpinWidget*>().size(), 1) << "the level only";
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(EnablePagesTest, ControlsFollowSwitchAndModeAsRead)
{
    struct Row
    {
        bool isEnable, isAuto;
        bool isTimer, isSlider, isTable, isLevel; ///< running, free, shown, shown
        bool isOther;                             ///< Reset, mode and table button are free
    };
    const Row rows[] = {
        {false, false, false, true, false, false, true},
        // On and Manual: the sliders come last, so a running module can be tuned.
        {true, false, false, true, false, false, false},
        {false, true, false, false, true, true, true},
        {true, true, true, false, true, true, false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::string(row.isEnable ? "on" : "off") + (row.isAuto ? ", Auto" : ", Manual"));
        const auto& page = shown(row.isEnable, row.isAuto);
        EXPECT_EQ(page.pCheckBoxEnable->isChecked(), row.isEnable);
        EXPECT_TRUE(page.pCheckBoxEnable->isEnabled());
        EXPECT_EQ(page.pComboBoxWorkMode->currentText(), row.isAuto ? "Auto" : "Manual");
        EXPECT_EQ(page.pTimer->isActive(), row.isTimer);
        for (const auto* pSlider : page.sliderSpinWidgets)
            EXPECT_EQ(pSlider->isEnabled(), row.isSlider);
        EXPECT_EQ(page.pPushButtonEditTable->isVisible(), row.isTable);
        EXPECT_EQ(page.pSliderSpinWidgetLevel->isVisible(), row.isLevel);
        EXPECT_TRUE(page.pSliderSpinWidgetLevel->isEnabled()) << "never greyed";
        for (const QWidget* pOther :
             {static_cast<QWidget*>(page.pPushButtonRest), static_cast<QWidget*>(page.pComboBoxWorkMode),
              static_cast<QWidget*>(page.pPushButtonEditTable)})
            EXPECT_EQ(pOther->isEnabled(), row.isOther);
        EXPECT_EQ(led().toolTip(), row.isEnable ? "Level ON" : "Level OFF");
        show(pEmpty);
        EXPECT_FALSE(page.pTimer->isActive()) << "hidden";
    }
}

TEST_F(EnablePagesTest, EachChangeSendsOneCommand)
{
    auto& page = shown(false, false);
    EXPECT_EQ(page.sliderSpinWidgets[0]->value(), 64);
    page.sliderSpinWidgets[0]->findChild<QSlider*>()->setValue(99);
    EXPECT_EQ(sentOnly(), configSent(false, 2, 128));
    page.pComboBoxWorkMode->setCurrentIndex(1);
    EXPECT_EQ(sentOnly(), configSent(true, 2, 128));
    EXPECT_FALSE(page.sliderSpinWidgets[0]->isEnabled());
    EXPECT_TRUE(page.pPushButtonEditTable->isVisible());
    page.pSliderSpinWidgetLevel->setValue(7);
    EXPECT_EQ(sentOnly(), configSent(true, 7, 128));

    QTest::mouseClick(page.pCheckBoxEnable, Qt::LeftButton, {}, QPoint(5, page.pCheckBoxEnable->height() / 2));
    EXPECT_EQ(sentOnly()["enable"], true);
    EXPECT_TRUE(page.pTimer->isActive());
    EXPECT_FALSE(page.pComboBoxWorkMode->isEnabled());
    EXPECT_TRUE(page.pSliderSpinWidgetLevel->isEnabled());
    page.pSliderSpinWidgetLevel->setValue(9);
    EXPECT_EQ(sentOnly(), configSent(true, 9, 128)) << "the level of a running module";
    page.pCheckBoxEnable->click();
    EXPECT_EQ(sentOnly()["enable"], false);
    EXPECT_FALSE(page.pTimer->isActive());

    page.pPushButtonRest->click();
    EXPECT_EQ(sent(Wdr::Reset), 1u);
    EXPECT_EQ(sent(Wdr::ConfigSet), 0u);
    EXPECT_EQ(page.pComboBoxWorkMode->currentText(), "Manual") << "read again after the reset";
    EXPECT_FALSE(page.pSliderSpinWidgetLevel->isVisible());
}

TEST_F(EnablePagesTest, FailedChangeIsToldAndLeavesTheControl)
{
    auto& page = shown(false, false);
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
    page.sliderSpinWidgets[0]->setValue(100);
    EXPECT_TRUE(told());
    EXPECT_EQ(page.sliderSpinWidgets[0]->value(), 100);
    page.pPushButtonRest->click();
    EXPECT_TRUE(told());
    page.pComboBoxWorkMode->setCurrentIndex(1);
    EXPECT_TRUE(told());
    EXPECT_TRUE(page.pPushButtonEditTable->isVisible());
    board->faultsClear();
    emit page.refresh();
    EXPECT_FALSE(page.pCheckBoxEnable->isChecked());
    EXPECT_EQ(page.sliderSpinWidgets[0]->value(), 64);
    EXPECT_FALSE(page.pPushButtonEditTable->isVisible());
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
    pBox->setFocus();
    pBox->selectAll();
    QTest::keyClicks(pBox, "5");
    board->faultSet({Fault::Error, Fault::Everything, 1, 0, "one tick"});
    boardSet(true, true, 44, 22);
    ASSERT_TRUE(waitUntil([&] { return page.sliderSpinWidgets[0]->value() == 22; }));
    EXPECT_EQ(status(), "Server: one tick");
    EXPECT_EQ(pBox->text(), "5");
    EXPECT_EQ(sent(Wdr::ConfigSet), 0u);
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(sent(Wdr::ConfigSet), 1u);

    // The board's own change to Manual ends it.
    boardSet(true, false);
    ASSERT_TRUE(waitUntil([&] { return !page.pTimer->isActive(); }));
    EXPECT_TRUE(page.sliderSpinWidgets[0]->isEnabled());
}

TEST_F(EnablePagesTest, TimerFollowsTheControlsWhereAPageLeavesItToTheBase)
{
    EnableAutoSliderAbstractWidget page(nullptr, "Plain", 1);
    page.pCheckBoxEnable->setChecked(true);
    EXPECT_TRUE(page.pTimer->isActive());
    EXPECT_TRUE(page.pPushButtonRest->isEnabled()) << "the switch greys nothing here";
    page.hide();
    page.pTimer->stop();
    page.show();
    EXPECT_TRUE(page.pTimer->isActive()) << "on and Auto";
    page.pComboBoxWorkMode->setCurrentIndex(0);
    page.updateStatus();
    EXPECT_FALSE(page.pTimer->isActive());
    page.pComboBoxWorkMode->setCurrentIndex(1);
    page.updateStatus();
    EXPECT_TRUE(page.pTimer->isActive());
    page.hide();
    EXPECT_FALSE(page.pTimer->isActive());

    EnableSliderAbstractWidget first(nullptr, "First", 0);
    first.pCheckBoxEnable->setChecked(true);
    EXPECT_FALSE(first.pPushButtonRest->isEnabled()) << "on greys";
    first.pCheckBoxEnable->setChecked(false);
    EXPECT_TRUE(first.pPushButtonRest->isEnabled());
}

TEST_F(EnablePagesTest, SilentOrDrippingBoardLeavesTimeForClicks)
{
    for (const auto kind : {Fault::Silence, Fault::Drip})
    {
        SCOPED_TRACE(kind);
        auto& page = shown(true, true);
        board->faultSet({kind, Fault::Everything, -1, 300});
        int freeTime = 0; // from a failed tick to the next
        QObject context;
        QObject::connect(
            pMainWindow->statusBar(), &QStatusBar::messageChanged, &context,
            [&](const QString& text)
            {
                if (!text.isEmpty())
                    freeTime = page.pTimer->remainingTime();
            },
            Qt::QueuedConnection);
        std::atomic<int> served{0};
        std::atomic<qint64> worst{0};
        constexpr int clicks = 7;
        std::thread user(
            [&]
            {
                for (int i = 0; i < clicks; ++i)
                {
                    QElapsedTimer clock;
                    clock.start();
                    QMetaObject::invokeMethod(
                        &page,
                        [&, clock]
                        {
                            worst = std::max<qint64>(worst, clock.elapsed());
                            ++served;
                        },
                        Qt::QueuedConnection);
                    std::this_thread::sleep_for(std::chrono::milliseconds(713));
                }
            });
        EXPECT_TRUE(waitUntil([&] { return served == clicks; }));
        user.join();
        board->faultsClear();
        EXPECT_GE(board->requestCount(), 1u) << "the page did not poll";
        EXPECT_LE(worst, 2500) << "the time limit of 2 s and half a second";
        EXPECT_GE(freeTime, 700) << "the interval begins at the end of the failure";
        EXPECT_TRUE(page.pTimer->isActive());
        show(pEmpty);
    }
}

TEST_F(EnablePagesTest, TableEditorAppliesOrCancels)
{
    auto& page = shown(false, true);
    const auto edit = [&](QDialog& dialog)
    {
        EXPECT_EQ(dialog.parentWidget(), &page);
        auto* pTable = dialog.findChild<QTableWidget*>();
        pTable->item(0, 1)->setText("77.5");
    };
    EXPECT_TRUE(inEditor(edit));
    EXPECT_EQ(sentOnly()["id"], Wdr::TableGet) << "cancelled";

    EXPECT_TRUE(inEditor(
        [&](QDialog& dialog)
        {
            edit(dialog);
            applyClick(dialog);
        }));
    ASSERT_EQ(sent(Wdr::TableSet), 1u);
    const auto requests = board->requests();
    const auto& jTable = requests.back().query["table"];
    EXPECT_EQ(jTable["columns"][1], "strength");
    EXPECT_EQ(jTable["rows"].size(), 6u);
    EXPECT_EQ(jTable["rows"][0][1].asDouble(), 77.5);
    EXPECT_EQ(jTable["rows"][5][2].asDouble(), 16);
    EXPECT_EQ(requests.size(), 2u);
}

TEST_F(EnablePagesTest, TableEditorFailures)
{
    shown(false, true);
    board->faultSet({Fault::Error, Wdr::TableGet, -1, 0, "no table"});
    EXPECT_FALSE(inEditor([](QDialog&) {}));
    EXPECT_EQ(status(), "Server: no table");
    EXPECT_EQ(board->requestCount(), 1u);
    board->faultsClear();

    board->faultSet({Fault::Error, Wdr::TableSet, -1, 0, "table refused"});
    EXPECT_TRUE(inEditor(applyClick));
    EXPECT_EQ(status(), "Server: table refused");
    board->faultsClear();
    EXPECT_TRUE(inEditor([](QDialog& dialog) { EXPECT_EQ(dialog.findChild<QTableWidget*>()->rowCount(), 6); }));
}
