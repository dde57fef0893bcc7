#include "board-simulator/source/simulator.h"
#include "tests/support/files.h"
#include "tests/support/qt-main.h"

#include <csignal>

namespace
{
// The program as a user starts it: what its parts need of each other at the start holds only there.
class ProgramTest : public testing::Test
{
protected:
    void start(const QString& type = "http")
    {
        for (const auto* directory : {"chip", ".tuning-client"})
            QDir().mkpath(directory);
        fileWrite("chip/one.xml", R"(<Table ChipName="One" InputMax="1" IspMax="1" Version="1"><Page
                                 Name="Auto Exposure 2" Type="isp" Level="1"/></Table>)");
        const QString server =
            R"({"server":{"type":"%1","port":"/no/such","index":0,"hosts":[{"ip":"127.0.0.1","port":%2}]}})";
        fileWrite(".tuning-client/preferences.json", server.arg(type).arg(board.port()).toUtf8());
        // At its own end, Qt's offscreen platform leaves a screen behind.
        qputenv("ASAN_OPTIONS", "detect_leaks=0");
        program.start(QCoreApplication::applicationDirPath() + "/tuning-client", QStringList());
    }

    bool isEnded()
    {
        return waitUntil([this] { return program.state() == QProcess::NotRunning; });
    }

    /// Whether that signal ends the program by its own way, with everything kept.
    void endBy(int signal)
    {
        ::kill(pid_t(program.processId()), signal);
        EXPECT_TRUE(isEnded() && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0);
        EXPECT_TRUE(fileRead(".tuning-client/setting.json").contains(R"("chip.name": "One")"));
        EXPECT_TRUE(fileRead(".tuning-client/widget.json").contains("Auto Exposure"));
        EXPECT_TRUE(fileRead(".tuning-client/preferences.json").contains(QByteArray::number(board.port()) + "\n"));
    }

    const board::Simulator board{board::Options{0, "board"}};
    QProcess program;
};
} // namespace

TEST_F(ProgramTest, ReadsTheFirstPageFromTheStoredBoardAndKeepsItAtASignal)
{
    start();
    constexpr int aeConfigGet = 4000101;
    EXPECT_TRUE(waitUntil([&] { return board.count(aeConfigGet) > 0; })) << program.errorString().toStdString();
    EXPECT_EQ(program.state(), QProcess::Running);
    endBy(SIGINT);
}

TEST_F(ProgramTest, EndsBehindABoxAtItsStart)
{
    start("uart");
    const auto isCaught = [this]
    {
        const auto status = fileRead(QString("/proc/%1/status").arg(program.processId()));
        return (status.mid(status.indexOf("SigCgt:") + 8, 16).toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
    };
    EXPECT_TRUE(waitUntil(isCaught));
    endBy(SIGTERM);
}

TEST_F(ProgramTest, SaysWhyItEndsWithoutADisplay)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
    program.setProcessEnvironment(environment);
    start();
    EXPECT_TRUE(isEnded() && (program.exitStatus() == QProcess::CrashExit || program.exitCode() != 0));
    EXPECT_TRUE(program.readAllStandardOutput().contains("could not connect to display"));
    EXPECT_TRUE(program.readAllStandardError().contains("Is there a display? DISPLAY is \"\"."));
}
