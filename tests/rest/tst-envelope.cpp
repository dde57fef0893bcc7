#include "tests/rest/rest-fixture.h"
#include "tuning-rest/source/ae.h"
#include "tuning-rest/source/camera.h"
#include "tuning-rest/source/cli.h"
#include "tuning-rest/source/sensor.h"

#include <chrono>
#include <cstring>
#include <future>
#include <thread>

using namespace std::chrono_literals;
using board::Fault;

namespace
{
using Clock = std::chrono::steady_clock;

std::string preview()
{
    return failureOf([] { rest::Camera().preview(true); });
}

/// What the callback form did.
struct Completion
{
    int count = 0;
    Json::Value jAnswer;
    std::thread::id thread;
    std::string log;     ///< on standard error
    std::string failure; ///< thrown
};

Completion driverChange()
{
    Completion completion;
    testing::internal::CaptureStderr();
    completion.failure = failureOf(
        [&]
        {
            rest::Sensor().driverChange("a.drv",
                                        [&](const Json::Value& jAnswer)
                                        {
                                            ++completion.count;
                                            completion.jAnswer = jAnswer;
                                            completion.thread = std::this_thread::get_id();
                                        });
        });
    completion.log = testing::internal::GetCapturedStderr();
    return completion;
}
} // namespace

class EnvelopeTest : public RestTest
{
};

TEST_F(EnvelopeTest, CarriesNameNumberAndGeneration)
{
    bool isEnable = false;
    rest::Ae().enableGet(isEnable, rest::Ae::V2);
    EXPECT_EQ(lastRequest().body, R"({"function":"rest::Ae::enableGet","generation":1,"id":4000103})");
    EXPECT_EQ(lastRequest().target, "/");
    rest::Camera().preview(true);
    EXPECT_EQ(lastRequest().body, R"({"function":"rest::Camera::preview","id":10006,"preview":true})");
}

TEST_F(EnvelopeTest, JudgesAnswers)
{
    const auto bare = "REST: rest::Camera::preview() failed";
    const struct
    {
        const char* text;
        const char* failure;
    } cases[]{
        {R"({})", ""},
        {R"({"error":0})", ""},
        {R"({"error":null,"message":null})", ""},
        {R"({"error":0,"message":"all is well"})", ""},
        {R"({"error":5,"message":"REST SIMULATE ON"})", ""},
        {R"({"error":"text","message":"REST SIMULATE ON"})", ""},
        {R"({"error":5,"message":"Too hot"})", "Server: Too hot"},
        {R"({"error":-1,"message":"REST SIMULATE OFF"})", "Server: REST SIMULATE OFF"},
        {R"({"error":5,"message":"rest simulate on"})", "Server: rest simulate on"},
        {R"({"error":true,"message":"é"})", "Server: é"},
        {R"({"error":5})", bare},
        {R"({"error":5,"message":""})", bare},
        {R"({"error":"5"})", R"(Error in the answer: "error" is not an integer)"},
        {R"({"error":{}})", R"(Error in the answer: "error" is not an integer)"},
        {R"({"error":4294967296})", R"(Error in the answer: "error" is not an integer)"},
        {R"({"error":1e300})", R"(Error in the answer: "error" is not an integer)"},
        {R"({"error":5,"message":["Too hot"]})", R"(Error in the answer: "message" is not a text)"},
        {R"({"error":5,"message":{}})", R"(Error in the answer: "message" is not a text)"},
    };
    for (const auto& [text, failure] : cases)
    {
        answer(text);
        EXPECT_EQ(preview(), failure) << text;
    }
}

TEST_F(EnvelopeTest, RefusesAnswersThatAreNoObject)
{
    const struct
    {
        Fault::Kind kind;
        const char* text; // of the answer, for NotJson
        std::string failure;
    } cases[]{
        {Fault::NotJson, "The board is out to lunch", "25 bytes \"The board is out to lunch\""},
        {Fault::NotJson, "{\"error\":0} {\"error\":0}", "JSON parse failed"},
        {Fault::NotJson, "{\"error\":0} rubbish", "JSON parse failed"},
        {Fault::NotJson, "{\"error\":NaN}", "JSON parse failed"},
        {Fault::NotJson, "\xff\xfe\x00{}", "JSON parse failed"},
        {Fault::NotJson, "\"text\"", "JSON parse failed"},
        {Fault::AnswerArray, "", "JSON parse failed: the answer is no object but \"[]\""},
        {Fault::AnswerNumber, "", "JSON parse failed"},
        {Fault::AnswerNull, "", "JSON parse failed"},
        {Fault::AnswerEmpty, "", "0 bytes"},
        {Fault::JsonCut, "", "JSON parse failed"},
        {Fault::Nesting, "", "5000000 bytes \"[[["},
        {Fault::RandomBytes, "", "4096 bytes"},
        {Fault::Close, "", "Connection to 127.0.0.1"},
        {Fault::ResetInBody, "", "Connection to 127.0.0.1"},
        {Fault::NotHttp, "", "Connection to 127.0.0.1"},
    };
    for (const auto& [kind, text, failure] : cases)
    {
        board->faultSet({kind, 0, -1, 0, text});
        const auto got = preview();
        EXPECT_NE(got.find(failure), std::string::npos) << got << " lacks " << failure;
        EXPECT_LT(got.size(), 400u);
        EXPECT_EQ(got.find_first_of("\n\x1b"), std::string::npos);
        board->faultsClear();
        EXPECT_EQ(preview(), "") << "the command after a failure";
    }
    board->listenSet(false);
    EXPECT_NE(preview().find("refused"), std::string::npos);
}

TEST_F(EnvelopeTest, RecordsOfTheWrongSizeLeaveTheTarget)
{
    rest::Ae::Config config;
    std::memset(&config, 0x5a, sizeof config);
    const auto untouched = config;
    const auto expectRefused = [&](const std::string& what)
    {
        try
        {
            rest::Ae().configGet(config, rest::Ae::V1);
            ADD_FAILURE() << what;
        }
        catch (const t_common::LogicError& error)
        {
            EXPECT_EQ(error.error, 6) << what;
            EXPECT_STREQ(error.what(), "Base64 decode failed: object size not match");
        }
        EXPECT_EQ(std::memcmp(&config, &untouched, sizeof config), 0) << what;
    };
    for (const auto kind : {Fault::RecordShort, Fault::RecordLong, Fault::Base64Broken})
    {
        board->faultSet({kind});
        expectRefused("kind " + std::to_string(kind));
    }
    for (const auto* text : {"{}", R"({"config":null})", R"({"config":""})", R"({"config":5})"})
    {
        answer(text);
        expectRefused(text);
    }
    answer(R"({"config":["QUJD"]})");
    EXPECT_EQ(failureOf([&] { rest::Ae().configGet(config, rest::Ae::V1); }),
              R"(Error in the answer: "config" is not a text)");
}

TEST_F(EnvelopeTest, NeedsAHolder)
{
    auto other = std::move(holder);
    connect("127.0.0.1", board->port());
    rest::Abstract::clientHolderForget(*other);
    EXPECT_EQ(preview(), "") << "another holder's owner must not take away this one";
    rest::Abstract::clientHolderForget(*holder);
    EXPECT_EQ(preview(), "Transfer is never initialized");
    const auto completion = driverChange();
    EXPECT_EQ(completion.failure, "Transfer is never initialized");
    EXPECT_EQ(completion.count, 0);
    std::string path = "a.txt";
    EXPECT_EQ(failureOf([&] { rest::Sensor().registerDump2File(path); }), "Transfer is never initialized");
}

TEST_F(EnvelopeTest, UnusableAddressesFailAtTheFirstCommand)
{
    const auto port = board->port();
    const struct
    {
        const char* ip;
        Json::Value port;
        const char* failure;
    } cases[]{
        {"", port, "\"\" is not the address of a board"},
        {"127.0.0.1", 0, "\"0\" is not a port from 1 to 65535"},
        {"127.0.0.1", port + 65536, "is not a port from 1 to 65535"},
        {"127.0.0.1", "", "\"\" is not a port from 1 to 65535"},
        {"127.0.0.1\r\nX: y", port, "is not the address of a board"},
        {"nowhere.invalid", port, "nowhere.invalid"},
    };
    for (const auto& [ip, number, failure] : cases)
    {
        connect(ip, number);
        EXPECT_NE(preview().find(failure), std::string::npos) << preview();
    }
    connect("127.0.0.1", std::to_string(port));
    EXPECT_EQ(preview(), "");
    EXPECT_EQ(board->requestCount(), 1u);
}

TEST_F(EnvelopeTest, CallbackSeesBoardFailures)
{
    const struct
    {
        const char* text;
        const char* log;
    } cases[]{
        {R"({"error":0,"message":"fine"})", ""},
        {R"({"error":5,"message":"Too hot"})", "Server: Too hot\n"},
        {R"({"error":5})", "REST: rest::Sensor::driverChange() failed\n"},
        {R"({"error":"5"})", "Error in the answer: \"error\" is not an integer\n"},
        {R"({"error":5,"message":"\u001b[31mred\u0007"})", "Server: ?[31mred?\n"},
    };
    for (const auto& [text, log] : cases)
    {
        answer(text);
        const auto completion = driverChange();
        EXPECT_EQ(completion.failure, "") << text;
        ASSERT_EQ(completion.count, 1) << text;
        EXPECT_EQ(completion.jAnswer, json(text));
        EXPECT_EQ(completion.log, log);
        EXPECT_NE(completion.thread, std::this_thread::get_id());
    }
    answer(R"({"error":5,"message":"REST SIMULATE ON"})");
    const auto completion = driverChange();
    EXPECT_EQ(completion.log, "");
    EXPECT_EQ(completion.jAnswer["error"], 0);
}

TEST_F(EnvelopeTest, CallbackSeesUnreadableAnswersAndNoBrokenConnections)
{
    for (const auto kind :
         {Fault::NotJson, Fault::AnswerArray, Fault::AnswerNull, Fault::Nesting, Fault::JsonCut, Fault::RandomBytes})
    {
        board->faultSet({kind});
        const auto completion = driverChange();
        ASSERT_EQ(completion.count, 1) << kind;
        EXPECT_NE(completion.jAnswer["error"].asInt(), 0) << kind;
        EXPECT_NE(completion.jAnswer["message"].asString().find("JSON parse failed"), std::string::npos) << kind;
    }
    for (const auto kind : {Fault::Pieces, Fault::Chunked, Fault::NoLength})
    {
        board->faultSet({kind});
        const auto completion = driverChange();
        EXPECT_EQ(completion.count, 1) << "an answer in pieces is one answer, kind " << kind;
        EXPECT_EQ(completion.log, "");
    }
    board->faultSet({Fault::Close});
    EXPECT_EQ(driverChange().count, 0);
    board->listenSet(false);
    const auto completion = driverChange();
    EXPECT_EQ(completion.count, 0);
    EXPECT_EQ(completion.failure, "") << "nothing is reported to the caller";
}

TEST_F(EnvelopeTest, CallbackThatThrowsEndsAsFailureOfTheCall)
{
    EXPECT_EQ(failureOf(
                  [] {
                      rest::Sensor().driverChange("a.drv",
                                                  [](const Json::Value&) { throw std::runtime_error("in callback"); });
                  }),
              "in callback");
}

// The limits of all commands at once, each with a connection of its own.
TEST_F(EnvelopeTest, TimeLimits)
{
    board->faultSet({Fault::Silence});
    board->faultSet({Fault::Delay, 10003, -1, 10500});
    const auto timed = [](const std::function<void()>& action)
    {
        return std::async(std::launch::async,
                          [action]
                          {
                              const auto start = Clock::now();
                              const auto failure = failureOf(action);
                              return std::make_pair(failure,
                                                    std::chrono::duration<double>(Clock::now() - start).count());
                          });
    };
    bool isCompleted = false;
    bool isChanged = false;
    auto captured = timed(
        [&] { rest::Camera().capture("a", rest::Camera::Yuv, 0, [&](const Json::Value&) { isCompleted = true; }); });
    auto changed = timed([&] { rest::Sensor().driverChange("a.drv", [&](const Json::Value&) { isChanged = true; }); });
    auto changedBlocking = timed([] { rest::Sensor().driverChange("a.drv"); });
    auto calibrated = timed([] { rest::Camera().calibrationSet("a.xml", false); });
    auto plain = timed([] { rest::Camera().preview(true); });

    const auto expectWithin = [](const std::pair<std::string, double>& outcome, double low, double high)
    {
        EXPECT_GE(outcome.second, low) << outcome.first;
        EXPECT_LE(outcome.second, high) << outcome.first;
    };
    const auto plainOutcome = plain.get();
    EXPECT_NE(plainOutcome.first.find("no answer within 2 s"), std::string::npos) << plainOutcome.first;
    expectWithin(plainOutcome, 1.9, 8);
    for (auto* pOutcome : {&changedBlocking, &calibrated})
    {
        const auto outcome = pOutcome->get();
        EXPECT_NE(outcome.first.find("no answer within 10 s"), std::string::npos) << outcome.first;
        expectWithin(outcome, 9.9, 20);
    }
    expectWithin(changed.get(), 9.9, 20);
    EXPECT_FALSE(isChanged);
    expectWithin(captured.get(), 10.4, 28);
    EXPECT_TRUE(isCompleted) << "a capture has 30 seconds";
}

TEST_F(EnvelopeTest, TellsItsVersion)
{
    std::string name, number, time;
    static_cast<rest::Abstract&&>(rest::Cli()).versionGet(name, number, time);
    EXPECT_EQ(name + "|" + number + "|" + time, "REST|4.3.0|2022-11-16 09:18:29");
}
