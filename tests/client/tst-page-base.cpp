// What every page inherits: when it reads, how a failure reaches the user, and the window size that it remembers.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/multi-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-rest/source/ae.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QJsonArray>
#include <QJsonObject>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

#include <stdexcept>

using board::Fault;
using rest::Ae;

namespace
{
constexpr int enableGetId = 4000103;

bool isGrey(const QLabel* pLed)
{
    return pLed->toolTip().isEmpty() &&
           pLed->pixmap(Qt::ReturnByValue).toImage() == QPixmap(":/images/gray.png").toImage();
}

/// A page as the catalogue has them, which tells what happens to it.
class ReadingPage : public AbstractWidget
{
public:
    explicit ReadingPage(const QString& name = "Reading") : AbstractWidget(nullptr, name) {}

    void configGet() override
    {
        AbstractWidget::configGet();
        steps += "configGet";
        if (isConfigGetFailing)
            throw std::runtime_error("configGet failed");
    }

    void configSet(bool isDefault) override
    {
        steps += isDefault ? "write default" : "write";
        throw std::runtime_error("configSet failed");
    }

    void updateStatus() override
    {
        const auto* pLed = statusBarLabel("LED");
        steps += !pLed ? "read" : isGrey(pLed) ? "read, grey" : "read, " + pLed->toolTip();
        message = statusBar() ? statusBar()->currentMessage() : "none";
        if (fInRead)
            fInRead();
        bool isEnable = false;
        Ae().enableGet(isEnable, Ae::V1);
        statusBarLabelLed(isEnable, isEnable ? "Reading ON" : "Reading OFF");
    }

    QSize sizeHint() const override { return {1400, 900}; }

    std::string taken()
    {
        const auto text = steps.join("; ").toStdString();
        steps.clear();
        return text;
    }

    QStringList steps;
    QString message; ///< in the status bar while the page read last
    bool isConfigGetFailing = false;
    std::function<void()> fInRead;
};

class PageBaseTest : public BoardTest
{
protected:
    PageBaseTest()
    {
        config.widget.jRoot = {};
        open();
        // The auto exposure page comes first: away from its timer.
        central().pStackedWidget->setCurrentWidget(pEmpty);
        board->requestsClear();
        for (auto* pPage : pMainWindow->findChildren<AbstractWidget*>())
            pPage->sizeStore = pMainWindow->size();
    }

    ~PageBaseTest() override { config.preferences.window.isAutoResize = false; }

    MainWindow& open()
    {
        auto& window = BoardTest::open();
        pEmpty = new QWidget;
        central().pStackedWidget->addWidget(pEmpty);
        return window;
    }

    template <class Page>
    Page& add(Page* pPage)
    {
        central().pStackedWidget->addWidget(pPage);
        return *pPage;
    }

    void show(QWidget* pWidget) { central().pStackedWidget->setCurrentWidget(pWidget); }

    /// The text in the status bar stays until the next one.
    bool isStatusLasting() const { return !pMainWindow->statusBar()->findChild<QTimer*>(); }

    QWidget* pEmpty;
};

/// A turn of the wheel over the middle of `pWidget`, as the window system reports it.
void wheelTurn(QWidget* pWidget, int delta)
{
    auto* pWindow = pWidget->window();
    const auto middle = pWidget->rect().center();
    QWheelEvent wheel(pWidget->mapTo(pWindow, middle), pWidget->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    // Only such events go on to the parent.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(pWindow->windowHandle(), &wheel);
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
    EXPECT_EQ(page.taken(), "read, Reading ON") << "the next read after a failed one";
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

TEST_F(PageBaseTest, WindowFitsAPageOnceAndReturnsToWhatTheUserLeft)
{
    config.preferences.window.isAutoResize = true;
    auto& first = add(new ReadingPage("First"));
    auto& second = add(new ReadingPage("Second"));
    show(&first);
    ASSERT_TRUE(waitUntil([&] { return first.size() == first.sizeHint(); })) << first.width() << "x" << first.height();
    EXPECT_EQ(first.sizeStore, pMainWindow->size());
    pMainWindow->resize(1300, 800);
    show(&second);
    ASSERT_TRUE(waitUntil([&] { return second.size() == second.sizeHint(); }));
    EXPECT_EQ(first.sizeStore, QSize(1300, 800)) << "stored before the next page resizes the window";

    pMainWindow->resize(1250, 790);
    show(&first);
    EXPECT_EQ(pMainWindow->size(), QSize(1300, 800));
    EXPECT_EQ(second.sizeStore, QSize(1250, 790));
    first.grab();
    EXPECT_EQ(pMainWindow->size(), QSize(1300, 800)) << "no second fitting";

    // A page that goes adds its size to what else is stored for it.
    config.widget.jRoot["First"] = QJsonObject{{"other", 7}, {"size", QJsonObject{{"width", 1}}}};
    pMainWindow->resize(1280, 810);
    show(pEmpty);
    delete &first;
    const auto jSize = QJsonObject{{"width", 1280}, {"height", 810}};
    EXPECT_EQ(config.widget.jRoot["First"].toObject(), (QJsonObject{{"other", 7}, {"size", jSize}}));
    EXPECT_EQ(ReadingPage("First").sizeStore, QSize(1280, 810));
    EXPECT_FALSE(ReadingPage("Third").sizeStore.isValid());
}

TEST_F(PageBaseTest, MaximisedWindowIsLeftAlone)
{
    config.preferences.window.isAutoResize = true;
    pMainWindow->showMaximized();
    const auto maximised = pMainWindow->size();
    for (const auto& known : {QSize(), QSize(1200, 760)})
    {
        auto& page = add(new ReadingPage);
        page.sizeStore = known;
        show(&page);
        page.grab();
        EXPECT_EQ(pMainWindow->size(), maximised);
        EXPECT_TRUE(pMainWindow->isMaximized());
        show(pEmpty);
        EXPECT_EQ(page.sizeStore, known);
    }
}

TEST_F(PageBaseTest, WithoutAutoResizeNothingIsResizedOrStored)
{
    const auto size = pMainWindow->size();
    for (const auto& known : {QSize(), QSize(1300, 800)})
    {
        auto* pPage = &add(new ReadingPage);
        pPage->sizeStore = known;
        show(pPage);
        pPage->grab();
        show(pEmpty);
        EXPECT_EQ(pMainWindow->size(), size);
        EXPECT_EQ(pPage->sizeStore, known);
        delete pPage;
        EXPECT_TRUE(config.widget.jRoot["Reading"].toObject().isEmpty());
    }
}

TEST_F(PageBaseTest, StoredSizeOfAnyShapeIsHarmless)
{
    config.preferences.window.isAutoResize = true;
    const QJsonValue sizes[] = {7,
                                "text",
                                QJsonArray{1, 2},
                                QJsonObject{{"width", "wide"}, {"height", QJsonObject()}},
                                QJsonObject{{"width", -7}, {"height", -7}},
                                QJsonObject{{"width", 2147483647}, {"height", 2147483647}},
                                QJsonObject{{"width", 1e300}, {"height", 1200}}};
    for (const auto& jSize : sizes)
    {
        for (const auto& jPage : {QJsonValue(QJsonObject{{"size", jSize}}), jSize})
        {
            config.widget.jRoot["Reading"] = jPage;
            auto* pPage = &add(new ReadingPage);
            show(pPage);
            QTest::qWait(0);
            pMainWindow->grab();
            EXPECT_LE(pMainWindow->width(), 4000);
            EXPECT_LE(pMainWindow->height(), 4000);
            show(pEmpty);
            delete pPage;
        }
    }
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
            wheelTurn(pControl, -120);
            EXPECT_GT(pBar->value(), 0) << pControl->metaObject()->className();
        }
        EXPECT_NE(pControl->focusPolicy(), Qt::WheelFocus);
    }
    EXPECT_EQ(pComboBox->currentIndex(), 1);
    for (auto* pRow : pPage->findChildren<SliderSpinWidget*>())
        EXPECT_EQ(pRow->value(), 0);
    pBar->setValue(0);
    wheelTurn(pBar, -120);
    EXPECT_GT(pBar->value(), 0) << "the scroll bar itself";
}

TEST_F(PageBaseTest, MultiWidgetLeavesReadingToItsPages)
{
    auto& multi = add(new MultiWidget(nullptr, "Multi"));
    auto* pFirst = new ReadingPage("First");
    auto* pSecond = new ReadingPage("Second");
    multi.addWidget(pFirst, "1st & only");
    multi.addWidget(pSecond, "2nd");
    EXPECT_EQ(multi.pComboBox->itemText(0), "1st & only");
    auto* pGrid = multi.pGridLayoutScrollArea;
    auto* pLabel = qobject_cast<QLabel*>(pGrid->itemAtPosition(0, 0)->widget());
    ASSERT_TRUE(pLabel);
    EXPECT_EQ(pLabel->text(), "Module");
    EXPECT_EQ(pLabel->buddy(), multi.pComboBox);
    EXPECT_EQ(pGrid->itemAtPosition(0, 1)->widget(), multi.pComboBox);
    EXPECT_EQ(pGrid->itemAtPosition(1, 0), pGrid->itemAtPosition(1, 1));

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
