#include "tests/transfer/raw-peer.h"
#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/http/http-client.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <netdb.h>

using t_transfer::http::Client;
using namespace std::chrono_literals;

/// Stands before the system's resolver, which never comes to an end with some networks. One name has two addresses.
extern "C" int getaddrinfo(const char* pNode, const char* pService, const addrinfo* pHints, addrinfo** ppResult)
{
    if (std::string(pNode) == "hanging.test")
        std::this_thread::sleep_for(2s);
    static const auto fSystem = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    if (std::string(pNode) != "two-addresses.test")
        return fSystem(pNode, pService, pHints, ppResult);
    const int error = fSystem("127.0.0.2", pService, pHints, ppResult);
    return error != 0 ? error : fSystem("127.0.0.1", pService, pHints, &(*ppResult)->ai_next);
}

namespace
{
const std::string okHead = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n";

std::string answer(const std::string& body)
{
    return okHead + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

Client client(const std::string& ip, const Json::Value& port)
{
    Json::Value jConfig;
    jConfig["ip"] = ip;
    jConfig["port"] = port;
    return Client(jConfig);
}

Client client(const RawPeer& peer) { return client("127.0.0.1", peer.port); }

Json::Value query()
{
    Json::Value jQuery;
    jQuery["id"] = 7;
    return jQuery;
}

/// How a blocking request ends.
std::string failureOfRequest(Client board, int timeout = 5)
{
    const Captured out;
    Json::Value jResponse;
    const auto failure = endOf([&] { board.request(query(), jResponse, timeout); });
    EXPECT_EQ(jResponse.isNull(), !failure.empty());
    EXPECT_EQ(contains(out.get(), ">>>"), failure.empty()) << "only what could be read is printed";
    return failure;
}

std::string failureOfScript(RawPeer::Script fScript, int timeout = 5)
{
    const RawPeer peer(std::move(fScript));
    return failureOfRequest(client(peer), timeout);
}

std::string failureOfAnswer(const std::string& bytes) { return failureOfScript(RawPeer::answering(bytes)); }

/// Whether that counts as an answer, though one that nobody can take.
bool isRefused(const std::string& bytes, const std::string& reason)
{
    const auto failure = failureOfAnswer(bytes);
    return !startsWith(failure, "no answer") && contains(failure, reason);
}

/// What reaches the callback, null where nothing does.
Json::Value completedOf(RawPeer::Script fScript, int timeout = 5)
{
    const Captured out;
    const Captured err(std::cerr);
    const RawPeer peer(std::move(fScript));
    Json::Value jResponse;
    const auto callerThread = std::this_thread::get_id();
    client(peer).request(
        query(),
        [&](Json::Value j)
        {
            EXPECT_NE(std::this_thread::get_id(), callerThread);
            EXPECT_TRUE(jResponse.isNull()) << "called twice";
            jResponse = std::move(j);
        },
        timeout);
    return jResponse;
}
} // namespace

TEST(HttpRequest, BytesOfACommandAndWhatIsPrinted)
{
    std::string request;
    const RawPeer peer(RawPeer::answering(answer("{\"a\":\"\x1b\x9b[1m\"}"), &request));
    const auto port = std::to_string(peer.port);
    const Captured out;
    Json::Value jResponse;
    // The port as a number and as a text.
    for (const auto& jPort : {Json::Value(peer.port), Json::Value(port)})
    {
        client("127.0.0.1", jPort).request(query(), jResponse, 5);
        EXPECT_EQ(request,
                  "POST / HTTP/1.1\r\nContent-Length: 8\r\nContent-Type: application/json\r\nHost: 127.0.0.1:" + port +
                      "\r\nAccept: */*\r\nAccept-Encoding: identity;q=1.0, *;q=0\r\nConnection: "
                      "Close\r\n\r\n{\"id\":7}");
    }
    const auto url = "[http://127.0.0.1:" + port + "/]";
    const auto printed = url + " <<< {\"id\":7}\n" + url + " >>> {\"a\":\"??[1m\"}\n";
    EXPECT_EQ(out.get(), printed + printed);
}

TEST(HttpRequest, PathOfACommandBecomesTheTarget)
{
    const Captured out;
    std::string request;
    const RawPeer peer(RawPeer::answering(answer("{}"), &request));
    auto jQuery = query();
    Json::Value jResponse;
    jQuery["path"] = "a b/\xc3\xa4.x%20?#";
    client(peer).request(jQuery, jResponse, 5);
    EXPECT_EQ(request.substr(0, request.find('\r')), "POST /a%20b/%C3%A4.x%20?# HTTP/1.1");
    EXPECT_TRUE(contains(out.get(), "/a b/\xc3\xa4.x%20?#]"));
    jQuery["path"] = "x HTTP/1.1\r\nInjected: 1";
    EXPECT_THROW(client(peer).request(jQuery, jResponse, 5), std::runtime_error);
}

TEST(HttpRequest, EveryShapeOfAnAnswer)
{
    const std::string body = "{\"error\":0}";
    const std::string interim = "HTTP/1.1 100 Continue\r\n\r\n";
    for (const auto& bytes : {
             answer(body),
             okHead + "\r\n" + body,
             "HTTP/1.0 200 OK\r\n\r\n" + body,
             "HTTP/1.1 500 Internal Error\r\nContent-Length: 11\r\n\r\n" + body,
             "HTTP/1.1 404\r\nContent-Length: 11\r\n\r\n" + body,
             okHead + "Transfer-Encoding: chunked\r\n\r\n5;a=b\r\n{\"err\r\n6\r\nor\":0}\r\n0\r\n\r\n",
             interim + interim + answer(body),
             "HTTP/1.1 100\r\n\r\nHTTP/1.1 200\r\nContent-Length: 11\r\n\r\n" + body,
             answer(body) + "what comes behind does not count",
         })
    {
        EXPECT_EQ(failureOfAnswer(bytes), "") << bytes;
    }
}

TEST(HttpRequest, AnswerInSingleBytesCompletesOnce)
{
    const auto drip = [](PeerConnection& connection)
    {
        connection.request();
        connection.drip("HTTP/1.1 200\r\nTransfer-Encoding: chunked\r\n\r\n4\r\n{\"a\"\r\n3\r\n:1}\r\n0\r\n\r\n", 1ms);
    };
    EXPECT_EQ(completedOf(drip)["a"], 1);
}

TEST(HttpRequest, AnswerThatIsIncompleteOrNoHttpIsAFailure)
{
    const std::string noAnswer = "no answer: ";
    const std::pair<std::string, std::string> cases[] = {
        {noAnswer, ""},
        {noAnswer, "HTTP/1.1 200 OK\r\nContent-"},
        {noAnswer, okHead + "Content-Length: 12\r\n\r\n{\"error\":0}"},
        {noAnswer, okHead + "Transfer-Encoding: chunked\r\n\r\n5\r\n{\"err\r\n"},
        {noAnswer, "HTTP/1.1 100 Continue\r\n\r\n" + okHead},
        {"", okHead + "Transfer-Encoding: chunked\r\n\r\nzz\r\n{}"},
        {"", okHead + "Content-Length: 99999999999999999999\r\n\r\n{}"},
        {"", "SSH-2.0-OpenSSH\r\n\r\n"},
        {"", std::string(200'000, 'x')},
        {"", "HTTP/1.1 200 OK\r\nA: " + std::string(70'000, 'x') + "\r\n\r\n{}"},
    };
    for (const auto& [kind, bytes] : cases)
    {
        const auto failure = failureOfAnswer(bytes);
        EXPECT_TRUE(startsWith(failure, kind + "Connection to 127.0.0.1:")) << failure;
        EXPECT_TRUE(contains(failure, " failed: ")) << failure;
        EXPECT_FALSE(contains(failure, "server")) << failure;
    }
}

TEST(HttpRequest, SizeOfAnAnswerIsLimited)
{
    const auto fields = repeated(201, "A: b\r\n");
    EXPECT_TRUE(isRefused("HTTP/1.1 200 OK\r\n" + fields + "\r\n{}", "too many header fields"));

    const auto interim = repeated(102, "HTTP/1.1 100 Continue\r\n\r\n");
    EXPECT_TRUE(isRefused(interim + answer("{}"), "only interim"));

    const auto limit = std::to_string(t_common::limit::httpBody + 1);
    EXPECT_TRUE(isRefused(okHead + "Content-Length: " + limit + "\r\n\r\n{}", "limit"));
    EXPECT_TRUE(isRefused(okHead + "\r\n[" + std::string(t_common::limit::httpBody, ' '), "limit"));
}

TEST(HttpRequest, BoardThatIsNotThereIsNamed)
{
    unsigned short port = 0;
    {
        const RawPeer peer([](PeerConnection&) {});
        port = peer.port;
    }
    const auto text = std::to_string(port);
    EXPECT_EQ(failureOfRequest(client("127.0.0.1", port)),
              "no answer: Connection to 127.0.0.1:" + text + " failed: Connection refused");
    const auto v6 = failureOfRequest(client("::1", port));
    EXPECT_TRUE(startsWith(v6, "no answer: Connection to [::1]:" + text + " failed: ")) << v6;
    const auto reset = failureOfScript(
        [](PeerConnection& connection)
        {
            connection.request();
            connection.reset();
        });
    EXPECT_TRUE(startsWith(reset, "no answer: ") && contains(reset, "Connection reset by peer")) << reset;
}

TEST(HttpRequest, AddressIsCheckedAtTheFirstCommand)
{
    for (const auto* pIp : {" ", "a b", "host/path", "a\r\nb", "user@host", "[]"})
    {
        const auto failure = failureOfRequest(client(pIp, 8080));
        EXPECT_TRUE(contains(failure, "is not the address of a board")) << pIp << ": " << failure;
        EXPECT_FALSE(startsWith(failure, "no answer")) << "nobody was asked";
    }
    for (const auto& jPort :
         {Json::Value(""), Json::Value("0"), Json::Value(65536), Json::Value(-1), Json::Value("0x50"),
          Json::Value(" 80"), Json::Value("80 "), Json::Value("+80"), Json::Value("http"), Json::Value("4294967376")})
    {
        const auto failure = failureOfRequest(client("127.0.0.1", jPort));
        EXPECT_TRUE(contains(failure, "is not a port from 1 to 65535")) << jPort << failure;
    }
    Json::Value jResponse;
    EXPECT_THROW(client("", 80).request(
                     query(), [](const Json::Value&) {}, 1),
                 std::runtime_error);
}

TEST(HttpRequest, NameIsResolvedAndEveryAddressTried)
{
    // The board listens on IPv4 only, the name may stand for both.
    const Captured out;
    const RawPeer peer(RawPeer::answering(answer("{\"a\":1}")));
    Json::Value jResponse;
    client("localhost", peer.port).request(query(), jResponse, 5);
    EXPECT_EQ(jResponse["a"], 1);

    EXPECT_TRUE(startsWith(failureOfRequest(client("no-such-board.invalid", 80), 1),
                           "no answer: Connection to no-such-board.invalid:80"));
    const Stopwatch stopwatch;
    EXPECT_TRUE(contains(failureOfRequest(client("hanging.test", 80), 1), "could not be resolved"));
    EXPECT_LT(stopwatch.seconds(), 1.5);
}

TEST(HttpRequest, AddressThatSwallowsEverythingLeavesTimeForTheNext)
{
    const RawPeer peer(RawPeer::answering(answer("{\"a\":1}")));
    // A listener whose queue is full answers no further attempt.
    std::vector<int> handles;
    for (int i = 0; i < 4; ++i)
    {
        handles.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
        auto address = loopback(peer.port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK + 1);
        const auto* pAddress = reinterpret_cast<sockaddr*>(&address);
        if (i == 0)
            ASSERT_TRUE(::bind(handles[0], pAddress, sizeof address) == 0 && ::listen(handles[0], 0) == 0);
        else
            ::connect(handles[size_t(i)], pAddress, sizeof address);
    }
    EXPECT_EQ(failureOfRequest(client("two-addresses.test", peer.port), 2), "");
    for (const int handle : handles)
        ::close(handle);
}

TEST(HttpRequest, TimeLimitHoldsForTheWholeExchange)
{
    const auto silent = [](PeerConnection& connection) { connection.silence(); };
    const auto dripHead = [](PeerConnection& connection)
    {
        connection.request();
        connection.drip(okHead + std::string(1000, 'x'), 20ms);
    };
    const auto dripBody = [](PeerConnection& connection)
    {
        connection.request();
        connection.send(okHead + "Content-Length: 1000\r\n\r\n");
        connection.drip(std::string(1000, ' '), 20ms);
    };
    for (const auto& fScript : {RawPeer::Script(silent), {dripHead}, {dripBody}})
    {
        const Stopwatch stopwatch;
        const auto failure = failureOfScript(fScript, 1);
        EXPECT_TRUE(startsWith(failure, "no answer: ") && contains(failure, "failed: no answer within 1 s")) << failure;
        EXPECT_GE(stopwatch.seconds(), 0.99);
        EXPECT_LT(stopwatch.seconds(), 1.5);
    }
}

TEST(HttpRequest, CallersLearnOfABadAnswerAndCallbacksNotOfNone)
{
    const auto expectFailure = [](const Json::Value& jResponse, const std::string& part)
    {
        EXPECT_NE(jResponse["error"].asInt(), 0);
        EXPECT_TRUE(contains(jResponse["message"].asString(), part)) << jResponse;
    };
    EXPECT_TRUE(isRefused(answer("not json"), "8 bytes \"not json\""));
    EXPECT_TRUE(isRefused(answer("[]"), "no object"));
    EXPECT_TRUE(isRefused(answer(""), "0 bytes"));
    expectFailure(completedOf(RawPeer::answering(answer("not json"))), "8 bytes \"not json\"");
    expectFailure(completedOf(RawPeer::answering(answer("[]"))), "no object");
    expectFailure(completedOf(RawPeer::answering(okHead + "Content-Length: 3\r\n\r\n{}")), "closed before the end");

    EXPECT_TRUE(completedOf(RawPeer::answering("")).isNull());
    EXPECT_TRUE(completedOf(RawPeer::answering(answer(""))).isNull());
    EXPECT_TRUE(completedOf([](PeerConnection& connection) { connection.silence(); }, 1).isNull());
}
