// What every page inherits: when it reads, and how a failure reaches the user.

#include "tests/support/editing.h"
#include "tests/support/reading-page.h"
#include "tests/support/wheel.h"
#include "tuning-client/source/control/multi-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/module/dnr2-v5-widget.h"
#include "tuning-client/source/module/wb-widget.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-rest/source/ae.h"
#include "tuning-rest/source/dnr2.h"

#include <stdexcept>

using board::Fault;
using rest::Ae;

namespace
{
/// The entries of a row's menu; the one with the text `choice` is chosen.
QStringList menuOf(QWidget* pRow, const QString& choice = QString())
{
    return popup([&] { emit pRow->findChild<QLabel*>()->customContextMenuRequested(QPoint(1, 1)); }, choice);
}
} // namespace

TEST_F(PageBaseTest, ReadsTwiceWhenShownOnceOnRefreshAndNeverWhileHidden)
{
    auto& page = add(new ReadingPage);
    emit pMainWindow->refresh();
    emit page.read();
    emit page.refresh();
    EXPECT_EQ(page.taken(), "") << "hidden";
    EXPECT_EQ(board->requestCount(), 0u);

    show(&page);
    EXPECT_EQ(page.taken(), "configGet; read, grey; read, Reading ON");
    EXPECT_EQ(page.message, "Request update...");
    EXPECT_FALSE(isStatusLasting());
    EXPECT_EQ(sent(enableGetId), 2u);
    EXPECT_EQ(led().pixmap(Qt::ReturnByValue).toImage(), QPixmap(":/images/green.png").toImage());

    pMainWindow->statusBar()->clearMessage();
    emit pMainWindow->refresh();
    EXPECT_EQ(page.taken(), "configGet; read, grey");
    EXPECT_EQ(page.message, "Request update...");
    EXPECT_EQ(sent(enableGetId), 3u);

    show(pEmpty);
    emit pMainWindow->refresh();
    EXPECT_EQ(page.taken(), "");
    EXPECT_EQ(board->requestCount(), 3u);
}

TEST_F(PageBaseTest, OwnRefreshReadsQuietlyAndNotInTheMiddleOfARead)
{
    auto& page = add(new ReadingPage);
    show(&page);
    page.taken();
    pMainWindow->statusBar()->showMessage("kept");
    emit page.refresh();
    EXPECT_EQ(page.taken(), "read, Reading ON");
    EXPECT_EQ(status(), "kept");

    // Asked for while the page reads: dropped, and what the page has shown so far stays.
    page.fInRead = [&]
    {
        emit page.refresh();
        emit page.read();
        emit pMainWindow->refresh();
    };
    emit page.refresh();
    EXPECT_EQ(page.taken(), "read, Reading ON");
    EXPECT_EQ(status(), "kept");
    page.fInRead = [] { throw std::runtime_error("read failed"); };
    emit page.refresh();
    page.fInRead = nullptr;
    page.taken();
    emit page.refresh();
    EXPECT_EQ(page.taken(), "read, grey") << "the next read after a failed one, announced";
    EXPECT_EQ(status(), "Request update...") << "the failure is over";
}

TEST_F(PageBaseTest, FailuresStandInTheStatusBarUntilTheNextText)
{
    auto& page = add(new ReadingPage);
    board->faultSet({Fault::Error, enableGetId, -1, 0, "no such module"});
    show(&page);
    EXPECT_EQ(page.taken(), "configGet; read, grey; read, grey") << "a failure ends one read only";
    EXPECT_EQ(status(), "Server: no such module");
    EXPECT_TRUE(isStatusLasting());
    EXPECT_TRUE(isGrey(&led()));
    board->faultsClear();

    page.isConfigGetFailing = true;
    page.fInRead = [] { throw std::runtime_error("read failed"); };
    emit page.read();
    EXPECT_EQ(page.taken(), "configGet; read, grey");
    EXPECT_EQ(page.message, "Request update...") << "announced again after the failed configGet";
    EXPECT_EQ(status(), "read failed");

    emit page.write();
    EXPECT_EQ(status(), "configSet failed");
    emit page.write(true);
    EXPECT_EQ(page.taken(), "write; write default");
    EXPECT_TRUE(isStatusLasting());

    page.fInRead = nullptr;
    delete &led();
    pMainWindow->statusBar()->clearMessage();
    emit page.read();
    EXPECT_EQ(page.taken(), "configGet; read");
    EXPECT_EQ(page.message, "Request update...") << "told without the LED as well";
}

// Showing reads twice and takes inner pages along; a board that says nothing is asked once for all of that.
TEST_F(PageBaseTest, SilentBoardIsAskedOnce)
{
    auto& frame = add(new ReadingPage("Frame"));
    auto* pInner = new ReadingPage("Inner");
    auto* pSecond = new ReadingPage("Second");
    QStackedWidget stack;
    frame.pGridLayoutScrollArea->addWidget(&stack);
    stack.addWidget(pInner);
    stack.addWidget(pSecond);
    const std::pair<Fault::Kind, const char*> cases[] = {{Fault::Error, "configGet; read, grey; read, grey"},
                                                         {Fault::Close, "configGet; read, grey"}};
    for (const auto& [kind, reads] : cases)
    {
        board->faultSet({kind, enableGetId, -1});
        show(&frame);
        EXPECT_EQ(frame.taken(), reads);
        EXPECT_EQ(pInner->taken(), kind == Fault::Close ? "" : reads);
        emit pMainWindow->refresh();
        EXPECT_EQ(frame.taken(), "configGet; read, grey");
        EXPECT_EQ(pInner->taken(), kind == Fault::Close ? "" : "configGet; read, grey");
        board->faultsClear();
        stack.setCurrentWidget(pSecond);
        EXPECT_EQ(pSecond->taken(), "configGet; read, grey; read, Reading ON") << "chosen by the user, so asked";
        stack.setCurrentWidget(pInner);
        show(pEmpty);
        pInner->taken();
    }
    show(&frame);
    EXPECT_EQ(frame.taken() + "; " + pInner->taken(), "configGet; read, grey; read, Reading ON; "
                                                      "configGet; read, grey; read, Reading ON");
    stack.setParent(nullptr);
}

TEST_F(PageBaseTest, WhatTheUserDidIsSeenBeforeTheBoardIsAsked)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(pMainWindow.get()));
    auto& page = add(new ReadingPage);
    bool isPainted = false;
    page.fInRead = [&]
    {
        const auto* pCursor = QApplication::overrideCursor();
        EXPECT_TRUE(pCursor && pCursor->shape() == Qt::WaitCursor);
        isPainted = isPainted || page.paints > 0;
        EXPECT_TRUE(isPainted);
    };
    show(&page);
    EXPECT_TRUE(isPainted);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(PageBaseTest, FirstGoodTickAfterAFailureReadsAndHidingStopsIt)
{
    auto& page = add(new ReadingPage);
    QTimer timer;
    bool isFailing = false;
    page.connectTick(&timer,
                     [&]
                     {
                         if (isFailing)
                             throw std::runtime_error("tick failed");
                     });
    show(&page);
    page.taken();
    timer.start(60000);
    const auto tick = [&] { QMetaObject::invokeMethod(&timer, "timeout"); };
    tick();
    EXPECT_EQ(page.taken(), "");
    isFailing = true;
    tick();
    EXPECT_EQ(status(), "tick failed");
    EXPECT_EQ(page.taken(), "");
    isFailing = false;
    tick();
    EXPECT_EQ(page.taken(), "configGet; read, grey");
    EXPECT_EQ(status(), "Request update...");
    tick();
    EXPECT_EQ(page.taken(), "");
    show(pEmpty);
    EXPECT_FALSE(timer.isActive());
    timer.start(60000);
    tick();
    EXPECT_FALSE(timer.isActive()) << "started by somebody while hidden";
}

// Frames with inner pages that talk for themselves.
TEST_F(PageBaseTest, FailureOfTheFrameStaysAndIsOverWithAnInnerTick)
{
    auto& frame = add(new ReadingPage("Frame"));
    QVector<ReadingPage*> inner{new ReadingPage("First"), new ReadingPage("Second")};
    QTimer timers[2];
    for (int i = 0; i < 2; ++i)
    {
        frame.pGridLayoutScrollArea->addWidget(inner[i]);
        inner[i]->connectTick(&timers[i], [i] { QTest::qSleep(i == 0 ? 80 : 0); });
    }
    frame.fInRead = [] { throw std::runtime_error("frame failed"); };
    show(&frame);
    EXPECT_EQ(status(), "frame failed");
    QStringList order;
    frame.fInRead = [&] { order.append("frame"); };
    inner[0]->fInRead = [&] { order.append("inner"); };
    for (auto& timer : timers)
        timer.start(100);
    QTest::qSleep(60);
    QMetaObject::invokeMethod(&timers[0], "timeout");
    EXPECT_EQ(status(), "Request update...");
    EXPECT_EQ(led().toolTip(), "Reading ON");
    EXPECT_EQ(order, (QStringList{"frame", "inner"}));
    for (const auto& timer : timers)
        EXPECT_GT(timer.remainingTime(), 90)
            << "after a slow tick all wait their interval, which leaves time for clicks";
    frame.taken();
    QMetaObject::invokeMethod(&timers[0], "timeout");
    EXPECT_EQ(frame.taken(), "");
}

// Also when the window itself is shown, where a page comes before what is around it.
TEST_F(PageBaseTest, WhatRunsDuringAVisitStartsAfterTheReads)
{
    struct Visited : ReadingPage
    {
        void afterShow() override { steps += "visit"; }
    };
    auto& page = add(new Visited);
    show(&page);
    EXPECT_EQ(page.taken(), "configGet; read, grey; read, Reading ON; visit");
    pMainWindow->hide();
    pMainWindow->show();
    EXPECT_EQ(page.taken(), "configGet; read, grey; read, Reading ON; visit");
}

TEST_F(PageBaseTest, SwitchGreysByTheRuleOfItsPage)
{
    for (const auto grey : {shortcut::Grey::AfterSuccess, shortcut::Grey::Always})
    {
        auto& page = add(new ReadingPage);
        board->requestsClear();
        page.ledWordsSet("Switch ON", "Switch OFF");
        QCheckBox box;
        QStringList done;
        bool isTaken = true;
        page.connectSwitch(
            &box,
            [&](bool isEnable)
            {
                Ae().enableSet(isEnable, Ae::V1);
                const QSignalBlocker blocker(&box);
                box.setChecked(isTaken && isEnable);
            },
            [&](bool isFree) { done.append(isFree ? "free" : "grey"); }, grey);
        box.click();
        EXPECT_TRUE(done.isEmpty()) << "not read yet, so nothing is sent";
        EXPECT_EQ(status(), "Not sent: the board's values had not been read yet");
        EXPECT_EQ(sent(enableGetId + 1), 0u);
        EXPECT_FALSE(box.isChecked()) << "back, since it was not sent";
        box.click();
        EXPECT_EQ(done, QStringList{"grey"});
        EXPECT_EQ(led().toolTip(), "Switch ON");
        box.click();
        isTaken = false;
        box.click();
        EXPECT_EQ(done, (QStringList{"grey", "free", "free"})) << "by the box as the command left it";
        EXPECT_EQ(led().toolTip(), "Switch OFF");
        board->faultSet({Fault::Error, enableGetId + 1});
        box.click();
        EXPECT_EQ(done.size(), grey == shortcut::Grey::Always ? 4 : 3);
        board->faultsClear();
    }
}

TEST_F(PageBaseTest, AnotherBoardIsReadWhenThePreferencesClose)
{
    auto& page = add(new ReadingPage);
    show(&page);
    for (bool isApplied : {false, true})
    {
        page.taken();
        const Modals closing(
            [&](QDialog& dialog)
            {
                dialog.findChild<QToolBox*>()->setCurrentIndex(2);
                for (auto* pButton : dialog.findChildren<QPushButton*>())
                    if (isApplied && pButton->text() == "Apply")
                        pButton->click();
                dialog.reject();
            });
        actionOf(pMainWindow->findChildren<QAction*>(), "&Preferences")->trigger();
        EXPECT_EQ(page.taken(), isApplied ? "configGet; read, grey" : "");
    }
}

TEST_F(PageBaseTest, LivesWithoutAMainWindow)
{
    config.preferences.window.isAutoResize = true;
    pMainWindow.reset();
    ReadingPage page;
    page.show();
    EXPECT_EQ(page.taken(), "configGet; read; read");
    page.grab();
    page.hide();
    EXPECT_EQ(page.mainWindow(), nullptr);
    EXPECT_EQ(page.statusBarLabel("LED"), nullptr);
    EXPECT_THROW(page.clientHolder(), t_common::LogicError);
    EXPECT_FALSE(page.sizeStore.isValid());
}

TEST_F(PageBaseTest, WheelOverAControlScrollsThePage)
{
    auto* pPage = new ReadingPage;
    QVector<QWidget*> controls;
    for (int i = 0; i < 60; ++i)
    {
        auto* pRow = new SliderSpinWidget("Row", nullptr);
        pPage->pGridLayoutScrollArea->addWidget(pRow);
        pRow->setEnabled(i != 1);
        if (i < 2)
            controls << pRow->findChild<QSlider*>() << pRow->findChild<QDoubleSpinBox*>();
    }
    auto* pComboBox = new QComboBox;
    pComboBox->addItems({"a", "b", "c"});
    pComboBox->setCurrentIndex(1);
    pPage->pGridLayoutScrollArea->addWidget(pComboBox, 0, 1);
    controls << pComboBox;
    add(pPage);
    show(pPage);
    auto* pBar = pPage->findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_TRUE(waitUntil([&] { return pBar->isVisible(); }));
    for (auto* pControl : controls)
    {
        for (bool isFocused : {false, true})
        {
            isFocused ? pControl->setFocus() : pPage->setFocus();
            pBar->setValue(0);
            wheelTurn(pControl, pControl->rect().center(), -120);
            EXPECT_GT(pBar->value(), 0) << pControl->metaObject()->className();
        }
        EXPECT_NE(pControl->focusPolicy(), Qt::WheelFocus);
    }
    EXPECT_EQ(pComboBox->currentIndex(), 1);
    for (auto* pRow : pPage->findChildren<SliderSpinWidget*>())
        EXPECT_EQ(pRow->value(), 0);
    pBar->setValue(0);
    wheelTurn(pBar, pBar->rect().center(), -120);
    EXPECT_GT(pBar->value(), 0) << "the scroll bar itself";
}

TEST_F(PageBaseTest, ChangedRowsAreBoldAndGoBackAsThePageWasFirstRead)
{
    constexpr int wbConfigSet = 4003002;
    constexpr int awbEnableSet = 4000504;
    boardSwitch(awbEnableSet, false);
    auto& wb = dynamic_cast<WbWidget&>(page("White Balance"));
    auto* pRed = wb.pSliderSpinWidgetRed;
    auto* pBlue = wb.pSliderSpinWidgetBlue;
    const auto isBold = [](QWidget* pRow) { return pRow->findChild<QLabel*>()->font().bold(); };
    const auto before = board->recordGet("Wb", 0);
    const double red = pRed->value();
    EXPECT_EQ(menuOf(pRed), QStringList({QString("Back to %1 as read").arg(red, 0, 'f', 3), "Copy value"}));

    type(pRed, "1.5");
    type(pBlue, "1.75");
    refresh();
    EXPECT_TRUE(isBold(pRed) && isBold(pBlue)) << "also when the change was read back";
    EXPECT_FALSE(isBold(wb.pSliderSpinWidgetGreenR));
    EXPECT_FALSE(pRed->findChild<QDoubleSpinBox*>()->font().bold()) << "that is for what the board has changed";
    menuOf(pRed, QString("Back to %1 as first read").arg(red, 0, 'f', 3));
    EXPECT_EQ(pRed->value(), red);
    EXPECT_FALSE(isBold(pRed));

    type(pRed, "1.5");
    type(wb.pSliderSpinWidgetGreenB, "2.5");
    wb.pSliderSpinWidgetGreenB->setEnabled(false);
    board->requestsClear();
    menuOf(wb.pSliderSpinWidgetGreenR, "Back to the page as first read");
    EXPECT_EQ(sent(wbConfigSet), 2u) << "one each, none for the row that is grey";
    EXPECT_EQ(wb.pSliderSpinWidgetGreenB->value(), 2.5);
    wb.pSliderSpinWidgetGreenB->setEnabled(true);
    menuOf(pRed, "Back to the page as first read");
    EXPECT_EQ(board->recordGet("Wb", 0), before);

    type(pRed, "1.5");
    type(pBlue, "1.75");
    board->faultSet({Fault::Error, wbConfigSet, -1, 0, "gone"});
    board->requestsClear();
    menuOf(pRed, "Back to the page as first read");
    EXPECT_EQ(sent(wbConfigSet), 1u) << "a dead board is not asked once for each row";
    EXPECT_TRUE(isBold(pBlue));
    board->faultsClear();

    // What another connection reads is the first again, also where that is tried by a way back.
    reconnect();
    menuOf(pRed, "Back to the page as first read");
    EXPECT_EQ(pBlue->value(), 1.75);
    EXPECT_FALSE(isBold(pRed) || isBold(pBlue));
    auto value = record<rest::Wb::Config>("Wb");
    value.wbGains.Red = 2;
    board->recordSet("Wb", 0, std::string(reinterpret_cast<const char*>(&value), sizeof value));
    refresh();
    EXPECT_TRUE(isBold(pRed)) << "whoever has changed it";
    pMainWindow->inputFollow(1);
    refresh();
    EXPECT_FALSE(isBold(pRed)) << "of another sensor";
}

TEST_F(PageBaseTest, RowsThatKeepAnOrderGoBackTogether)
{
    constexpr int dnr2EnableSet = 4001504;
    boardSwitch(dnr2EnableSet, false, rest::Dnr2::V5);
    auto& dnr = dynamic_cast<Dnr2V5Widget&>(page("2D Noise Reduction 5"));
    auto* pLower = dnr.sliderSpinWidgets[Dnr2V5Widget::BlendOpacityStatic];
    auto* pUpper = dnr.sliderSpinWidgets[Dnr2V5Widget::BlendOpacityMoving];
    type(pUpper, "90");
    type(pLower, "80");
    reconnect();
    refresh();
    type(pLower, "10");
    type(pUpper, "20");
    menuOf(pLower, "Back to the page as first read");
    EXPECT_EQ(pLower->value(), 80) << "held back until the other one had gone";
    EXPECT_EQ(pUpper->value(), 90);
}

TEST_F(PageBaseTest, MultiWidgetLeavesReadingToItsPages)
{
    auto& multi = add(new MultiWidget(nullptr, "Multi"));
    auto* pFirst = new ReadingPage("First");
    auto* pSecond = new ReadingPage("Second");
    multi.addWidget(pFirst, "1st & only");
    multi.addWidget(pSecond, "2nd");
    EXPECT_EQ(multi.pComboBox->itemText(0), "1st & only");
    show(&multi);
    EXPECT_EQ(pFirst->taken(), "configGet; read, grey; read, Reading ON");
    EXPECT_EQ(led().toolTip(), "Reading ON") << "the container's own show turns nothing grey";
    multi.pComboBox->setCurrentIndex(1);
    EXPECT_EQ(pSecond->taken(), "configGet; read, grey; read, Reading ON");
    EXPECT_TRUE(pFirst->isHidden());
    emit pMainWindow->refresh();
    EXPECT_EQ(pFirst->taken(), "");
    EXPECT_EQ(pSecond->taken(), "configGet; read, grey");
    board->faultSet({Fault::Error, enableGetId, -1, 0, "gone"});
    emit pMainWindow->refresh();
    EXPECT_EQ(status(), "Server: gone") << "the container does not write over its page's failure";
    board->faultsClear();

    ReadingPage outside("Outside");
    multi.pComboBox->addItem("no widget", 7);
    multi.pComboBox->addItem("not in the stack", QVariant::fromValue<QWidget*>(&outside));
    for (int index : {2, 3, -1})
    {
        multi.pComboBox->setCurrentIndex(index);
        EXPECT_EQ(multi.pStackedWidget->currentWidget(), pSecond);
    }
}
