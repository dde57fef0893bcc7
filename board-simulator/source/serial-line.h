#pragma once

#include "board-simulator/source/exchange.h"

#include <memory>
#include <string>

namespace board
{

/// Serves commands over a pseudo-terminal, on a thread of its own. The device is there from construction to
/// destruction, or until a fault takes it away.
class SerialLine
{
public:
    /// Throws `std::runtime_error` if there is no pseudo-terminal to be had.
    explicit SerialLine(Exchange& exchange);
    ~SerialLine();

    /// The path of the device, empty when it has gone.
    std::string name() const;

private:
    class Impl;
    std::unique_ptr<Impl> pImpl;
};

} // namespace board
