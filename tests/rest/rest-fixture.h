#pragma once

#include "board-simulator/source/simulator.h"
#include "tuning-common/source/json-app.h"
#include "tuning-rest/source/abstract.h"
#include "tuning-transfer/source/transfer-client.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

/// Command classes with a simulated board behind them, in a working directory of their own.
class RestTest : public testing::Test
{
protected:
    RestTest() : before(std::filesystem::current_path())
    {
        char scratch[] = "/tmp/tuning-rest-test-XXXXXX";
        std::filesystem::current_path(mkdtemp(scratch));
        board = std::make_unique<board::Simulator>(board::Options{0, "board"});
        connect("127.0.0.1", board->port());
    }

    ~RestTest() override
    {
        rest::Abstract::clientHolderForget(*holder);
        const auto scratch = std::filesystem::current_path();
        std::filesystem::current_path(before);
        std::filesystem::remove_all(scratch);
    }

    void connect(const std::string& ip, const Json::Value& port)
    {
        Json::Value jConfig;
        jConfig["ip"] = ip;
        jConfig["port"] = port;
        holder = std::make_unique<t_transfer::ClientHolder>(
            t_transfer::ClientHolder::Http, [](const std::string&) {}, jConfig);
        rest::Abstract::clientHolderSet(*holder);
    }

    /// Every later answer to every command is this text.
    void answer(const std::string& text) { board->faultSet({board::Fault::NotJson, 0, -1, 0, text}); }

    board::Request lastRequest() const
    {
        const auto requests = board->requests();
        return requests.empty() ? board::Request() : requests.back();
    }

    static Json::Value json(const std::string& text) { return t_common::JsonApp::fromString(text); }

    std::filesystem::path before;
    std::unique_ptr<board::Simulator> board;
    std::unique_ptr<t_transfer::ClientHolder> holder;
};

/// The text of the std::logic_error that `action` throws. Anything else that it throws is a failure.
template <class Action>
std::string failureOf(Action action)
{
    try
    {
        action();
    }
    catch (const std::logic_error& error)
    {
        return error.what();
    }
    catch (const std::exception& error)
    {
        ADD_FAILURE() << "not a logic_error: " << error.what();
    }
    return {};
}
