#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tests/support/full-disk.h"
#include "tuning-client/source/control/json-model.h"
#include "tuning-client/source/control/json-view.h"
#include "tuning-client/source/module/3a-widget.h"

#include <sys/stat.h>

using board::Fault;

namespace
{
constexpr auto name = "3aconfig.json";
const QByteArray sample =
    "{\r\n\t\"z\": [1, 2.50],\n  \"a\" : {\"long\": 9007199254740993, \"name\": \"gr\\u00fcn ü\"}\n}\n";

class ThreeAPageTest : public BoardTest
{
protected:
    ThreeAPageTest()
    {
        QDir().rmdir(name);
        QFile::remove(name);
        boardWrite(sample);
    }

    QString boardPath() const { return QString::fromStdString(board->directory()) + "/" + name; }
    void boardWrite(const QByteArray& bytes) { fileWrite(boardPath(), bytes); }

    _3AWidget& show() { return dynamic_cast<_3AWidget&>(page("3A Config")); }

    static JsonModel& model(const _3AWidget& widget) { return *qobject_cast<JsonModel*>(widget.pJsonView->model()); }

    static void press(QPushButton* pButton) { QTest::mouseClick(pButton, Qt::LeftButton); }
};
} // namespace

TEST_F(ThreeAPageTest, UntouchedFileGoesBackByteForByte)
{
    auto& widget = show();
    for (const auto& bytes : {sample, sample.trimmed(), QByteArray("\n[]\n\n"), QByteArray("0.10")})
    {
        boardWrite(bytes);
        press(widget.pPushButtonLoad);
        EXPECT_EQ(fileRead(name), bytes + "\n") << "a download adds a line feed";
        boardWrite("gone");
        press(widget.pPushButtonSave);
        EXPECT_EQ(fileRead(boardPath()), bytes);
        EXPECT_EQ(fileRead(name), bytes);
    }
    EXPECT_TRUE(hasWaitCursor(Fault::Download, [&] { press(widget.pPushButtonLoad); }));
    EXPECT_TRUE(hasWaitCursor(Fault::Upload, [&] { press(widget.pPushButtonSave); }));
}

TEST_F(ThreeAPageTest, EditsReachTheBoardWithSave)
{
    auto& widget = show();
    auto& tree = model(widget);
    EXPECT_EQ(tree.index(0, 0).data(), "a");
    EXPECT_EQ(tree.index(1, 0, tree.index(0, 0)).sibling(1, 1).data(), "grün ü");
    widget.pJsonView->expandAll();
    widget.pJsonView->setCurrentIndex(tree.index(1, 0, tree.index(1, 0)));
    widget.pJsonView->pActionDuplicate->trigger();
    tree.setData(tree.index(0, 1, tree.index(1, 0)), -5, Qt::UserRole);
    EXPECT_EQ(fileRead(boardPath()), sample) << "nothing before the user says so";
    EXPECT_TRUE(widget.pPushButtonSave->font().bold());
    press(widget.pPushButtonSave);
    EXPECT_FALSE(widget.pPushButtonSave->font().bold());
    auto expected = sample;
    EXPECT_EQ(fileRead(boardPath()), expected.replace("[1, 2.50]", "[-5, 2.50, 2.50]"));

    // A refresh shows the board's file again.
    widget.pJsonView->pActionDuplicate->trigger();
    EXPECT_TRUE(widget.pPushButtonSave->font().bold());
    boardWrite("{\"b\": true}");
    emit pMainWindow->refresh();
    EXPECT_EQ(model(widget).rowCount(), 1);
    EXPECT_EQ(model(widget).index(0, 0).data(), "b");
    EXPECT_TRUE(waitUntil([&] { return status() == "Unsaved changes of 3aconfig.json were dropped"; }));
    EXPECT_FALSE(widget.pPushButtonSave->font().bold());
    emit pMainWindow->refresh();
    QCoreApplication::processEvents();
    EXPECT_EQ(status(), "Request update...") << "nothing was dropped";
}

TEST_F(ThreeAPageTest, WhatAnEditorRefusesIsToldWithAnExample)
{
    auto& widget = show();
    auto& tree = model(widget);
    pMainWindow->activateWindow();
    ASSERT_TRUE(waitUntil([&] { return pMainWindow->isActiveWindow(); }));
    widget.pJsonView->expandAll();
    const auto edit = [&](int row)
    {
        widget.pJsonView->edit(tree.index(row, 1, tree.index(1, 0)));
        return widget.pJsonView->viewport()->findChild<QLineEdit*>();
    };
    EXPECT_TRUE(typeOver(edit(1), "12"));
    EXPECT_EQ(status(), "\"12\" is not taken: A number with a point and digits behind it, such as 12.0, or one digit. "
                        "Escape leaves the old value.");
    EXPECT_FALSE(typeOver(edit(1), "12.0"));
    EXPECT_EQ(status(), "") << "that is over";
    QTest::keyClicks(edit(0), "x");
    EXPECT_TRUE(status().startsWith("What was typed is not taken: A whole number of 64 bits, such as "))
        << str(status());
}

TEST_F(ThreeAPageTest, FailuresLeaveTheDocumentAndTheFiles)
{
    auto& widget = show();
    // What is not there comes as the board's page for that.
    for (const auto& bytes : {QByteArray(), sample.left(40), QByteArray("not there")})
    {
        boardWrite(bytes);
        if (bytes == "not there")
            QFile::remove(boardPath());
        press(widget.pPushButtonLoad);
        EXPECT_TRUE(status().contains("JSON parse failed: ")) << str(status());
    }
    press(widget.pPushButtonSave);
    EXPECT_EQ(fileRead(boardPath()), sample);

    for (const auto kind : {Fault::ResetInBody, Fault::NotHttp})
    {
        board->faultSet({kind, Fault::Download});
        press(widget.pPushButtonLoad);
        EXPECT_TRUE(status().contains("Connection to ")) << str(status());
    }
    board->faultsClear();
    board->requestsClear();
    {
        const FullDisk disk(10);
        press(widget.pPushButtonSave);
        EXPECT_TRUE(status().contains("Saving of \"3aconfig.json\" failed")) << str(status());
    }
    EXPECT_EQ(sent(Fault::Upload), 0u);
    EXPECT_EQ(fileRead(name), sample);
    EXPECT_EQ(model(widget).rowCount(), 2);
    press(widget.pPushButtonLoad);
    EXPECT_EQ(status(), "Request update...") << "the failure is over";
}

// Both pages that read a file for their show.
TEST_F(ThreeAPageTest, SilentBoardHoldsNoPageForLong)
{
    board->faultSet({Fault::Silence, Fault::Download});
    const auto expectShort = [this](const char* pPage)
    {
        QElapsedTimer clock;
        clock.start();
        page(pPage);
        EXPECT_LT(clock.elapsed(), 2500) << pPage;
        EXPECT_TRUE(status().endsWith("nothing has moved for 2 s")) << str(status());
    };
    expectShort("3A Config");
    EXPECT_THROW(show().configSet(), std::runtime_error) << "there is no document";
    EXPECT_EQ(sent(Fault::Upload), 0u);
    expectShort("Calibration Data");
}

TEST_F(ThreeAPageTest, WhatLiesHereIsNotTakenForTheBoards)
{
    // Where no file can be made.
    ASSERT_TRUE(QFile::link("/proc/self/status", name));
    auto& widget = show();
    EXPECT_EQ(status(), "Download failed: 3aconfig.json did not arrive");
    EXPECT_EQ(widget.jRoot.type(), t_json::ValueTypeNull);
    QFile::remove(name);
    ASSERT_EQ(mkfifo(name, 0600), 0);
    press(widget.pPushButtonLoad);
    EXPECT_EQ(status(), "Download failed: 3aconfig.json did not arrive");
    QFile::remove(name);
}
