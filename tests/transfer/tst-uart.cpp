#include "board-simulator/source/simulator.h"
#include "tests/transfer/captured.h"
#include "tuning-common/source/json-app.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-transfer/source/transfer-client.h"
#include "tuning-transfer/source/uart/driver/driver-posix.h"
#include "tuning-transfer/source/uart/uart-client.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

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
class Stopwatch
{
public:
    double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(); }

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

/// A client on the serial line of a simulated board.
class UartTest : public testing::Test
{
protected:
    UartTest()
    {
        std::filesystem::create_directory(directory);
        connect();
    }

    ~UartTest() override
    {
        pHolder.reset();
        simulator.stop();
        std::filesystem::remove_all(directory);
    }

    std::string path(const std::string& name) const { return directory + "/" + name; }

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

    Json::Value request(int timeout = 2)
    {
        const Captured out;
        Json::Value jResponse;
        pHolder->request(query(), jResponse, timeout);
        return jResponse;
    }

    /// The text of a failed request; a failure of the port has the code of one.
    std::string failure()
    {
        try
        {
            return "success " + t_common::JsonApp::toString(request(), "");
        }
        catch (const LogicError& error)
        {
            EXPECT_EQ(error.error, 1);
            return error.what();
        }
        catch (const std::runtime_error& exception)
        {
            return exception.what();
        }
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

    /// Looks again and again, for ten seconds at most.
    template <class Condition>
    static bool waitUntil(Condition condition)
    {
        for (int i = 0; i < 10'000 && !condition(); ++i)
            ::usleep(1000);
        return condition();
    }

    const std::string directory = std::filesystem::temp_directory_path() / ("uart-test-" + std::to_string(::getpid()));
    board::Simulator simulator{board::Options{0, directory + "/board", false, true}};
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
        pHolder->request(query(), jResponse, 2);
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
    const Captured out;
    Json::Value jQuery = query();
    jQuery["config"] = std::string(500'000, 'x');
    Json::Value jResponse;
    pHolder->request(jQuery, jResponse, 2);
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
            const auto result = failure();
            isWhole = result == "success " + (fault.text.empty() ? good : text);
        }
        EXPECT_TRUE(isWhole) << "fault " << fault.kind;
    }
}

TEST_F(UartTest, AnswerInTheThirdReadIsPrintedOnce)
{
    simulator.faultSet({Fault::Delay, 0, -1, 1200});
    const Captured out;
    Json::Value jResponse;
    pHolder->request(query(), jResponse, 1);
    const auto name = "[" + simulator.serialName() + "]";
    EXPECT_EQ(out.get(), name + " >>> " + sent + "\n" + name + " <<< " + good + "\n");
}

TEST_F(UartTest, WaitsTenSecondsWhateverTheTimeoutSays)
{
    simulator.faultSet({Fault::Silence});
    const Stopwatch stopwatch;
    try
    {
        request(1);
        ADD_FAILURE();
    }
    catch (const t_common::NoAnswer& error)
    {
        EXPECT_TRUE(isMatching(error.what(), "JSON parse failed: *, 0 bytes \"\"")) << error.what();
    }
    EXPECT_GE(stopwatch.seconds(), 9.9);
    EXPECT_LT(stopwatch.seconds(), 12);
    EXPECT_EQ(reports.find("<<<"), std::string::npos);
}

TEST_F(UartTest, PauseCutsAnAnswerAndItsRestIsTakenForTheNext)
{
    simulator.faultSet({Fault::Drip, 0, 1, 100});
    EXPECT_TRUE(isMatching(failure(), "JSON parse failed: *, 1 bytes \"{\""));
    EXPECT_TRUE(isMatching(failure(), "JSON parse failed: *, 1 bytes \"\"\""));
    simulator.serialSet(true);
    connect();
    EXPECT_TRUE(request()["enable"].asBool());
}

TEST_F(UartTest, ClientBeginsWithAnEmptyLine)
{
    pHolder.reset();
    const int device = deviceOpen();
    ASSERT_EQ(::write(device, sent.data(), sent.size()), static_cast<ssize_t>(sent.size()));
    int waiting = 0;
    EXPECT_TRUE(waitUntil(
        [&] { return ::ioctl(device, FIONREAD, &waiting) != 0 || waiting >= static_cast<int>(good.size()); }));
    ::close(device);
    answerSet("{\"new\":1}");
    connect();
    EXPECT_EQ(request()["new"], 1);
}

TEST_F(UartTest, ReadEndsWithItsTimeAndWithItsBuffer)
{
    // Two seconds of an answer without a pause.
    simulator.answerSet(4000103, "padding", std::string(32'000, 'x'));
    simulator.faultSet({Fault::Pieces, 0, 1, 16});
    const Stopwatch stopwatch;
    EXPECT_TRUE(isMatching(failure(), "JSON parse failed: *"));
    EXPECT_LT(stopwatch.seconds(), 1.5);

    simulator.serialSet(true);
    connect();
    answerSet("{\"a\":\"" + std::string(100'000, 'x'));
    const auto text = failure();
    ASSERT_TRUE(isMatching(text, "JSON parse failed: *, [1-9]* bytes \"*")) << text;
    const auto comma = text.rfind(", ", text.find(" bytes \""));
    EXPECT_LE(std::stoi(text.substr(comma + 2)), 30000);
}

TEST_F(UartTest, AnswersAreReadAsStrictlyAsOverHttp)
{
    const struct
    {
        std::string bytes;
        std::string pattern;
    } cases[] = {
        {std::string("{\"a\":1}\0{", 9), "success {\"a\":1}"},
        {"[1]", "JSON parse failed: the answer is no object but \"\\[1\\]\""},
        {"{} x", "JSON parse failed: *"},
        {"out to lunch", "JSON parse failed: *, 12 bytes \"out to lunch\""},
        {std::string(500, '['), "JSON parse failed: nested *"},
        {"\x1b[31m\x07", "JSON parse failed: *, 6 bytes \"\\?\\[31m\\?\""},
    };
    for (const auto& c : cases)
    {
        answerSet(c.bytes);
        const auto result = failure();
        EXPECT_TRUE(isMatching(result, c.pattern)) << result;
    }
}

TEST_F(UartTest, DeviceThatVanishes)
{
    const auto name = simulator.serialName();
    simulator.faultSet({Fault::Close});
    EXPECT_EQ(failure(), name + ": read failed, 0 bytes read\n");
    EXPECT_EQ(failure(), name + ": write failed, 0 bytes written\n");

    simulator.serialSet(true);
    connect();
    simulator.faultSet({Fault::ResetInBody});
    const auto text = failure();
    // What had come is an answer of its own when the line stays up for another pause behind it.
    EXPECT_TRUE(isMatching(text, "JSON parse failed: *") || isMatching(text, "*: read failed, [0-9]* bytes read\n"))
        << text;
    EXPECT_TRUE(waitUntil([&] { return simulator.serialName().empty(); }));
    EXPECT_TRUE(isMatching(failure(), "*: write failed, 0 bytes written\n"));
}

TEST_F(UartTest, PortThatTakesNothingMoreFails)
{
    const Captured out;
    simulator.faultSet({Fault::Drip, 0, 1, 100'000});
    EXPECT_TRUE(isMatching(failure(), "JSON parse failed: *"));
    Json::Value jQuery = query();
    jQuery["config"] = std::string(1'000'000, 'x');
    Json::Value jResponse;
    const Stopwatch stopwatch;
    try
    {
        pHolder->request(jQuery, jResponse, 2);
        ADD_FAILURE();
    }
    catch (const LogicError& error)
    {
        EXPECT_TRUE(isMatching(error.what(), "*: write failed, [1-9]* bytes written\n")) << error.what();
    }
    EXPECT_LT(stopwatch.seconds(), 8);
}

TEST_F(UartTest, WhatIsNoFreePortIsRefused)
{
    const Captured err(std::cerr);
    std::ofstream(path("file")) << "content";
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink(simulator.serialName(), path("link"));
    for (const auto& name : {std::string(), std::string("no-such-port"), path("missing"), path("file"), path("pipe"),
                             directory, std::string("/dev/null"), std::string("null"), simulator.serialName(),
                             path("link"), simulator.serialName() + std::string("\0x", 2)})
    {
        Json::Value jPort;
        jPort["port"] = name;
        try
        {
            ClientHolder(ClientHolder::Uart, {}, jPort);
            ADD_FAILURE() << name;
        }
        catch (const LogicError& error)
        {
            EXPECT_EQ(error.error, 1);
            EXPECT_EQ(error.message, "Open UART [" + name + "] failed\n");
        }
    }
    EXPECT_EQ(std::filesystem::file_size(path("file")), 7u);
    EXPECT_TRUE(request()["enable"].asBool()) << "the refused ones have disturbed the one that was there";
}

TEST_F(UartTest, PortIsHeldUntilTheClientEnds)
{
    // Opened while that is still allowed: only root could open it later.
    pHolder.reset();
    const int device = deviceOpen();
    EXPECT_FALSE(isExclusive(device));
    connect();
    EXPECT_TRUE(isExclusive(device));
    EXPECT_TRUE(request()["enable"].asBool());
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
    {
        bytes += i == '{' || i == '}' ? "" : std::string(1, static_cast<char>(i));
    }
    bytes += "{}";
    answerSet(bytes);
    port.textWrite(bytes);
    std::string text;
    for (int i = 0; i < 20 && text.empty(); ++i)
    {
        port.textRead(text);
    }
    EXPECT_EQ(text, bytes);
    EXPECT_EQ(simulator.requests().back().body, bytes);
}

TEST_F(UartTest, WhatTheLineLacksSaysSoAndSendsNothing)
{
    const Captured out;
    std::string text = "text";
    Json::Value jQuery;
    jQuery["path"] = "x";
    const auto fNever = [](const Json::Value&) { FAIL(); };
    pHolder->fileUpload(jQuery).fileDownload(jQuery).info().textRead(text).textWrite(text);
    pHolder->configGet(jQuery).configSet(jQuery).request(jQuery, fNever, 30);
    EXPECT_EQ(out.get(), "fileUploadis not available\n\nfileDownloadis not available\n\ninfois not available\n\n"
                         "textReadis not available\n\ntextWriteis not available\n\nconfigGetis not available\n\n"
                         "configSetis not available\n\nrequestis not available\n\n");
    const std::string report = "[Client] >>> {\n  \"path\": \"x\"\n}\n";
    EXPECT_EQ(reports, report + report + "[Client] <<< text\n[Client] >>> text\n" + report +
                           "[Client] <<< {\n  \"path\": \"x\"\n}\n" + report);
    // The next command is the first that comes in.
    request();
    EXPECT_EQ(simulator.requests().front().body, sent);
}

TEST_F(UartTest, HolderWithoutADriver)
{
    pHolder.reset();
    UartHolder holder(simulator.serialName());
    UartHolder other = std::move(holder);
    EXPECT_EQ(other.abstract().name, simulator.serialName());
    try
    {
        holder.abstract(); // NOLINT(bugprone-use-after-move)
        ADD_FAILURE();
    }
    catch (const LogicError& error)
    {
        EXPECT_EQ(error.error, 9);
        EXPECT_STREQ(error.what(), "UART driver not available");
    }
}
