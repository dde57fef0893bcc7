// Ctrl+K: what the box finds, in which order, and where it leads.

#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/finder-box.h"
#include "tuning-client/source/control/highlight.h"
#include "tuning-client/source/control/slider-spin-widget.h"

using shortcut::WordSearch;

namespace
{
constexpr int AwbEnableSet = 4000504;

class FinderTest : public BoardTest
{
protected:
    FinderTest()
    {
        boardSwitch(AwbEnableSet, false);
        open();
        pMainWindow->activateWindow();
    }

    /// Ctrl+K, where the focus is, and `text`.
    void find(const QString& text)
    {
        EXPECT_TRUE(waitUntil([this] { return pMainWindow->isActiveWindow(); }));
        auto* pFocus = QApplication::focusWidget();
        QTest::keyClick(pFocus ? pFocus : pMainWindow.get(), Qt::Key_K, Qt::ControlModifier);
        pBox = qobject_cast<FinderBox*>(QApplication::activePopupWidget());
        if (!pBox)
            throw std::logic_error("Ctrl+K opened no box");
        QTest::keyClicks(pBox->focusWidget(), text);
    }

    void go(const QString& text)
    {
        find(text);
        QTest::keyClick(pBox->focusWidget(), Qt::Key_Return);
        closed();
    }

    /// The box is gone, and the window has the keys again.
    void closed()
    {
        EXPECT_FALSE(QApplication::activePopupWidget());
        EXPECT_TRUE(waitUntil([this] { return pMainWindow->isActiveWindow(); }));
        QApplication::processEvents();
    }

    QAbstractItemModel& listed() { return *pBox->findChild<QListView*>()->model(); }

    QStringList found()
    {
        QStringList texts;
        for (int i = 0; i < listed().rowCount(); ++i)
            texts.append(listed().index(i, 0).data().toString());
        return texts;
    }

    QString shownPage() { return pMainWindow->findChild<QTreeView*>()->currentIndex().data().toString(); }

    QWidget& current() { return *central().pStackedWidget->currentWidget(); }

    static QString focusName()
    {
        auto* pFocus = QApplication::focusWidget();
        return pFocus ? pFocus->accessibleName() : QString();
    }

    static bool isInView(const QWidget* pWidget) { return pWidget->visibleRegion().boundingRect() == pWidget->rect(); }

    FinderBox* pBox = nullptr;
};
} // namespace

TEST(WordSearch, WholeWordsComeFirstThenPartsThenMisspeltOnes)
{
    WordSearch search;
    const QStringList paths{"Regain", "Grain", "Auto > Gain Max", "Gains", "Gain", "Gain > Level", "Wide Range 4"};
    for (const auto& path : paths)
        search.add(path.split(" > "));
    const auto found = [&](const char* text)
    {
        QStringList texts;
        for (int i : search.find(text))
            texts.append(paths[i]);
        return texts.join("; ").toStdString();
    };
    EXPECT_EQ(found("gain"), "Gain; Auto > Gain Max; Gain > Level; Gains; Regain; Grain");
    EXPECT_EQ(found("AUTO ga"), "Auto > Gain Max");
    EXPECT_EQ(found("gain auto"), "Auto > Gain Max");
    EXPECT_EQ(found("wr4"), "Wide Range 4");
    EXPECT_EQ(found("r4"), "") << "initials are no word to look into";
    for (const auto* text : {"lvel", "levvel", "lebel", "elvel", "leevl", "xlevel", "leve", "lvel gain"})
        EXPECT_EQ(found(text), "Gain > Level") << text;
    EXPECT_EQ(found("rnge"), "Wide Range 4");
    EXPECT_EQ(found("lel"), "") << "two letters are missing";
    EXPECT_EQ(found("gain zoom"), "") << "all words have to be there";
    EXPECT_EQ(found(" ."), "");
}

TEST_F(FinderTest, KeysLeadToAControlAndEscapeLeadsBack)
{
    page("Digital Gain");
    find("wb red");
    EXPECT_EQ(found().first(), QString::fromUtf8("White Balance › White Balance Gains › Red"));
    const auto second = found()[1];
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Down);
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Up);
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Return);
    closed();
    EXPECT_EQ(shownPage(), "White Balance");
    EXPECT_EQ(focusName(), "Red");
    auto* pRow = qobject_cast<SliderSpinWidget*>(QApplication::focusWidget()->parentWidget());
    ASSERT_TRUE(pRow);
    EXPECT_TRUE(waitUntil([&] { return pRow->findChild<Highlight*>(); }));
    EXPECT_TRUE(waitUntil([&] { return !pRow->findChild<Highlight*>(); })) << "for a moment only";

    // From a spin box, whose line has a use of its own for many keys.
    auto* pFocus = QApplication::focusWidget();
    find("whit balnce");
    EXPECT_TRUE(found().first().contains("White Balance"));
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Escape);
    closed();
    EXPECT_EQ(QApplication::focusWidget(), pFocus);
    EXPECT_EQ(shownPage(), "White Balance");

    find("");
    EXPECT_EQ(found().size(), chips.chip.pages.size());
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(pBox->isVisible()) << "nothing is chosen yet";
    QTest::keyClicks(pBox->focusWidget(), "qqqq");
    EXPECT_EQ(found(), QStringList("Nothing found"));
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Return);
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Escape);

    find("wb red");
    auto* pList = pBox->findChild<QListView*>();
    const auto place = pList->visualRect(listed().index(found().indexOf(second), 0)).center();
    QTest::mouseClick(pList->viewport(), Qt::LeftButton, {}, place);
    closed();
    EXPECT_TRUE(second.endsWith(focusName())) << second.toStdString();
}

TEST_F(FinderTest, TabsAndInnerPagesAreTurnedToAndScrolledTo)
{
    go("hdr deghost motion weight short");
    EXPECT_EQ(shownPage(), "High Dynamic Range 2");
    EXPECT_EQ(focusName(), "Motion Weight Short");
    EXPECT_TRUE(isInView(QApplication::focusWidget()));
    for (const QString tab : {"Dpf", "Scene Luminance"})
    {
        go(tab);
        auto* pTabBar = qobject_cast<QTabBar*>(QApplication::focusWidget());
        ASSERT_TRUE(pTabBar);
        EXPECT_EQ(pTabBar->tabText(pTabBar->currentIndex()), tab) << "also one of a plot alone";
    }
    find("dehaze reset");
    EXPECT_EQ(found(), QStringList("Nothing found")) << "that page has none";
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Escape);

    // All inner pages are in the box that chooses them.
    page("Input Control");
    for (const QString inner : {"Sensor", "Image"})
    {
        go("input control " + inner);
        auto* pCombo = qobject_cast<QComboBox*>(QApplication::focusWidget());
        ASSERT_TRUE(pCombo);
        EXPECT_TRUE(pCombo->currentText().startsWith(inner));
    }
}

TEST_F(FinderTest, ControlThatCannotTakeTheFocusIsShownAllTheSame)
{
    boardSwitch(AwbEnableSet, true);
    go("wb red");
    EXPECT_EQ(shownPage(), "White Balance");
    EXPECT_NE(focusName(), "Red") << "the page is in the hands of the board";
    EXPECT_TRUE(waitUntil([&] { return current().findChild<Highlight*>(); }));

    // A chip chosen anew has pages of its own, in another order.
    chipWrite("Full", {"Digital Gain", "White Balance"});
    chips.chipSet("Full");
    find("");
    EXPECT_EQ(found(), QStringList({"Digital Gain", "White Balance"}));
    QTest::keyClicks(pBox->focusWidget(), "wb");
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(shownPage(), "White Balance");

    // So has a page that gains and loses a control.
    auto pButton = std::make_unique<QPushButton>("Zyx", &current());
    find("zyx");
    EXPECT_TRUE(found().first().endsWith("Zyx"));
    QTest::keyClick(pBox->focusWidget(), Qt::Key_Escape);
    pButton.reset();
    find("zyx");
    EXPECT_EQ(found(), QStringList("Nothing found"));
}

TEST_F(FinderTest, EveryControlIsFoundByItsNames)
{
    for (int i = 0; i < central().pStackedWidget->count(); ++i)
    {
        auto* pPage = central().pStackedWidget->widget(i);
        find(pPage->accessibleName());
        for (auto* pControl : pPage->findChildren<QWidget*>())
        {
            const bool isControl = qobject_cast<QAbstractSpinBox*>(pControl) || qobject_cast<QComboBox*>(pControl) ||
                                   qobject_cast<QAbstractButton*>(pControl);
            const auto* pButton = qobject_cast<QAbstractButton*>(pControl);
            auto name = pControl->accessibleName();
            if (name.isEmpty() && pButton)
                name = pButton->text().remove('&');
            if (!isControl || !(pControl->focusPolicy() & Qt::TabFocus) || qobject_cast<QTabBar*>(pControl->parent()))
                continue;
            auto* pLine = qobject_cast<QLineEdit*>(pBox->focusWidget());
            pLine->setText(pPage->accessibleName() + ' ' + name);
            const auto texts = found();
            EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                                    [&](QString text) {
                                        return text.startsWith(pPage->accessibleName()) &&
                                               text.remove('&').endsWith(name);
                                    }))
                << pLine->text().toStdString();
        }
        QTest::keyClick(pBox->focusWidget(), Qt::Key_Escape);
    }
}
