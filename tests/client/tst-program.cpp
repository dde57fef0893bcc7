#include "board-simulator/source/simulator.h"
#include "tests/support/files.h"
#include "tests/support/qt-main.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <gtest/gtest.h>

#include <csignal>
#include <memory>

namespace
{
constexpr int aeConfigGet = 4000101;

// The program as a user starts it: what its parts need of each other at the start holds only there.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
    {
        for (const auto* directory : {"board", "chip", ".tuning-client"})
            QDir().mkpath(directory);
        board = std::make_unique<board::Simulator>(board::Options{0, "board"});
        fileWrite("chip/one.xml", R"(<Table ChipName="One" InputMax="1" IspMax="1" Version="1"><Page
                                 Name="Auto Exposure 2" Type="isp" Level="1"/></Table>)");
        QFile::remove(".tuning-client/setting.json");
        serverSet("http");
    }

    ~ProgramTest() override
    {
        program.kill();
        program.waitForFinished();
    }

    void serverSet(const QString& type) const
    {
        const QString server =
            R"({"server":{"type":"%1","port":"/no/such","index":0,"hosts":[{"ip":"127.0.0.1","port":%2}]}})";
        fileWrite(".tuning-client/preferences.json", server.arg(type).arg(board->port()).toUtf8());
    }

    void start() { program.start(QCoreApplication::applicationDirPath() + "/tuning-client", QStringList()); }

    bool isRead()
    {
        return waitUntil([&] { return board->count(aeConfigGet) > 0; });
    }

    /// The program's end by its own way: 0, -1 for another.
    int endBy(int signal)
    {
        ::kill(pid_t(program.processId()), signal);
        const bool isEnded = waitUntil([&] { return program.state() == QProcess::NotRunning; });
        return isEnded && program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }

    std::unique_ptr<board::Simulator> board;
    QProcess program;
};
} // namespace

TEST_F(ProgramTest, ReadsTheFirstPageFromTheStoredBoardAndKeepsItAtASignal)
{
    for (const int signal : {SIGTERM, SIGINT})
    {
        board->requestsClear();
        start();
        EXPECT_TRUE(isRead()) << str(program.errorString());
        EXPECT_EQ(program.state(), QProcess::Running);
        EXPECT_EQ(endBy(signal), 0);
        EXPECT_TRUE(fileRead(".tuning-client/setting.json").contains(R"("chip.name": "One")"));
        EXPECT_TRUE(fileRead(".tuning-client/widget.json").contains("Auto Exposure"));
        EXPECT_TRUE(fileRead(".tuning-client/preferences.json").contains(QByteArray::number(board->port())));
    }
}

TEST_F(ProgramTest, EndsBehindABoxAtItsStart)
{
    serverSet("uart");
    start();
    const auto isCaught = [this]
    {
        const auto status = fileRead(QString("/proc/%1/status").arg(program.processId()));
        return (status.mid(status.indexOf("SigCgt:") + 8, 16).toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
    };
    EXPECT_TRUE(waitUntil(isCaught));
    EXPECT_EQ(endBy(SIGTERM), 0);
    EXPECT_TRUE(fileRead(".tuning-client/preferences.json").contains(QByteArray::number(board->port())));
}

TEST_F(ProgramTest, SaysWhyItEndsWithoutADisplay)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
    program.setProcessEnvironment(environment);
    start();
    EXPECT_TRUE(waitUntil([this] { return program.state() == QProcess::NotRunning; }));
    EXPECT_TRUE(program.exitStatus() == QProcess::CrashExit || program.exitCode() != 0);
    EXPECT_TRUE(program.readAllStandardOutput().contains("could not connect to display"));
    EXPECT_TRUE(program.readAllStandardError().contains("Is there a display? DISPLAY is \"\"."));
}
