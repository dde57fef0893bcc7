#include "tests/transfer/captured.h"
#include "tests/transfer/raw-peer.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-transfer/source/transfer-client.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace std::chrono_literals;
using t_transfer::ClientHolder;
using t_transfer::Patience;

namespace
{
using Script = std::function<void(RawConnection&)>;

const std::string okHead = "HTTP/1.1 200 OK\r\n";

ClientHolder holder(const std::string& ip, unsigned short port)
{
    Json::Value jConfig;
    jConfig["ip"] = ip;
    jConfig["port"] = port;
    return ClientHolder(
        ClientHolder::Http, [](const std::string&) {}, jConfig);
}

/// The text of the failure, the kind of it in front; empty for success.
template <class Action>
std::string failureOf(Action action)
{
    const Captured out;
    try
    {
        action();
    }
    catch (const t_common::NoAnswer& exception)
    {
        return std::string("no answer: ") + exception.what();
    }
    catch (const std::exception& exception)
    {
        return std::string("failure: ") + exception.what();
    }
    return {};
}

std::string failureOfCommand(const std::string& ip, unsigned short port)
{
    Json::Value jResponse;
    return failureOf([&] { holder(ip, port).request(Json::objectValue, jResponse, 1); });
}

std::string failureOfCommand(const Script& fScript) { return failureOfCommand("127.0.0.1", RawPeer(fScript).port); }

std::string failureOfDownload(const Script& fScript, const Patience& patience)
{
    const RawPeer peer(fScript);
    const auto directory = std::filesystem::temp_directory_path();
    const auto name = "no-answer-test-" + std::to_string(::getpid());
    Json::Value jQuery;
    jQuery["path"] = name;
    jQuery["path.local"] = directory.string();
    const auto failure = failureOf([&] { holder("127.0.0.1", peer.port).fileDownload(jQuery, patience); });
    std::filesystem::remove(directory / name);
    return failure;
}

/// Halts before the answer and in its middle.
Script halting(std::chrono::milliseconds before, std::chrono::milliseconds within)
{
    return [=](RawConnection& connection)
    {
        connection.request();
        std::this_thread::sleep_for(before);
        connection.send(okHead + "Content-Length: 8\r\n\r\npart");
        std::this_thread::sleep_for(within);
        connection.send("part");
    };
}

bool begins(const std::string& text, const std::string& part) { return text.rfind(part, 0) == 0; }
} // namespace

TEST(NoAnswer, IsToldFromAnAnswerThatNobodyCanRead)
{
    const std::string chunked = okHead + "Transfer-Encoding: chunked\r\n\r\n";
    std::string fields = okHead;
    std::string interim;
    for (int i = 0; i < 201; ++i)
    {
        fields += "A: b\r\n";
        interim += "HTTP/1.1 100 Continue\r\n\r\n";
    }
    for (const auto& bytes : {std::string(), okHead + "Content-", okHead + "Content-Length: 3\r\n\r\n{}",
                              chunked + "5\r\n{\"err", "HTTP/1.1 100 Continue\r\n\r\n" + okHead})
        EXPECT_TRUE(begins(failureOfCommand(RawPeer::answering(bytes)), "no answer: Connection to ")) << bytes;
    for (const auto& bytes : {std::string("SSH-2.0-OpenSSH\r\n\r\n"), std::string(200'000, 'x'), chunked + "zz\r\n{}",
                              fields + "\r\n{}", interim, okHead + "Content-Length: 99999999\r\n\r\n{}",
                              okHead + "\r\nwords", okHead + "\r\n[]", okHead + "\r\n"})
        EXPECT_TRUE(begins(failureOfCommand(RawPeer::answering(bytes)), "failure: ")) << bytes.substr(0, 80);

    const auto reset = [](RawConnection& connection)
    {
        connection.request();
        connection.reset();
    };
    EXPECT_TRUE(begins(failureOfCommand(reset), "no answer: "));
    EXPECT_TRUE(begins(failureOfCommand([](RawConnection& connection) { connection.silence(); }), "no answer: "));
    EXPECT_TRUE(begins(failureOfCommand("no-such-board.invalid", 80), "no answer: "));
    const auto portOfNobody = RawPeer([](RawConnection&) {}).port;
    EXPECT_TRUE(begins(failureOfCommand("127.0.0.1", portOfNobody), "no answer: "));
    EXPECT_TRUE(begins(failureOfCommand("no address", 80), "failure: "));
}

TEST(NoAnswer, PatienceBeforeAndWithinAFile)
{
    const struct
    {
        const char* pName;
        Patience patience;
        Script fScript;
        const char* pFailure;
    } cases[] = {
        {"silent", {150ms, 20s}, [](RawConnection& c) { c.silence(); }, "no answer: "},
        {"begun", {20s, 150ms}, [](RawConnection& c) { c.request(), c.send(okHead), c.silence(); }, "no answer: "},
        {"late", {20s, 150ms}, halting(400ms, 0ms), ""},
        {"halting", {1s, 20s}, halting(0ms, 1300ms), ""},
        {"user's", {}, halting(2300ms, 0ms), ""},
    };
    for (const auto& c : cases)
    {
        const auto start = std::chrono::steady_clock::now();
        const auto failure = failureOfDownload(c.fScript, c.patience);
        EXPECT_EQ(failure.substr(0, 11), c.pFailure) << c.pName << ": " << failure;
        EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << c.pName;
    }
}
