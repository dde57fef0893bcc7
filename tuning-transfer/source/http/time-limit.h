#pragma once

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

    static TimeLimit whole(std::chrono::seconds span) { return {span, Clock::now() + span}; }
    static TimeLimit silence(std::chrono::milliseconds span) { return {span, {}}; }

    /// Until when a step that starts now has to be done.
    Clock::time_point next() const { return end ? *end : Clock::now() + span; }

    bool isSilence() const { return !end; }

    std::string text() const
    {
        const auto seconds = std::to_string(std::chrono::duration_cast<std::chrono::seconds>(span).count()) + " s";
        return end ? "no answer within " + seconds : "nothing has moved for " + seconds;
    }

private:
    TimeLimit(std::chrono::milliseconds span_, std::optional<Clock::time_point> end_) : span(span_), end(end_) {}

    std::chrono::milliseconds span;
    std::optional<Clock::time_point> end;
};
} // namespace t_transfer::http
