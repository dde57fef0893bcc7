#pragma once

#include "board-simulator/source/simulator.h"
#include "board-wire/source/wire.h"
#include "tests/support/outcome.h"
#include "tests/support/scratch.h"
#include "tuning-common/source/json-app.h"
#include "tuning-rest/source/abstract.h"
#include "tuning-transfer/source/transfer-client.h"

#include <memory>
#include <stdexcept>

/// The command layer with a simulated board behind it.
class RestTest : public ScratchTest
{
protected:
    RestTest() { connect(); }

    ~RestTest() override { rest::Abstract::clientHolderForget(*holder); }

    void connect()
    {
        Json::Value jConfig;
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = board->port();
        holder = std::make_unique<t_transfer::ClientHolder>(
            t_transfer::ClientHolder::Http, [](const std::string&) {}, jConfig);
        rest::Abstract::clientHolderSet(*holder);
    }

    /// Every later answer to every command is this text.
    void answer(const std::string& text) { board->faultSet({board::Fault::NotJson, 0, -1, 0, text}); }

    static Json::Value json(const std::string& text) { return t_common::JsonApp::fromString(text); }

    /// Every failure that leaves the command layer is of this kind.
    template <class Action>
    static std::string failureOf(Action action)
    {
        return ::failureOf<std::logic_error>(action);
    }

    Captured out;
    std::unique_ptr<board::Simulator> board = std::make_unique<board::Simulator>(board::Options{0, "board", true});
    std::unique_ptr<t_transfer::ClientHolder> holder;
};
