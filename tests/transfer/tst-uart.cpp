#include "board-simulator/source/simulator.h"
#include "tests/support/outcome.h"
#include "tests/support/scratch.h"
#include "tuning-common/source/json-app.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-transfer/source/transfer-client.h"
#include "tuning-transfer/source/uart/driver/driver-posix.h"
#include "tuning-transfer/source/uart/uart-client.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <fnmatch.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

using board::Fault;
using t_common::LogicError;
using t_transfer::ClientHolder;
using t_transfer::uart::Posix;
using t_transfer::uart::UartHolder;

namespace
{
/// A client on the serial line of a simulated board.
class UartTest : public ScratchTest
{
protected:
    UartTest() { connect(); }

    /// Opens the board's present port, as a client does that has just been started.
    void connect()
    {
        pHolder.reset();
        jConfig["port"] = simulator.serialName();
        pHolder = std::make_unique<ClientHolder>(
            ClientHolder::Uart, [this](const std::string& text) { reports += text; }, jConfig);
    }

    /// The board answers with these bytes.
    void answerSet(const std::string& text) { simulator.faultSet({Fault::NotJson, 0, -1, 0, text}); }

    static Json::Value query()
    {
        Json::Value jQuery;
        jQuery["function"] = "enableGet";
        jQuery["id"] = 4000103;
        jQuery["generation"] = 0;
        jQuery["path"] = "no meaning here";
        return jQuery;
    }

    /// The code and the text of a failure of the port.
    template <class Action>
    static std::string portFailureOf(Action action)
    {
        try
        {
            action();
        }
        catch (const LogicError& error)
        {
            return std::to_string(error.error) + " " + error.message;
        }
        return {};
    }

    /// What a request comes to.
    std::string outcome(const Json::Value& jQuery = query())
    {
        const Captured out;
        Json::Value jResponse;
        std::string failure;
        const auto portFailure = portFailureOf(
            [&] { failure = failureOf<std::runtime_error>([&] { pHolder->request(jQuery, jResponse, 1); }); });
        if (!portFailure.empty())
            return portFailure;
        return failure.empty() ? "success " + t_common::JsonApp::toString(jResponse, "") : failure;
    }

    /// As file names are matched.
    static bool isMatching(const std::string& text, const std::string& pattern)
    {
        return ::fnmatch(pattern.c_str(), text.c_str(), 0) == 0;
    }

    /// Another opener of the device, which asks for no exclusiveness.
    int deviceOpen() const { return ::open(simulator.serialName().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK); }

    static bool isExclusive(int device)
    {
        int flag = -1;
        EXPECT_EQ(::ioctl(device, TIOCGEXCL, &flag), 0);
        return flag == 1;
    }

    board::Simulator simulator{board::Options{0, "board", false, true}};
    Json::Value jConfig;
    std::string reports;
    std::unique_ptr<ClientHolder> pHolder;
};

const std::string sent = "{\"function\":\"enableGet\",\"generation\":0,\"id\":4000103,\"path\":\"no meaning here\"}";
const std::string good = "{\"enable\":true,\"error\":0}";
} // namespace

TEST_F(UartTest, BytesOfACommandAndWhatIsPrinted)
{
    const Captured out;
    Json::Value jResponse;
    for (int i = 0; i < 2; ++i)
    {
        // The second answer comes in the third read.
        simulator.faultSet({Fault::Delay, 0, -1, i == 0 ? 1u : 1200u});
        pHolder->request(query(), jResponse, 1);
        EXPECT_TRUE(jResponse["enable"].asBool());
    }
    ASSERT_EQ(simulator.requestCount(), 2u);
    for (const auto& entry : simulator.requests())
    {
        EXPECT_EQ(entry.head, "");
        EXPECT_EQ(entry.body, sent) << "anything before, between or behind the commands would stand here";
    }
    const auto name = "[" + simulator.serialName() + "]";
    const auto printed = name + " >>> " + sent + "\n" + name + " <<< " + good + "\n";
    EXPECT_EQ(out.get(), printed + printed);
    const std::string expected =
        "[Client] >>> " + t_common::JsonApp::toString(query(), "  ") + "\n[Client] <<< {\n  \"enable\": true,\n";
    EXPECT_EQ(reports.substr(0, expected.size()), expected);
}

TEST_F(UartTest, LargeCommandGoesWholeThroughASmallPort)
{
    Json::Value jQuery = query();
    jQuery["config"] = std::string(500'000, 'x');
    EXPECT_EQ(outcome(jQuery), "success " + good);
    EXPECT_EQ(simulator.requests().back().body, t_common::JsonApp::toString(jQuery, ""));
}

TEST_F(UartTest, AnswerInSlowAndFastBursts)
{
    const auto text = "{\"a\":\"" + std::string(3000, 'x') + "\"}";
    for (const auto& fault : {Fault{Fault::NotJson, 0, -1, 0, text}, Fault{Fault::Pieces, 0, -1, 10},
                              Fault{Fault::Drip, 0, -1, 2}, Fault{Fault::Delay, 0, -1, 700}})
    {
        // On a busy machine the board itself may fall silent for too long.
        bool isWhole = false;
        for (int i = 0; i < 20 && !isWhole; ++i)
        {
            simulator.serialSet(true);
            simulator.faultSet(fault);
            connect();
            const auto result = outcome();
            isWhole = result == "success " + (fault.text.empty() ? good : text);
        }
        EXPECT_TRUE(isWhole) << "fault " << fault.kind;
    }
}

TEST_F(UartTest, WaitsTenSecondsWhateverTheTimeoutSays)
{
    simulator.faultSet({Fault::Silence});
    const Stopwatch stopwatch;
    const auto text = failureOf<t_common::NoAnswer>([&] { outcome(); });
    EXPECT_TRUE(isMatching(text, "JSON parse failed: *, 0 bytes \"\""));
    EXPECT_GE(stopwatch.seconds(), 9.9);
    EXPECT_LT(stopwatch.seconds(), 12);
    EXPECT_EQ(reports.find("<<<"), std::string::npos);
}

TEST_F(UartTest, PauseCutsAnAnswerAndItsRestIsTakenForTheNext)
{
    simulator.faultSet({Fault::Drip, 0, 1, 100});
    EXPECT_TRUE(isMatching(outcome(), "JSON parse failed: *, 1 bytes \"{\""));
    EXPECT_TRUE(isMatching(outcome(), "JSON parse failed: *, 1 bytes \"\"\""));
    simulator.serialSet(true);
    connect();
    EXPECT_EQ(outcome(), "success " + good);
}

TEST_F(UartTest, ClientBeginsWithAnEmptyLine)
{
    pHolder.reset();
    const int device = deviceOpen();
    ASSERT_EQ(::write(device, sent.data(), sent.size()), static_cast<ssize_t>(sent.size()));
    int waiting = 0;
    EXPECT_TRUE(
        await([&] { return ::ioctl(device, FIONREAD, &waiting) != 0 || waiting >= static_cast<int>(good.size()); }));
    ::close(device);
    answerSet("{\"new\":1}");
    connect();
    EXPECT_EQ(outcome(), "success {\"new\":1}");
}

TEST_F(UartTest, ReadEndsWithItsTimeAndWithItsBuffer)
{
    // Two seconds of an answer without a pause.
    simulator.answerSet(4000103, "padding", std::string(32'000, 'x'));
    simulator.faultSet({Fault::Pieces, 0, 1, 16});
    const Stopwatch stopwatch;
    EXPECT_TRUE(isMatching(outcome(), "JSON parse failed: *"));
    EXPECT_LT(stopwatch.seconds(), 1.5);

    simulator.serialSet(true);
    connect();
    answerSet("{\"a\":\"" + std::string(100'000, 'x'));
    const auto text = outcome();
    ASSERT_TRUE(isMatching(text, "JSON parse failed: *, [1-9]* bytes \"*")) << text;
    const auto comma = text.rfind(", ", text.find(" bytes \""));
    EXPECT_LE(std::stoi(text.substr(comma + 2)), 30000);
}

TEST_F(UartTest, AnswerIsAnObjectThatEndsWithItsLastByteOrAZero)
{
    const std::pair<std::string, const char*> cases[] = {
        {std::string("{\"a\":1}\0{", 9), "success {\"a\":1}"},
        {"[1]", "JSON parse failed: the answer is no object but \"\\[1\\]\""},
        {"{} x", "JSON parse failed: *"},
    };
    for (const auto& [bytes, pattern] : cases)
    {
        answerSet(bytes);
        const auto result = outcome();
        EXPECT_TRUE(isMatching(result, pattern)) << result;
    }
}

TEST_F(UartTest, DeviceThatVanishes)
{
    const auto name = simulator.serialName();
    simulator.faultSet({Fault::Close});
    EXPECT_EQ(outcome(), "1 " + name + ": read failed, 0 bytes read\n");
    EXPECT_EQ(outcome(), "1 " + name + ": write failed, 0 bytes written\n");

    simulator.serialSet(true);
    connect();
    simulator.faultSet({Fault::ResetInBody});
    const auto text = outcome();
    // What had come is an answer of its own when the line stays up for another pause behind it.
    EXPECT_TRUE(isMatching(text, "JSON parse failed: *") || isMatching(text, "1 *: read failed, [0-9]* bytes read\n"))
        << text;
    EXPECT_TRUE(await([&] { return simulator.serialName().empty(); }));
    EXPECT_TRUE(isMatching(outcome(), "1 *: write failed, 0 bytes written\n"));
}

TEST_F(UartTest, PortThatTakesNothingMoreFails)
{
    simulator.faultSet({Fault::Drip, 0, 1, 100'000});
    EXPECT_TRUE(isMatching(outcome(), "JSON parse failed: *"));
    Json::Value jQuery = query();
    jQuery["config"] = std::string(1'000'000, 'x');
    const Stopwatch stopwatch;
    EXPECT_TRUE(isMatching(outcome(jQuery), "1 *: write failed, [1-9]* bytes written\n"));
    EXPECT_LT(stopwatch.seconds(), 8);
}

TEST_F(UartTest, WhatIsNoFreePortIsRefused)
{
    const Captured err(std::cerr);
    fileStore("file", "content");
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    std::filesystem::create_symlink(simulator.serialName(), "link");
    for (const auto& name :
         {std::string(), std::string("no-such-port"), std::string("./missing"), std::string("./file"),
          std::string("./pipe"), std::string("./board"), std::string("/dev/null"), std::string("null"),
          simulator.serialName(), std::string("./link"), simulator.serialName() + std::string("\0x", 2)})
    {
        Json::Value jPort;
        jPort["port"] = name;
        EXPECT_EQ(portFailureOf([&] { ClientHolder(ClientHolder::Uart, {}, jPort); }),
                  "1 Open UART [" + name + "] failed\n");
    }
    EXPECT_EQ(fileText("file"), "content");
    EXPECT_EQ(outcome(), "success " + good) << "the refused ones have disturbed the one that was there";
}

TEST_F(UartTest, PortIsHeldUntilTheClientEnds)
{
    // Opened while that is still allowed: only root could open it later.
    pHolder.reset();
    const int device = deviceOpen();
    EXPECT_FALSE(isExclusive(device));
    connect();
    EXPECT_TRUE(isExclusive(device));
    EXPECT_EQ(outcome(), "success " + good);
    ::close(device);
}

TEST_F(UartTest, LineIsRawWhateverItWasBefore)
{
    pHolder.reset();
    const int device = deviceOpen();
    termios settings{};
    ASSERT_EQ(::tcgetattr(device, &settings), 0);
    settings.c_iflag |= ICRNL | IXON | IXOFF | IXANY | ISTRIP | PARMRK | INPCK;
    settings.c_oflag |= OPOST | ONLCR;
    settings.c_lflag |= ICANON | ECHO | ISIG | IEXTEN;
    settings.c_cflag |= CSTOPB | CRTSCTS;
    settings.c_cflag &= ~static_cast<tcflag_t>(CLOCAL);
    settings.c_cc[VMIN] = 200;
    cfsetspeed(&settings, B9600);
    ASSERT_EQ(::tcsetattr(device, TCSANOW, &settings), 0);

    Posix port(simulator.serialName());
    ASSERT_EQ(::tcgetattr(device, &settings), 0);
    ::close(device);
    EXPECT_EQ(cfgetispeed(&settings), B115200);
    EXPECT_EQ(cfgetospeed(&settings), B115200);
    EXPECT_EQ(settings.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS | CLOCAL | CREAD), CS8 | CLOCAL | CREAD);

    // Every byte but NUL and the braces that end a command, there and back.
    std::string bytes;
    for (int i = 1; i < 256; ++i)
        bytes += i == '{' || i == '}' ? "" : std::string(1, static_cast<char>(i));
    bytes += "{}";
    answerSet(bytes);
    port.textWrite(bytes);
    std::string text;
    for (int i = 0; i < 20 && text.empty(); ++i)
        port.textRead(text);
    EXPECT_EQ(text, bytes);
    EXPECT_EQ(simulator.requests().back().body, bytes);
}

TEST_F(UartTest, HolderWithoutADriver)
{
    pHolder.reset();
    UartHolder holder(simulator.serialName());
    const UartHolder other = std::move(holder);
    EXPECT_EQ(portFailureOf([&] { holder.abstract(); }), // NOLINT(bugprone-use-after-move)
              "9 UART driver not available");
}
