#include "tests/support/board-fixture.h"
#include "tuning-client/source/about-dialog.h"

namespace
{
constexpr int64_t VersionGet = 20002;

class AboutTest : public BoardTest
{
protected:
    AboutTest()
    {
        chipWrite("Empty", {});
        config.setting.chipName = "Empty";
        open();
        board->requestsClear();
    }

    /// Through the menu, as the user opens it.
    AboutDialog* about()
    {
        pMainWindow->menuBar()->actions().last()->menu()->actions().first()->trigger();
        return pMainWindow->findChild<AboutDialog*>();
    }

    /// Title and rows of each box; the columns of a row are divided by bars.
    QStringList shown()
    {
        const std::unique_ptr<AboutDialog> pDialog(about());
        QStringList texts;
        for (const auto* pBox : pDialog->findChildren<QGroupBox*>())
        {
            texts.append(pBox->title());
            const auto* pLayout = qobject_cast<QGridLayout*>(pBox->layout());
            for (int row = 0; pLayout->itemAtPosition(row, 0); ++row)
            {
                QStringList columns;
                for (int column = 0; column < 3; ++column)
                {
                    const auto* pLabel = qobject_cast<QLabel*>(pLayout->itemAtPosition(row, column)->widget());
                    EXPECT_EQ(pLabel->textFormat(), Qt::PlainText);
                    columns.append(pLabel->text());
                }
                texts.append(columns.join("|"));
            }
        }
        return texts;
    }

    const QStringList client{"Client End", "Client|4.3.0|2022-11-16 09:18:52", "REST|4.3.0|2022-11-16 09:18:29",
                             "Qt|5.14.2|"};
};
} // namespace

TEST_F(AboutTest, ShowsBothEndsAndGoesWhenItIsClosed)
{
    EXPECT_EQ(shown(), client + QStringList({"Server End", "Board|1.2.0|2022-11-16 09:18:29",
                                             "Camera Engine|4.3.0|2022-11-16 09:18:29",
                                             "Sensor Driver|2.1.4|2022-10-07 14:02:11"}));
    EXPECT_EQ(sent(VersionGet), 1u);

    const QPointer<AboutDialog> pDialog = about();
    EXPECT_TRUE(pDialog->isVisible() && pDialog->isModal());
    EXPECT_EQ(pDialog->windowTitle(), "About ISP Tuning Tools");
    EXPECT_FALSE(pDialog->findChild<QLabel*>()->pixmap(Qt::ReturnByValue).isNull());
    pDialog->close();
    EXPECT_TRUE(waitUntil([&] { return pDialog.isNull(); }));
}

TEST_F(AboutTest, ShowsWhatABoardMayAnswer)
{
    Json::Value odd(Json::arrayValue);
    odd[0]["name"] = "<b>a</b>\n\x1b[31m";
    auto large = odd;
    large[0]["name"] = std::string(1 << 20, 'n');
    auto mixed = odd;
    mixed.append("no object");
    const std::pair<Json::Value, QStringList> answers[] = {
        {Json::arrayValue, {"Server End"}},
        {odd, {"Server End", "<b>a</b> ?[31m||"}},
        {large, {"Server End", QString(4096, 'n') + "...||"}},
        {Json::objectValue, {}},
        {mixed, {}},
    };
    for (const auto& [jVersions, server] : answers)
    {
        board->answerSet(VersionGet, "versions", jVersions);
        EXPECT_EQ(shown(), client + server);
    }
    board->listenSet(false);
    EXPECT_EQ(shown(), client) << "no board";
}
