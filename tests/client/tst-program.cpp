#include "board-simulator/source/simulator.h"
#include "tests/support/files.h"
#include "tests/support/qt-main.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <gtest/gtest.h>

// The program as a user starts it: what its parts need of each other at the start holds only there.
TEST(ProgramTest, ReadsTheFirstPageFromTheStoredBoard)
{
    QDir().mkpath("board");
    QDir().mkpath("chip");
    QDir().mkpath(".tuning-client");
    const board::Simulator board(board::Options{0, "board"});
    const QString server = R"({"server":{"index":0,"hosts":[{"ip":"127.0.0.1","port":%1}]}})";
    fileWrite(".tuning-client/preferences.json", server.arg(board.port()).toUtf8());
    fileWrite("chip/one.xml", R"(<Table ChipName="One" InputMax="1" IspMax="1" Version="1"><Page Name="Auto Exposure 2"
                             Type="isp" Level="1"/></Table>)");

    QProcess program;
    program.start(QCoreApplication::applicationDirPath() + "/tuning-client", QStringList());
    constexpr int aeConfigGet = 4000101;
    EXPECT_TRUE(waitUntil([&] { return board.count(aeConfigGet) > 0; })) << program.errorString().toStdString();
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
}
