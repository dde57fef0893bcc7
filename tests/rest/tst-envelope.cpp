#include "tests/rest/fixture.h"
#include "tuning-rest/source/camera.h"
#include "tuning-rest/source/sensor.h"

#include <future>

using board::Fault;

namespace
{
/// What the callback form did.
struct Completion
{
    int count = 0;
    Json::Value jAnswer;
    std::string log;     ///< on standard error
    std::string failure; ///< thrown
};

class EnvelopeTest : public RestTest
{
protected:
    static std::string preview()
    {
        return failureOf([] { rest::Camera().preview(true); });
    }

    static Completion driverChange()
    {
        Completion completion;
        const Captured err(std::cerr);
        completion.failure = failureOf(
            [&]
            {
                rest::Sensor().driverChange("a.drv",
                                            [&](const Json::Value& jAnswer)
                                            {
                                                ++completion.count;
                                                completion.jAnswer = jAnswer;
                                            });
            });
        completion.log = err.get();
        return completion;
    }
};
} // namespace

TEST_F(EnvelopeTest, JudgesAnswers)
{
    const auto bare = "REST: rest::Camera::preview() failed";
    const std::pair<const char*, const char*> cases[]{
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
        {R"({"error":5,"message":["Too hot"]})", R"(Error in the answer: "message" is not a text)"},
    };
    for (const auto& [text, failure] : cases)
    {
        answer(text);
        EXPECT_EQ(preview(), failure) << text;
    }
}

TEST_F(EnvelopeTest, NeedsAHolder)
{
    auto other = std::move(holder);
    connect();
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

TEST_F(EnvelopeTest, CallbackSeesBoardFailures)
{
    const std::pair<const char*, const char*> cases[]{
        {R"({"error":0,"message":"fine"})", ""},
        {R"({"error":5,"message":"Too hot"})", "Server: Too hot\n"},
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
    }
    answer(R"({"error":5,"message":"REST SIMULATE ON"})");
    const auto completion = driverChange();
    EXPECT_EQ(completion.log, "");
    EXPECT_EQ(completion.jAnswer["error"], 0);
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
    struct Outcome
    {
        std::string failure;
        double seconds;
    };
    const auto timed = [](const std::function<void()>& action)
    {
        return std::async(std::launch::async,
                          [action]
                          {
                              const Stopwatch stopwatch;
                              const auto failure = failureOf(action);
                              return Outcome{failure, stopwatch.seconds()};
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

    const auto expectFailure = [](std::future<Outcome>& future, const std::string& failure, double low, double high)
    {
        const auto outcome = future.get();
        EXPECT_TRUE(contains(outcome.failure, failure)) << outcome.failure;
        EXPECT_GE(outcome.seconds, low) << failure;
        EXPECT_LE(outcome.seconds, high) << failure;
    };
    expectFailure(plain, "no answer within 2 s", 1.9, 8);
    expectFailure(changedBlocking, "no answer within 10 s", 9.9, 20);
    expectFailure(calibrated, "no answer within 10 s", 9.9, 20);
    expectFailure(changed, "", 9.9, 20);
    EXPECT_FALSE(isChanged);
    expectFailure(captured, "", 10.4, 28);
    EXPECT_TRUE(isCompleted) << "a capture has 30 seconds";
}
