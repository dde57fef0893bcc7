#include "tests/support/board-fixture.h"
#include "tuning-client/source/about-dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

using board::Fault;

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
        auto* pMenuHelp = pMainWindow->menuBar()->actions().last()->menu();
        pMenuHelp->actions().first()->trigger();
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

Json::Value versions(const std::string& name)
{
    Json::Value jVersion;
    jVersion["name"] = name;
    Json::Value jVersions(Json::arrayValue);
    jVersions.append(jVersion);
    return jVersions;
}
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

TEST_F(AboutTest, OddAnswersAreBounded)
{
    board->answerSet(VersionGet, "versions", Json::Value(Json::arrayValue));
    EXPECT_EQ(shown(), client + QStringList("Server End")) << "an empty list gives an empty box";

    board->answerSet(VersionGet, "versions", versions("<b>a</b>\n\x1b[31m"));
    EXPECT_EQ(shown(), client + QStringList({"Server End", "<b>a</b> ?[31m||"}));

    board->answerSet(VersionGet, "versions", versions(std::string(1 << 20, 'n')));
    EXPECT_LT(shown().last().size(), 5000);
}

TEST_F(AboutTest, WithoutASoundAnswerOnlyTheClientIsShown)
{
    Json::Value mixed = versions("Board");
    mixed.append("no object");
    for (const auto& jVersions : {Json::Value("text"), Json::Value(Json::objectValue), Json::Value(5), mixed})
    {
        board->answerSet(VersionGet, "versions", jVersions);
        EXPECT_EQ(shown(), client) << jVersions.toStyledString();
    }
    board->answersClear();
    for (const auto kind : {Fault::Error, Fault::NotJson, Fault::WrongTypes, Fault::ResetInBody, Fault::Silence})
    {
        board->faultSet({kind, VersionGet});
        EXPECT_EQ(shown(), client) << kind;
    }
    board->faultsClear();
    board->listenSet(false);
    EXPECT_EQ(shown(), client) << "no board";
}
