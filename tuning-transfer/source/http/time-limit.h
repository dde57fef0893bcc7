#pragma once

#include "tuning-transfer/source/patience.h"

#include <chrono>
#include <optional>
#include <string>

namespace t_transfer::http
{
/// Either one moment at which an exchange has to be over, or the longest silence within it.
class TimeLimit
{
public:
    using Clock = std::chrono::steady_clock;

    static TimeLimit whole(std::chrono::seconds span) { return {{span, span}, Clock::now() + span}; }
    static TimeLimit silence(const Patience& patience) { return {patience, {}}; }

    /// Until when a step that starts now has to be done.
    Clock::time_point next() const { return end ? *end : Clock::now() + span(); }

    /// The first byte of the answer is there.
    void begun() { hasBegun = true; }

    bool isSilence() const { return !end; }

    std::string text() const
    {
        const auto seconds = std::to_string(std::chrono::duration_cast<std::chrono::seconds>(span()).count()) + " s";
        return end ? "no answer within " + seconds : "nothing has moved for " + seconds;
    }

private:
    TimeLimit(const Patience& patience_, std::optional<Clock::time_point> end_) : patience(patience_), end(end_) {}

    std::chrono::milliseconds span() const { return hasBegun ? patience.next : patience.first; }

    Patience patience;
    std::optional<Clock::time_point> end;
    bool hasBegun = false;
};
} // namespace t_transfer::http
