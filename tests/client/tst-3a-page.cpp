#include "tests/support/board-fixture.h"
#include "tests/support/files.h"
#include "tests/support/full-disk.h"
#include "tuning-client/source/control/json-model.h"
#include "tuning-client/source/control/json-view.h"
#include "tuning-client/source/module/3a-widget.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QAction>
#include <QPushButton>
#include <QTest>

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
    for (const auto& bytes : {sample, sample.trimmed(), QByteArray("\n[]\n\n"), QByteArray("0.10")})
    {
        boardWrite(bytes);
        auto& widget = show();
        press(widget.pPushButtonLoad);
        EXPECT_EQ(fileRead(name), bytes + "\n") << "a download adds a line feed";
        board->requestsClear();
        press(widget.pPushButtonSave);
        EXPECT_EQ(sent(Fault::Upload), 1u);
        EXPECT_EQ(board->requestCount(), 1u);
        EXPECT_EQ(fileRead(boardPath()), bytes);
        EXPECT_EQ(fileRead(name), bytes);
    }
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
    press(widget.pPushButtonSave);
    auto expected = sample;
    EXPECT_EQ(fileRead(boardPath()), expected.replace("[1, 2.50]", "[-5, 2.50, 2.50]"));

    // A refresh shows the board's file again.
    boardWrite("{\"b\": true}");
    emit pMainWindow->refresh();
    EXPECT_EQ(model(widget).rowCount(), 1);
    EXPECT_EQ(model(widget).index(0, 0).data(), "b");
}

TEST_F(ThreeAPageTest, UnreadableFilesLeaveTheDocument)
{
    const struct
    {
        QByteArray bytes;
        const char* pText;
    } cases[] = {
        {"", "JSON parse failed: no value, line 1"},
        {"<html>", "JSON parse failed: no value, line 1"},
        {sample.left(40), "JSON parse failed: "},
        {QByteArray(5'000'000, '['), "nested deeper than 256"},
        {"[" + QByteArray("1,").repeated(250'000) + "1]", "more than 200000 values"},
        {QByteArray(20 << 20, ' '), "larger than 16 MiB"},
    };
    auto& widget = show();
    for (const auto& c : cases)
    {
        boardWrite(c.bytes);
        press(widget.pPushButtonLoad);
        EXPECT_TRUE(status().contains(c.pText)) << status().toStdString();
        EXPECT_EQ(model(widget).rowCount(), 2);
    }
    // Not noticed as such: the board's page for what is not there comes as the file.
    QFile::remove(boardPath());
    press(widget.pPushButtonLoad);
    EXPECT_TRUE(status().contains("JSON parse failed: no value")) << status().toStdString();
    press(widget.pPushButtonSave);
    EXPECT_EQ(fileRead(boardPath()), sample);
}

TEST_F(ThreeAPageTest, FailingTransfersLeaveTheDocumentAndTheLocalFile)
{
    auto& widget = show();
    const auto local = fileRead(name);
    for (const auto kind : {Fault::Close, Fault::ResetInBody, Fault::BodyShort, Fault::ChunkedCut, Fault::NotHttp})
    {
        board->faultSet({kind, Fault::Download});
        press(widget.pPushButtonLoad);
        board->faultsClear();
        EXPECT_TRUE(status().contains("failed")) << kind << " " << status().toStdString();
        EXPECT_EQ(fileRead(name), local);
        EXPECT_EQ(model(widget).rowCount(), 2);
    }
    board->listenSet(false);
    press(widget.pPushButtonLoad);
    EXPECT_TRUE(status().contains("failed")) << status().toStdString();
    board->listenSet(true);
    press(widget.pPushButtonLoad);
    EXPECT_EQ(status(), "Request update...") << "the failure is over";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    // Looked at from the middle of an exchange, by what the console is told.
    for (auto* pButton : {widget.pPushButtonLoad, widget.pPushButtonSave})
    {
        bool hasWaited = false;
        pMainWindow->clientHolder().abstract().reportSet(
            [&](const std::string&)
            {
                const auto* pCursor = QApplication::overrideCursor();
                hasWaited = pCursor && pCursor->shape() == Qt::WaitCursor;
            });
        press(pButton);
        EXPECT_TRUE(hasWaited);
    }
}

TEST_F(ThreeAPageTest, NothingIsSentBeforeSomethingCame)
{
    board->faultSet({Fault::Close, Fault::Download});
    auto& widget = show();
    press(widget.pPushButtonSave);
    EXPECT_EQ(status(), "Save failed: 3aconfig.json has not been loaded");
    EXPECT_EQ(fileRead(boardPath()), sample);
    EXPECT_EQ(sent(Fault::Upload), 0u);
}

TEST_F(ThreeAPageTest, FullDiskLeavesTheFilesAsTheyWere)
{
    auto& widget = show();
    const auto local = fileRead(name);
    board->requestsClear();
    {
        const FullDisk disk(10);
        press(widget.pPushButtonSave);
        EXPECT_TRUE(status().contains("Saving of \"3aconfig.json\" failed")) << status().toStdString();
        press(widget.pPushButtonLoad);
        EXPECT_TRUE(status().contains("failed")) << status().toStdString();
    }
    EXPECT_EQ(fileRead(name), local);
    EXPECT_EQ(sent(Fault::Upload), 0u);
    EXPECT_EQ(QDir().entryList({"*3aconfig*", ".download*"}, QDir::Files | QDir::Hidden), QStringList(name));
}

TEST_F(ThreeAPageTest, WhatLiesHereIsNotTakenForTheBoards)
{
    // Where no file can be made.
    ASSERT_TRUE(QFile::link("/proc/self/status", name));
    auto& widget = show();
    EXPECT_EQ(status(), "Download failed: 3aconfig.json did not arrive");
    EXPECT_EQ(widget.jRoot.type(), t_json::ValueTypeNull);

    for (const bool isPipe : {false, true})
    {
        QFile::remove(name);
        ASSERT_TRUE(isPipe ? mkfifo(name, 0600) == 0 : QDir().mkdir(name));
        press(widget.pPushButtonLoad);
        EXPECT_EQ(status(), "Download failed: 3aconfig.json did not arrive");
        QDir().rmdir(name);
    }
    QFile::remove(name);
}

TEST_F(ThreeAPageTest, SerialLineMovesNoFiles)
{
    fileWrite(name, "{\"stale\": true}");
    board.reset();
    board = std::make_unique<board::Simulator>(board::Options{0, "board", false, true});
    config.preferences.server.type = "uart";
    config.preferences.server.uart.port = QString::fromStdString(board->serialName());
    auto& widget = show();
    config.preferences.server.type = "http";
    EXPECT_EQ(status(), "Download failed: 3aconfig.json did not arrive");
    press(widget.pPushButtonSave);
    EXPECT_EQ(status(), "Save failed: 3aconfig.json has not been loaded");
    EXPECT_EQ(fileRead(name), "{\"stale\": true}");
}
