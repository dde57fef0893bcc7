// The window size that each page remembers.

#include "tests/support/reading-page.h"
#include "tuning-client/source/config/config.h"

// With the window's size kept for pages, the pages of a dialog and the parts of a page must leave it alone.
TEST_F(PageBaseTest, OnlyPagesWithANameKeepASize)
{
    config.preferences.window.isAutoResize = true;
    auto& page = add(new ReadingPage);
    page.sizeStore = {1300, 800};
    show(&page);
    for (auto role : {AbstractWidget::Role::Part, AbstractWidget::Role::Container})
    {
        auto* pInner = new ReadingPage(role == AbstractWidget::Role::Part ? "Part" : "", role);
        page.pGridLayoutScrollArea->addWidget(pInner);
        pInner->show();
        pInner->grab();
        pInner->hide();
        EXPECT_FALSE(pInner->sizeStore.isValid());
        EXPECT_EQ(pInner->taken().find("grey"), std::string::npos) << "announces no read";
        delete pInner;
    }
    const Modals closing(
        [](QDialog& dialog)
        {
            dialog.grab();
            dialog.reject();
        });
    actionOf(pMainWindow->findChildren<QAction*>(), "&Preferences")->trigger();
    EXPECT_EQ(pMainWindow->size(), QSize(1300, 800));
    pMainWindow.reset();
    EXPECT_EQ(config.widget.jRoot.keys().filter(QRegularExpression("^$|^(Part|calibration|capture|server|window)$")),
              QStringList());
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

    // A page of that name inside another one has no part in it.
    auto& frame = add(new ReadingPage("Frame"));
    auto* pInner = new ReadingPage("First", AbstractWidget::Role::Page, &frame);
    pInner->sizeStore = QSize(1, 1);
    delete &frame;
    EXPECT_EQ(config.widget.jRoot["First"].toObject()["size"].toObject(), jSize);
}

TEST_F(PageBaseTest, WindowIsLeftAloneWhileMaximisedOrUnlessTheUserWantsIt)
{
    for (const bool isMaximised : {false, true})
    {
        config.preferences.window.isAutoResize = isMaximised;
        if (isMaximised)
            pMainWindow->showMaximized();
        const auto size = pMainWindow->size();
        for (const auto& known : {QSize(), QSize(1300, 800)})
        {
            auto* pPage = &add(new ReadingPage);
            pPage->sizeStore = known;
            show(pPage);
            pPage->grab();
            EXPECT_EQ(pMainWindow->size(), size);
            EXPECT_EQ(pMainWindow->isMaximized(), isMaximised);
            show(pEmpty);
            EXPECT_EQ(pPage->sizeStore, known);
            delete pPage;
            EXPECT_EQ(config.widget.jRoot["Reading"].toObject().isEmpty(), !isMaximised || !known.isValid());
        }
    }
}

TEST_F(PageBaseTest, StoredSizeOfAnyShapeIsHarmless)
{
    config.preferences.window.isAutoResize = true;
    const QJsonValue sizes[] = {"text", QJsonObject{{"width", "wide"}, {"height", QJsonArray{1, 2}}},
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
