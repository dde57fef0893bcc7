#include "tuning-client/source/control/console-widget.h"

#include "tests/support/qt-main.h"

#include <thread>

namespace
{
/// Posted behind what the console has queued, so that all text written before is on the screen.
void flush() { QCoreApplication::processEvents(); }
} // namespace

TEST(ConsoleWidget, KeepsTheLastHundredLines)
{
    for (const auto& [isShown, isOneBurst] : {std::pair(false, false), {false, true}, {true, false}, {true, true}})
    {
        ConsoleWidget console;
        console.setVisible(isShown);
        for (int i = 1; i <= 101; ++i)
        {
            console << QString("line %1\n").arg(i);
            if (!isOneBurst)
                flush();
        }
        flush();
        const auto lines = console.toPlainText().split('\n');
        EXPECT_FALSE(lines.contains("line 1"));
        EXPECT_TRUE(lines.contains("line 3"));
        EXPECT_TRUE(lines.contains("line 101"));
        EXPECT_LE(lines.size(), 100);
    }
}

TEST(ConsoleWidget, AppendsAtTheEndAndScrollsWhateverTheUserDoes)
{
    ConsoleWidget console;
    console.resize(300, 80);
    console.show();
    console << std::string(40, '\n') << std::string("first");
    flush();
    QTest::mouseClick(console.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseDClick(console.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    console.verticalScrollBar()->setValue(0);
    console << std::string(" second\n");
    flush();
    EXPECT_TRUE(console.toPlainText().endsWith("first second\n"));
    EXPECT_FALSE(console.textCursor().hasSelection());
    EXPECT_EQ(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
}

TEST(ConsoleWidget, PassesTypedKeysOnWithoutShowingThem)
{
    ConsoleWidget console;
    QSignalSpy spy(&console, &ConsoleWidget::getData);
    for (auto key : {Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&console, key);
    EXPECT_EQ(spy.count(), 0);

    QTest::keyClick(&console, 'a');
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toByteArray(), "a");
    EXPECT_EQ(console.toPlainText(), "");

    console.setLocalEchoEnabled(true);
    QTest::keyClick(&console, 'b');
    EXPECT_EQ(spy.count(), 2);
    EXPECT_EQ(console.toPlainText(), "b");
}

TEST(ConsoleWidget, ShowsAnyBytes)
{
    ConsoleWidget console;
    const std::string euro = "\xe2\x82\xac";
    console << std::string("a\0b", 3) << std::string("\xff\xfe") << euro.substr(0, 1) << euro.substr(1);
    flush();
    EXPECT_EQ(console.toPlainText(), QString::fromUtf8("a\u2400b\ufffd\ufffd\u20ac"));
}

TEST(ConsoleWidget, TakesTextFromAWorkerThreadInOrder)
{
    ConsoleWidget console;
    console.show();
    const auto write = [&]
    {
        for (int i = 0; i < 50; ++i)
            console << std::to_string(i) + "\n";
    };
    std::thread(write).join();
    EXPECT_EQ(console.blockCount(), 1);
    ASSERT_TRUE(waitUntil([&] { return console.blockCount() == 51; }));
    EXPECT_TRUE(console.toPlainText().startsWith("0\n1\n2\n"));
    EXPECT_TRUE(console.toPlainText().endsWith("48\n49\n"));
}

TEST(ConsoleWidget, TakesNothingInUntilItIsShown)
{
    ConsoleWidget console;
    console << std::string("line\n");
    flush();
    EXPECT_EQ(console.blockCount(), 1);
    console.show();
    EXPECT_EQ(console.blockCount(), 2);
    console.hide();
    console << std::string("line\n");
    flush();
    EXPECT_EQ(console.blockCount(), 2);
    EXPECT_EQ(console.toPlainText(), "line\nline\n");
}

TEST(ConsoleWidget, LaysOutOnceForACommandAndItsAnswer)
{
    ConsoleWidget console;
    console.show();
    console << std::string(120, '\n');
    flush();
    int layouts = 0;
    QObject::connect(console.document(), &QTextDocument::contentsChange, &console, [&] { ++layouts; });
    console << std::string("command\n") << std::string("{\n\n}\n") << std::string("answer\n");
    flush();
    EXPECT_EQ(layouts, 1) << "with the lines that went out at the top";
    EXPECT_EQ(console.blockCount(), 100);
}

TEST(ConsoleWidget, HoldsAFloodToWhatTheLastLinesCanShow)
{
    const std::string megabyte(1 << 20, 'x');
    for (bool isShown : {false, true})
    {
        ConsoleWidget console;
        console.setVisible(isShown);
        for (int i = 0; i < 64; ++i)
            console << megabyte;
        console << std::string("end");
        flush();
        EXPECT_LE(console.toPlainText().size(), 1 << 20);
        EXPECT_TRUE(console.toPlainText().endsWith("xend"));
    }
}
