#include "tests/simulator/fixture.h"

#include <atomic>
#include <functional>
#include <thread>

namespace
{

using board::Fault;

class Http : public BoardTest
{
protected:
    /// The answer to a read of the exposure settings, which has a record.
    std::string ask() { return exchange(post(query("Ae", "configGet", 0))); }

    const Json::Value listing = query("FileSystem", "list", -1, R"({"path":".","file.extension":""})");
};

size_t recordSize(const Json::Value& answer)
{
    return board::base64Decode(answer["config"].asString()).value_or("").size();
}

size_t announced(const std::string& response)
{
    const std::string field = "Content-Length: ";
    const size_t place = response.find(field);
    return place == std::string::npos ? 0 : std::stoul(response.substr(place + field.size()));
}

} // namespace

TEST_F(Http, RequestIsKeptByteForByte)
{
    const std::string body = "{ \"function\" : \"f\\u0041\", \"id\":4000103,\t\"generation\":1 }\r\n";
    const std::string head =
        "POST / HTTP/1.1\r\nX-Odd:  two  blanks \r\ncontent-LENGTH: " + std::to_string(body.size()) +
        "\r\nHost: board:80\r\n\r\n";
    ClientConnection connection(simulator->port());
    // In pieces, as a slow line would bring it.
    for (char c : head + body)
        connection.send(std::string(1, c));
    const std::string response = connection.receive();
    EXPECT_TRUE(startsWith(response, "HTTP/1.1 200 OK\r\n")) << response;
    EXPECT_EQ(parse(bodyOf(response))["enable"], true);
    EXPECT_EQ(announced(response), bodyOf(response).size());

    ASSERT_EQ(simulator->requestCount(), 1u);
    const board::Request request = simulator->requests().front();
    EXPECT_EQ(request.head, head);
    EXPECT_EQ(request.body, body);
    EXPECT_EQ(request.target, "/");
    EXPECT_EQ(request.query["function"], "fA");
    EXPECT_EQ(simulator->count(4000103), 1u);
    EXPECT_EQ(simulator->count(4000101), 0u);

    exchange(post(std::string("\0not json\xff", 10)));
    EXPECT_EQ(simulator->requests().back().body, std::string("\0not json\xff", 10));
    simulator->requestsClear();
    EXPECT_EQ(simulator->count(4000103) + simulator->requestCount(), 0u);
}

TEST_F(Http, BadBytesGetAnAnswerAndHarmNothing)
{
    const std::vector<std::string> bodies{"",
                                          "{\"id\":1e999}",
                                          std::string(5'000'000, '['),
                                          std::string(100'000, '\0'),
                                          "{\"function\":\"f\",\"id\":[1]}",
                                          "{\"function\":\"f\",\"id\":18446744073709551615}",
                                          "{} {}",
                                          "{\"a\":1,\"a\":2}"};
    for (const std::string& body : bodies)
    {
        const Json::Value answer = parse(bodyOf(exchange(post(body))));
        EXPECT_NE(answer["error"], 0) << body.substr(0, 100);
        EXPECT_FALSE(answer["message"].asString().empty()) << body.substr(0, 100);
    }
    const std::vector<std::string> heads{"\r\n\r\n",
                                         "POST\r\n\r\n",
                                         "GET  HTTP/1.1\r\n\r\n",
                                         "PUT / HTTP/1.1\r\n\r\n",
                                         "POST / HTTP/1.1\r\nContent-Length: -1\r\n\r\n",
                                         "POST / HTTP/1.1\r\nContent-Length\r\n\r\n",
                                         "POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"};
    for (const std::string& head : heads)
        EXPECT_TRUE(startsWith(exchange(head), "HTTP/1.1 400 ")) << head;
    {
        ClientConnection connection(simulator->port());
        connection.send("POST / HTTP/1.1\r\n" + std::string(200'000, 'x'));
        EXPECT_EQ(connection.receive(), "");
    }
    EXPECT_EQ(parse(bodyOf(ask()))["error"], 0);
}

// Further kinds have texts of their own in the client, and are seen there.
TEST_F(Http, FaultsOfTheAnswer)
{
    const std::string record = simulator->recordGet("Ae", 0);
    const std::vector<std::pair<Fault, std::function<bool(const std::string&)>>> cases{
        {{Fault::Error, 0, -1, 0, "own text"}, [](auto& b) { return parse(b)["message"] == "own text"; }},
        {{Fault::MessageControl}, [](auto& b) { return contains(parse(b)["message"].asString(), "\x1b[31m"); }},
        {{Fault::MessageLong, 0, -1, 5000}, [](auto& b) { return parse(b)["message"].asString().size() == 5000; }},
        {{Fault::RecordShort, 0, -1, 99}, [](auto& b) { return recordSize(parse(b)) == 0 && parse(b)["error"] == 0; }},
        {{Fault::RecordLong, 0, -1, 4}, [](auto& b) { return recordSize(parse(b)) == 40; }},
        {{Fault::Base64Broken}, [](auto& b) { return !board::base64Decode(parse(b)["config"].asString()); }},
        {{Fault::WrongTypes, 0, -1, 0, "error"}, [](auto& b) { return parse(b)["error"] == "text"; }},
        {{Fault::JsonCut}, [](auto& b) { return b[0] == '{' && b.back() != '}'; }},
        {{Fault::Nesting}, [](auto& b) { return b == std::string(5'000'000, '['); }},
        {{Fault::AnswerNull}, [](auto& b) { return b == "null"; }},
        {{Fault::RandomBytes}, [](auto& b) { return b.size() == 4096; }},
    };
    for (const auto& [fault, isMet] : cases)
    {
        simulator->faultSet(fault);
        const std::string response = ask();
        EXPECT_TRUE(startsWith(response, "HTTP/1.1 200 OK\r\n")) << fault.kind;
        EXPECT_EQ(announced(response), bodyOf(response).size()) << fault.kind;
        EXPECT_TRUE(isMet(bodyOf(response))) << fault.kind << " " << response.substr(0, 300);
    }
    simulator->faultsClear();
    EXPECT_EQ(recordSize(parse(bodyOf(ask()))), 36u);
    EXPECT_EQ(simulator->recordGet("Ae", 0), record);
}

TEST_F(Http, FaultsOfTheLine)
{
    const std::string sound = ask();
    const std::string body = bodyOf(sound);
    const int eof = 0;
    struct Case
    {
        Fault fault;
        int end;
        std::function<bool(const std::string&)> isMet;
    };
    const std::vector<Case> cases{
        {{Fault::Close}, eof, [](auto& r) { return r.empty(); }},
        {{Fault::ResetInBody},
         ECONNRESET,
         [&](auto& r) { return announced(r) == body.size() && bodyOf(r) == body.substr(0, body.size() / 2); }},
        {{Fault::BodyShort}, eof, [&](auto& r) { return announced(r) == body.size() + 10 && bodyOf(r) == body; }},
        {{Fault::Chunked, 0, -1, 30},
         eof,
         [&](auto& r)
         {
             return contains(r, "\r\n\r\n1e\r\n" + body.substr(0, 30) + "\r\n") && contains(r, "\r\n0\r\n\r\n") &&
                    !announced(r);
         }},
        {{Fault::ChunkedCut}, eof, [](auto& r) { return contains(r, "chunked") && !contains(r, "\r\n0\r\n"); }},
        {{Fault::NoLength}, eof, [&](auto& r) { return !contains(r, "Length") && bodyOf(r) == body; }},
        {{Fault::HttpStatus}, eof, [&](auto& r) { return startsWith(r, "HTTP/1.1 500 ") && bodyOf(r) == body; }},
        {{Fault::NoReason}, eof, [&](auto& r) { return startsWith(r, "HTTP/1.1 200\r\n") && bodyOf(r) == body; }},
        {{Fault::Continue}, eof, [&](auto& r) { return r == "HTTP/1.1 100 Continue\r\n\r\n" + sound; }},
        {{Fault::Pieces}, eof, [&](auto& r) { return r == sound; }},
        {{Fault::Drip, 0, -1, 1}, eof, [&](auto& r) { return r == sound; }},
        {{Fault::Delay, 0, -1, 50}, eof, [&](auto& r) { return r == sound; }},
        {{Fault::HeadHuge}, eof, [&](auto& r) { return r.size() > (1u << 20) && bodyOf(r) == body; }},
        {{Fault::NotHttp, 0, -1, 100}, eof, [](auto& r) { return r.size() == 100 && !startsWith(r, "HTTP"); }},
    };
    for (const auto& [fault, end, isMet] : cases)
    {
        simulator->faultSet(fault);
        const Stopwatch stopwatch;
        ClientConnection connection(simulator->port());
        connection.send(post(query("Ae", "configGet", 0)));
        const std::string response = connection.receive();
        EXPECT_TRUE(isMet(response)) << fault.kind << " " << response.substr(0, 300);
        EXPECT_EQ(connection.error, end) << fault.kind;
        const bool isSlow = fault.kind == Fault::Drip || fault.kind == Fault::Delay;
        EXPECT_GE(stopwatch.seconds(), isSlow ? 0.05 : 0);
    }
}

TEST_F(Http, FaultsChooseTheirCommandAndTheirNumber)
{
    const std::string other = post(query("Dg", "configGet"));
    simulator->faultSet({Fault::AnswerNull, idOf("Ae", "configGet"), 2});
    simulator->faultSet({Fault::AnswerNumber, Fault::Upload});
    EXPECT_EQ(bodyOf(ask()), "null");
    EXPECT_EQ(parse(bodyOf(exchange(other)))["error"], 0);
    simulator->faultSet({Fault::AnswerArray, Fault::Everything, 1});
    EXPECT_EQ(bodyOf(ask()), "null");
    EXPECT_EQ(bodyOf(exchange(other)), "[]");
    EXPECT_EQ(parse(bodyOf(exchange(other)))["error"], 0);
    EXPECT_EQ(parse(bodyOf(ask()))["error"], 0);

    // A command that is refused does nothing.
    simulator->faultSet({Fault::ErrorBare});
    exchange(post(query("Ae", "enableSet", 0, R"({"enable":false})")));
    EXPECT_EQ(run("Ae", "enableGet", 0)["enable"], true);
}

TEST_F(Http, FilesMeetFaultsToo)
{
    const std::string content(1000, 'a');
    fileStore("files/a.xml", content);
    simulator->faultSet({Fault::BodyShort, Fault::Download});
    EXPECT_EQ(announced(download("/a.xml")), 1010u);
    simulator->faultSet({Fault::NoLength, Fault::Download});
    EXPECT_EQ(bodyOf(download("/a.xml")), content);
    simulator->faultSet({Fault::HttpStatus, Fault::Upload});
    EXPECT_TRUE(startsWith(exchange(post("b", "/upload?path=&filename=b.xml")), "HTTP/1.1 500 "));
    simulator->faultsClear();
    EXPECT_EQ(announced(download("/a.xml")), 1000u);
}

TEST_F(Http, HostileNamesReachEveryKey)
{
    simulator->faultSet({Fault::HostileNames, 0, -1, 0, "../x"});
    const std::pair<Json::Value, std::string> commands[]{
        {query("Camera", "calibrationGet", -1, R"({"block.signal":false,"time":"now"})"), "calib.file"},
        {query("Simp", "configGet"), "file.name"}};
    for (const auto& [jQuery, key] : commands)
        EXPECT_EQ(parse(bodyOf(exchange(post(jQuery))))[key], "../x");
    EXPECT_EQ(parse(bodyOf(exchange(post(listing))))["file.list"][0], "../x");
}

TEST_F(Http, SilentConnectionsHoldUpNobody)
{
    simulator->faultSet({Fault::Silence, idOf("Ae", "configGet")});
    simulator->faultSet({Fault::Drip, idOf("Dg", "configGet"), -1, 1000});
    simulator->faultSet({Fault::Delay, idOf("Ge", "configGet"), -1, 100'000});
    simulator->faultSet({Fault::Silence, Fault::Upload});
    const std::string requests[]{post(query("Ae", "configGet", 0)), post(query("Dg", "configGet")),
                                 post(query("Ge", "configGet")), "POST / HTTP/1.1\r\n",
                                 "POST /upload?path=&filename=a.xml HTTP/1.1\r\nContent-Length: 1000\r\n\r\n"};
    std::vector<std::unique_ptr<ClientConnection>> connections;
    for (const std::string& request : requests)
    {
        connections.push_back(std::make_unique<ClientConnection>(simulator->port()));
        connections.back()->send(request);
    }
    EXPECT_EQ(parse(bodyOf(exchange(post(query("Ae", "enableGet", 0)))))["error"], 0);
    EXPECT_TRUE(await([&] { return simulator->requestCount() >= 5; }));
    const Stopwatch stopwatch;
    simulator->stop();
    for (const auto& pConnection : connections)
        EXPECT_LT(pConnection->receive().size(), 10u);
    EXPECT_LT(stopwatch.seconds(), 1);
    EXPECT_EQ(ClientConnection(simulator->port()).error, ECONNREFUSED);
    simulator->listenSet(true);
    EXPECT_EQ(run("Ae", "enableGet", 0)["error"], 0);
}

TEST_F(Http, BoardThatIsGoneComesBackOnItsPort)
{
    const uint16_t port = simulator->port();
    simulator->faultSet({Fault::Silence, Fault::Everything, 1});
    ClientConnection open(port);
    open.send(post(query("Ae", "configGet", 0)));
    EXPECT_TRUE(await([&] { return simulator->requestCount() > 0; }));
    simulator->listenSet(false);
    simulator->listenSet(false);
    EXPECT_EQ(open.receive(), "");
    EXPECT_EQ(ClientConnection(port).error, ECONNREFUSED);
    for (int round = 0; round < 3; ++round)
    {
        simulator->listenSet(true);
        EXPECT_EQ(simulator->port(), port);
        EXPECT_EQ(parse(bodyOf(ask()))["error"], 0);
        simulator->listenSet(false);
        EXPECT_EQ(ClientConnection(port).error, ECONNREFUSED);
    }
}

TEST_F(Http, PortInUseIsTold)
{
    const auto failure = failureOf([&] { board::Simulator({simulator->port(), "second"}); });
    EXPECT_TRUE(contains(failure, "Port " + std::to_string(simulator->port()))) << failure;
}

TEST_F(Http, TestsAndClientsActAtTheSameTime)
{
    std::vector<std::thread> clients;
    std::atomic<int> answers{0};
    for (int client = 0; client < 4; ++client)
    {
        clients.emplace_back(
            [&]
            {
                for (int i = 0; i < 50; ++i)
                    answers += startsWith(exchange(post(query("Ae", "statusGet", 1))), "HTTP/1.1 200");
            });
    }
    for (int i = 0; i < 100; ++i)
    {
        simulator->recordSet("Ae", 0, simulator->recordGet("Ae", 1));
        run("Ae", "reset", 0);
        simulator->faultSet({Fault::RecordShort, 0, 1});
        simulator->answerSet(1, "key", i);
        simulator->requests();
        simulator->advance(1);
    }
    for (std::thread& client : clients)
        client.join();
    EXPECT_EQ(answers, 200);
    EXPECT_EQ(simulator->count(idOf("Ae", "statusGet")), 200u);
}
