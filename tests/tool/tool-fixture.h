#pragma once

#include "board-simulator/source/simulator.h"
#include "tests/support/command-id.h"
#include "tests/tool/program.h"

/// The real program against a simulated board of its own.
class Tool : public ScratchTest
{
protected:
    std::string address() const { return "127.0.0.1:" + std::to_string(board.port()); }

    /// Against the board, unless the words say otherwise.
    Ended run(const std::string& text, const std::vector<std::string>& tail = {})
    {
        auto line = words(text, tail);
        line.insert(line.end(), {"--board", address()});
        return toolRun(line);
    }

    board::Simulator board{board::Options{0, "board", true, true}};
};
