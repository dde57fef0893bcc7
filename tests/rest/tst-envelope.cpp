#include "tests/transfer/captured.h"
#include "tests/transfer/raw-peer.h"
#include "tuning-rest/source/abstract.h"
#include "tuning-transfer/source/transfer-client.h"

#include <gtest/gtest.h>

#include <memory>

/// A command of no module, in both of its forms.
class Probe : public rest::Abstract
{
public:
    Json::Value ask()
    {
        Json::Value jResponse;
        request(COMMAND(7).query(), jResponse, 5);
        return jResponse;
    }

    /// What reaches the callback; null where nothing does.
    Json::Value askWithCallback()
    {
        Json::Value jCompleted;
        request(
            COMMAND(7).query(), [&](const Json::Value& jResponse) { jCompleted = jResponse; }, 5);
        return jCompleted;
    }
};

namespace
{
class Envelope : public testing::Test
{
protected:
    ~Envelope() override
    {
        if (pHolder)
        {
            rest::Abstract::clientHolderForget(*pHolder);
        }
    }

    /// From now on the board answers everything with this body.
    void answer(const std::string& body)
    {
        pPeer = std::make_unique<RawPeer>(RawPeer::answering(
            "HTTP/1.1 500 Error\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body));
        Json::Value jConfig;
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = pPeer->port;
        pHolder = std::make_unique<t_transfer::ClientHolder>(
            t_transfer::ClientHolder::Http, [](const std::string&) {}, jConfig);
        rest::Abstract::clientHolderSet(*pHolder);
    }

    static std::string failure()
    {
        const Captured out;
        try
        {
            Probe().ask();
        }
        catch (const std::logic_error& exception)
        {
            return exception.what();
        }
        return {};
    }

    std::unique_ptr<RawPeer> pPeer;
    std::unique_ptr<t_transfer::ClientHolder> pHolder;
};

struct Judgement
{
    const char* pBody;
    const char* pFailure;
};
} // namespace

TEST_F(Envelope, AnswersAreJudged)
{
    for (const auto& [pBody, pFailure] : {
             Judgement{R"({})", ""},
             Judgement{R"({"error":0,"message":"all is well"})", ""},
             Judgement{R"({"error":null,"message":null})", ""},
             Judgement{R"({"error":5,"message":"REST SIMULATE ON"})", ""},
             Judgement{R"({"error":5,"message":"no sensor"})", "Server: no sensor"},
             Judgement{R"({"error":-1,"message":"REST SIMULATE ON!"})", "Server: REST SIMULATE ON!"},
             Judgement{R"({"error":5})", "REST: Probe::ask() failed"},
             Judgement{R"({"error":5,"message":""})", "REST: Probe::ask() failed"},
             Judgement{R"({"error":"0"})", "Error in the answer: \"error\" is not an integer"},
             Judgement{R"({"error":0,"message":[]})", "Error in the answer: \"message\" is not a text"},
         })
    {
        answer(pBody);
        EXPECT_EQ(failure(), pFailure) << pBody;
    }
}

TEST_F(Envelope, SimulatedSuccessShowsInTheAnswer)
{
    const Captured out;
    answer(R"({"error":5,"message":"REST SIMULATE ON","value":3})");
    const auto jResponse = Probe().ask();
    EXPECT_EQ(jResponse["error"], 0);
    EXPECT_EQ(jResponse["value"], 3);
    EXPECT_EQ(Probe().askWithCallback()["error"], 0);
}

TEST_F(Envelope, CallbackSeesTheFailureThatIsToldOnStandardError)
{
    const Captured out;
    const Captured err(std::cerr);
    answer(R"({"error":5,"message":"no sensor"})");
    const auto jResponse = Probe().askWithCallback();
    EXPECT_EQ(jResponse["error"], 5);
    EXPECT_EQ(jResponse["message"], "no sensor");
    EXPECT_EQ(err.get(), "Server: no sensor\n");
}

TEST_F(Envelope, WithoutAHolderEveryCommandFails)
{
    EXPECT_EQ(failure(), "Transfer is never initialized");
    EXPECT_THROW(Probe().askWithCallback(), std::logic_error);
    answer("{}");
    EXPECT_EQ(failure(), "");
    // Forgetting another holder leaves the present one.
    Json::Value jConfig;
    rest::Abstract::clientHolderForget(t_transfer::ClientHolder(t_transfer::ClientHolder::Usb, {}, jConfig));
    EXPECT_EQ(failure(), "");
    rest::Abstract::clientHolderForget(*pHolder);
    EXPECT_EQ(failure(), "Transfer is never initialized");
}

TEST_F(Envelope, TransportsFailureKeepsItsTextAndLosesItsType)
{
    answer("not json");
    EXPECT_EQ(failure().rfind("JSON parse failed: ", 0), 0u) << failure();
}
