#pragma once

#include "board-simulator/source/fault.h"

#include <chrono>
#include <optional>
#include <string>

namespace board
{

/// What goes over the line as an answer, and how.
struct Delivery
{
    enum End
    {
        Finish,
        Reset,
        Hold
    };

    std::string bytes = {};
    /// Bytes that are sent at once, 0 for all.
    size_t piece = 0;
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds pause{0};
    End end = Finish;
};

/// The head of an answer.
std::string responseHead(int status, const std::string& contentType, uint64_t length);
/// A whole answer, with what a fault of the line does to it.
Delivery deliver(const std::optional<Fault>& fault, int status, const std::string& contentType,
                 const std::string& body);
/// The same for a line that carries the text alone. `Delivery::Reset` means that the line goes away.
Delivery deliver(const std::optional<Fault>& fault, const std::string& text);

} // namespace board
